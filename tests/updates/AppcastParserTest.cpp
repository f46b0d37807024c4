#include "updates/Appcast.h"

#include <fmt/core.h>
#include <gmock/gmock.h>

#include <string>

namespace blankwell {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string feedOf(std::string_view items) {
    return fmt::format(R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
  <channel><title>Updates</title>{}</channel>
</rss>)",
                       items);
}

AppcastItem onlyItemOf(std::string_view item) {
    const auto feed = parseAppcast(feedOf(fmt::format("<item>{}</item>", item)));
    if (!feed || feed->size() != 1) {
        ADD_FAILURE() << (feed ? "not one item" : feed.error());
        return {};
    }
    return feed->front();
}

std::string problemOf(std::string_view text) {
    const auto feed = parseAppcast(text);
    return feed ? "(none)" : feed.error();
}

TEST(AppcastParserTest, ReadsWhatAnItemSaysOfAnUpdate) {
    const auto item = onlyItemOf(R"(
        <title>Version 1.2</title>
        <sparkle:version>12</sparkle:version>
        <sparkle:shortVersionString> 1.2 </sparkle:shortVersionString>
        <sparkle:minimumSystemVersion>5.10</sparkle:minimumSystemVersion>
        <sparkle:maximumSystemVersion>7</sparkle:maximumSystemVersion>
        <sparkle:channel>beta</sparkle:channel>
        <sparkle:releaseNotesLink>https://example.org/notes</sparkle:releaseNotesLink>
        <sparkle:criticalUpdate sparkle:version="1.1"/>
        <description sparkle:format="plain-text"><![CDATA[Faster & <better>]]></description>
        <enclosure url="https://example.org/1.2.tar.zst" length="1234" sparkle:os="linux"
                   type="application/octet-stream" sparkle:edSignature="c2ln"/>)");
    EXPECT_EQ(item, (AppcastItem{
                        .version = "12",
                        .shortVersion = "1.2",
                        .url = "https://example.org/1.2.tar.zst",
                        .length = 1234,
                        .signature = "c2ln",
                        .operatingSystem = "linux",
                        .minimumSystemVersion = "5.10",
                        .maximumSystemVersion = "7",
                        .channel = "beta",
                        .isCritical = true,
                        .criticalBefore = "1.1",
                        .description = "Faster & <better>",
                        .descriptionFormat = "plain-text",
                        .releaseNotesLink = "https://example.org/notes",
                    }));
}

TEST(AppcastParserTest, VersionsMayStandInTheEnclosure) {
    const auto item =
        onlyItemOf(R"(<enclosure url="u" sparkle:version="12" sparkle:shortVersionString="1.2"/>)");
    EXPECT_EQ(item.version, "12");
    EXPECT_EQ(item.shortVersion, "1.2");
}

TEST(AppcastParserTest, AnElementIsPreferredToTheEnclosure) {
    constexpr auto enclosure = R"(<enclosure url="u" sparkle:version="12"/>)";
    constexpr auto element = "<sparkle:version>13</sparkle:version>";
    EXPECT_EQ(onlyItemOf(fmt::format("{}{}", enclosure, element)).version, "13");
    EXPECT_EQ(onlyItemOf(fmt::format("{}{}", element, enclosure)).version, "13");
}

TEST(AppcastParserTest, WithoutAShortVersionTheVersionIsShown) {
    EXPECT_EQ(onlyItemOf("<sparkle:version>12</sparkle:version>").shortVersion, "12");
}

TEST(AppcastParserTest, TheOlderCriticalMarkCountsToo) {
    const auto item = onlyItemOf("<sparkle:tags><sparkle:criticalUpdate/></sparkle:tags>");
    EXPECT_TRUE(item.isCritical);
    EXPECT_EQ(item.criticalBefore, "");
    EXPECT_FALSE(onlyItemOf("<sparkle:tags/>").isCritical);
}

TEST(AppcastParserTest, ALengthThatIsNoNumberIsNone) {
    for (const auto* length : {"", "12x", "-1", "99999999999999999999999"}) {
        EXPECT_EQ(onlyItemOf(fmt::format(R"(<enclosure length="{}"/>)", length)).length,
                  std::nullopt)
            << length;
    }
}

TEST(AppcastParserTest, TheFrameworksNamesAreKnownByTheirNamespaceOnly) {
    const auto item = onlyItemOf(R"(<x:version xmlns:x="http://example.org/">9</x:version>
        <y:version xmlns:y="http://www.andymatuschak.org/xml-namespaces/sparkle">12</y:version>)");
    EXPECT_EQ(item.version, "12");
}

TEST(AppcastParserTest, ElementsInOtherPlacesAreNotAnItems) {
    EXPECT_EQ(onlyItemOf("<other><sparkle:version>9</sparkle:version></other>").version, "");
    EXPECT_THAT(parseAppcast(feedOf("<other><item/></other>")).value(), IsEmpty());
}

TEST(AppcastParserTest, ItemsKeepTheirOrder) {
    const auto feed = parseAppcast(feedOf("<item><sparkle:version>2</sparkle:version></item>"
                                          "<item><sparkle:version>1</sparkle:version></item>"));
    ASSERT_THAT(feed.value(), SizeIs(2));
    EXPECT_EQ(feed->front().version, "2");
}

TEST(AppcastParserTest, AFeedMayAnnounceNothing) {
    EXPECT_THAT(parseAppcast(feedOf("")).value(), IsEmpty());
}

TEST(AppcastParserTest, WhatIsNoFeedIsRefused) {
    EXPECT_THAT(problemOf("<html><body/></html>"), HasSubstr("is no feed"));
    EXPECT_THAT(problemOf(""), HasSubstr("cannot be read"));
    EXPECT_THAT(problemOf("<rss><channel>"), HasSubstr("cannot be read"));
    EXPECT_THAT(problemOf("not found"), HasSubstr("cannot be read"));
}

TEST(AppcastParserTest, ADocumentTypeIsRefusedBeforeItDefinesAnything) {
    EXPECT_THAT(
        problemOf("<!DOCTYPE rss [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;\">]>"
                  "<rss><channel><item><description>&b;</description></item></channel></rss>"),
        HasSubstr("declares a document type"));
    EXPECT_THAT(problemOf("<!DOCTYPE rss SYSTEM \"file:///etc/passwd\"><rss/>"),
                HasSubstr("declares a document type"));
}

TEST(AppcastParserTest, DeepNestingIsRefused) {
    std::string open;
    std::string close;
    for (std::size_t i = 0; i < AppcastLimits::depth - 3; ++i) {
        open += "<a>";
        close += "</a>";
    }
    EXPECT_EQ(problemOf(feedOf("<item>" + open + close + "</item>")), "(none)");
    EXPECT_THAT(problemOf(feedOf("<item>" + open + "<a/>" + close + "</item>")),
                HasSubstr("nested too deeply"));
}

TEST(AppcastParserTest, TooManyItemsAreRefused) {
    std::string items;
    for (std::size_t i = 0; i < AppcastLimits::items; ++i) {
        items += "<item/>";
    }
    EXPECT_EQ(problemOf(feedOf(items)), "(none)");
    EXPECT_THAT(problemOf(feedOf(items + "<item/>")), HasSubstr("too many updates"));
}

TEST(AppcastParserTest, AFeedThatIsTooLargeIsRefused) {
    const std::string filling(AppcastLimits::size, ' ');
    EXPECT_THAT(problemOf(feedOf(filling)), HasSubstr("too large"));
}

} // namespace
} // namespace blankwell
