#include "platform/linux/PropertyListText.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using namespace std::string_literals;

TEST(PropertyListText, OrdinaryTextStandsAsItIs) {
    for (const auto& text : {""s, "securityScopedFolderBookmark./home/u/Grün & Co/100%"s,
                             " a\tb\nc "s, "日本 🎉"s, "\x7F"s, "\xC2\x85"s}) {
        EXPECT_EQ(storedText(text), text);
        EXPECT_EQ(originalText(text), text);
    }
}

TEST(PropertyListText, WhatXmlCannotHoldIsEscapedByteByByte) {
    EXPECT_EQ(storedText("/a\x01"
                         "b"),
              "/a␛01b");
    EXPECT_EQ(storedText("a\0b"s), "a␛00b");
    EXPECT_EQ(storedText("a\rb"), "a␛0Db");
    EXPECT_EQ(storedText("caf\xE9"), "caf␛E9");
    EXPECT_EQ(storedText("\xED\xA0\x80"), "␛ED␛A0␛80");
    EXPECT_EQ(storedText("\xEF\xBF\xBF"), "␛EF␛BF␛BF");
    EXPECT_EQ(storedText("ü\xFF"
                         "ü"),
              "ü␛FFü");
}

TEST(PropertyListText, TheEscapeItselfIsEscaped) {
    EXPECT_EQ(storedText("␛01"), "␛E2␛90␛9B01");
    EXPECT_EQ(originalText("␛E2␛90␛9B01"), "␛01");
}

TEST(PropertyListText, AllBytesAndPairsOfBytesComeBackAsXmlText) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string text{'a', static_cast<char>(first), static_cast<char>(second)};
            ASSERT_TRUE(isXmlText(storedText(text))) << first << ' ' << second;
            ASSERT_EQ(originalText(storedText(text)), text) << first << ' ' << second;
        }
    }
}

TEST(PropertyListText, AnEscapeThatWasNotOursStandsForItself) {
    for (const auto& text : {"␛"s, "␛4"s, "␛41"s, "␛0d"s, "␛zz"s, "a␛01␛"s}) {
        EXPECT_EQ(originalText(text), text);
    }
}

} // namespace
} // namespace blankwell
