#include "base/UrlComponents.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using Items = std::vector<UrlComponents::QueryItem>;

Items itemsOf(std::string_view query) {
    const auto components = parseUrl("x://h?" + std::string(query));
    return components ? components->queryItems : Items{{"not a URL", std::nullopt}};
}

TEST(UrlComponentsTest, SplitsSchemeHostAndQuery) {
    const auto components = parseUrl("blankwellplus://create?type=md&directory=/Users/u");
    ASSERT_TRUE(components);
    EXPECT_EQ(components->scheme, "blankwellplus");
    EXPECT_EQ(components->host, "create");
    EXPECT_EQ(components->queryItems, (Items{{"type", "md"}, {"directory", "/Users/u"}}));
}

TEST(UrlComponentsTest, KeepsTheLettersOfSchemeAndHost) {
    const auto components = parseUrl("BlankwellPlus://Create");
    EXPECT_EQ(components->scheme, "BlankwellPlus");
    EXPECT_EQ(components->host, "Create");
}

TEST(UrlComponentsTest, TheHostStandsWithoutUserPortAndPath) {
    EXPECT_EQ(parseUrl("x://u:p@create:80/path?q")->host, "create");
    EXPECT_EQ(parseUrl("x://create/path?q")->host, "create");
    EXPECT_EQ(parseUrl("x://u@h@create")->host, "create");
    EXPECT_EQ(parseUrl("x://[::1]:80")->host, "[::1]");
    EXPECT_EQ(parseUrl("x:create?q")->host, "");
    EXPECT_EQ(parseUrl("x:/create?q")->host, "");
}

TEST(UrlComponentsTest, TextWithoutASchemeIsNoUrl) {
    for (const auto* text : {"", "://create", "create", "//create", "a b://create", "?a=b"}) {
        EXPECT_FALSE(parseUrl(text)) << text;
    }
}

TEST(UrlComponentsTest, AnItemWithoutAnEqualSignHasNoValue) {
    EXPECT_EQ(itemsOf("a"), (Items{{"a", std::nullopt}}));
    EXPECT_EQ(itemsOf("a="), (Items{{"a", ""}}));
}

TEST(UrlComponentsTest, SplitsBeforeDecoding) {
    EXPECT_EQ(itemsOf("d=%2Fa%26b%3Dc&e=1=2"), (Items{{"d", "/a&b=c"}, {"e", "1=2"}}));
    EXPECT_EQ(itemsOf("%64=%C3%A9"), (Items{{"d", "é"}}));
}

TEST(UrlComponentsTest, APlusStaysAPlus) {
    EXPECT_EQ(itemsOf("d=/a+b"), (Items{{"d", "/a+b"}}));
}

TEST(UrlComponentsTest, KeepsOrderAndDoubles) {
    EXPECT_EQ(itemsOf("t=1&t=2&s=3&t=1"), (Items{{"t", "1"}, {"t", "2"}, {"s", "3"}, {"t", "1"}}));
}

TEST(UrlComponentsTest, TheFragmentIsNotPartOfTheQuery) {
    EXPECT_EQ(itemsOf("a=1#b=2&c=3"), (Items{{"a", "1"}}));
    EXPECT_EQ(parseUrl("x://h#?a=1")->queryItems, Items{});
}

TEST(UrlComponentsTest, BytesThatAreNotUtf8AreNoValue) {
    EXPECT_EQ(itemsOf("d=%FF"), (Items{{"d", std::nullopt}}));
}

TEST(UrlComponentsTest, AQueryThatDoesNotDecodeIsNoUrl) {
    for (const auto* text : {"x://h?a=%", "x://h?a=%4", "x://h?a=%G0", "x://h?%zz=1"}) {
        EXPECT_FALSE(parseUrl(text)) << text;
    }
}

TEST(UrlComponentsTest, AZeroByteIsPartOfTheValue) {
    EXPECT_EQ(itemsOf("d=/a%00b"), (Items{{"d", std::string("/a\0b", 4)}}));
}

} // namespace
} // namespace blankwell
