#include "base/ListedText.h"

#include <gtest/gtest.h>

#include <string>

namespace blankwell {
namespace {

constexpr auto group = "Default Applications";

std::string with(std::string_view text) {
    return withListedEntry(text, group, "x", "ours");
}

std::string without(std::string_view text) {
    return withoutListedEntry(text, group, "x", "ours");
}

TEST(ListedTextTest, AnEmptyTextGetsTheGroup) {
    EXPECT_EQ(with(""), "[Default Applications]\nx=ours\n");
}

TEST(ListedTextTest, AMissingGroupComesAtTheEnd) {
    EXPECT_EQ(with("[Other]\nx=theirs\n"), "[Other]\nx=theirs\n[Default Applications]\nx=ours\n");
}

TEST(ListedTextTest, AMissingLineComesAtTheEndOfItsGroup) {
    EXPECT_EQ(with("[Default Applications]\na=b\n\n[Other]\n"),
              "[Default Applications]\na=b\nx=ours\n\n[Other]\n");
}

TEST(ListedTextTest, AnotherValueIsReplaced) {
    EXPECT_EQ(with("[Default Applications]\n x = theirs\na=b\n"),
              "[Default Applications]\nx=ours\na=b\n");
}

TEST(ListedTextTest, ATextWithoutALastLineFeedGetsOne) {
    EXPECT_EQ(with("[Other]\na=b"), "[Other]\na=b\n[Default Applications]\nx=ours\n");
}

TEST(ListedTextTest, WhatIsThereTwiceIsThereOnce) {
    EXPECT_EQ(with(with("[Other]\n")), with("[Other]\n"));
}

TEST(ListedTextTest, TakingItAwayBringsTheTextBack) {
    for (const std::string text :
         {"", "# mine\n[Other]\nx=1\n", "[Default Applications]\na=b\n\n[Other]\n",
          "[Default Applications]\na=b\n", "no heading\n"}) {
        EXPECT_EQ(without(with(text)), text);
    }
}

TEST(ListedTextTest, WhatTheUserChangedStays) {
    const std::string changed = "[Default Applications]\nx=theirs\n";
    EXPECT_EQ(without(changed), changed);
}

TEST(ListedTextTest, NothingIsTakenFromATextWithoutIt) {
    for (const std::string text : {"", "[Other]\nx=ours\n", "x=ours\n"}) {
        EXPECT_EQ(without(text), text);
    }
}

} // namespace
} // namespace blankwell
