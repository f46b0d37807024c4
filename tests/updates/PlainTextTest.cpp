#include "updates/PlainText.h"

#include <gtest/gtest.h>

#include <string>

namespace blankwell {
namespace {

TEST(PlainTextTest, TagsAreTakenOutAndBlanksMadeOne) {
    EXPECT_EQ(plainTextOfHtml("Much <b class=\"a\">faster</b>,\n\n  and <a href='x'>smaller</a>."),
              "Much faster, and smaller.");
}

TEST(PlainTextTest, EachParagraphHasALine) {
    EXPECT_EQ(plainTextOfHtml("<h2>New</h2><p>One</p>\n<P>Two<br/>Three</P>"),
              "New\nOne\nTwo\nThree");
}

TEST(PlainTextTest, ListItemsAreMarked) {
    EXPECT_EQ(plainTextOfHtml("<ul> <li>One</li> <li>Two</li> </ul>"), "• One\n• Two");
}

TEST(PlainTextTest, CharacterReferencesAreResolved) {
    EXPECT_EQ(plainTextOfHtml("a &amp; b &lt;c&gt; &#8217;&#x2019; &#x1F600; &#233;"),
              "a & b <c> ’’ 😀 é");
}

TEST(PlainTextTest, WhatIsNoReferenceStays) {
    EXPECT_EQ(plainTextOfHtml("R&D &unknown; &#0; &#xD800; &#99999999999; &"),
              "R&D &unknown; &#0; &#xD800; &#99999999999; &");
}

TEST(PlainTextTest, ScriptsStylesAndCommentsAreNotShown) {
    EXPECT_EQ(plainTextOfHtml("a<script>if (1 < 2) alert('b')</SCRIPT>c<style>p{}</style>"
                              "<!-- <p>d</p> -->e"),
              "ace");
}

TEST(PlainTextTest, DamagedPagesGiveSomeText) {
    EXPECT_EQ(plainTextOfHtml("a<b"), "a");
    EXPECT_EQ(plainTextOfHtml("a<"), "a");
    EXPECT_EQ(plainTextOfHtml("a<script>b"), "a");
    EXPECT_EQ(plainTextOfHtml("a<!--b"), "a");
    EXPECT_EQ(plainTextOfHtml(""), "");
}

} // namespace
} // namespace blankwell
