#include "shell/BlankwellSelfUpdateConfiguration.h"

#include "support/FakeBundle.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using Configuration = BlankwellSelfUpdateConfiguration;

constexpr auto feed = "https://example.org/appcast.xml";

Configuration read(std::map<std::string, std::string> info) {
    FakeBundle bundle;
    bundle.info = std::move(info);
    return Configuration::fromInfo(bundle);
}

bool isUsable(std::string feedURL, std::string key) {
    return read({{"SUFeedURL", std::move(feedURL)}, {"SUPublicEDKey", std::move(key)}}).isUsable();
}

TEST(BlankwellSelfUpdateConfigurationTest, IsUsableWithASecureFeedAndAKey) {
    EXPECT_TRUE(isUsable(feed, "MCowBQYDK2VwAyEA"));
}

TEST(BlankwellSelfUpdateConfigurationTest, EntriesAreTrimmed) {
    EXPECT_EQ(read({{"SUFeedURL", " \n" + std::string(feed) + "\t"}, {"SUPublicEDKey", " key\n"}}),
              (Configuration{feed, "key"}));
}

TEST(BlankwellSelfUpdateConfigurationTest, BlankEntriesAreMissing) {
    EXPECT_EQ(read({{"SUFeedURL", " \n"}, {"SUPublicEDKey", ""}}), Configuration());
    EXPECT_EQ(read({}), Configuration());
    EXPECT_FALSE(read({}).isUsable());
    EXPECT_FALSE(read({{"SUFeedURL", feed}}).isUsable());
    EXPECT_FALSE(read({{"SUPublicEDKey", "key"}}).isUsable());
}

TEST(BlankwellSelfUpdateConfigurationTest, AFeedThatIsNoUrlIsMissing) {
    for (const auto* text : {"appcast", "https://exam ple.org/", "https://example.org/<feed>",
                             "://example.org", "https://example.org/\x01"}) {
        EXPECT_EQ(read({{"SUFeedURL", text}}).feedURL, std::nullopt) << text;
    }
}

TEST(BlankwellSelfUpdateConfigurationTest, OnlyHttpsIsUsableInAnyLetters) {
    EXPECT_FALSE(isUsable("http://example.org/appcast.xml", "key"));
    EXPECT_FALSE(isUsable("httpss://example.org/appcast.xml", "key"));
    EXPECT_FALSE(isUsable("file:///https", "key"));
    EXPECT_TRUE(isUsable("HTTPS://example.org/appcast.xml", "key"));
}

TEST(BlankwellSelfUpdateConfigurationTest, AnUnexpandedKeyIsNotUsable) {
    EXPECT_FALSE(isUsable(feed, "$(PUBLIC_KEY)"));
    EXPECT_FALSE(isUsable(feed, " $(KEY) \n"));
    EXPECT_FALSE(isUsable(feed, "$(KEY"));
    EXPECT_FALSE(isUsable(feed, "KEY)"));
    EXPECT_FALSE(isUsable(feed, "  "));
}

TEST(BlankwellSelfUpdateConfigurationTest, AKeyIsTrimmedBeforeItIsJudged) {
    EXPECT_FALSE((Configuration{feed, " $(KEY) "}.isUsable()));
    EXPECT_FALSE((Configuration{feed, " \n"}.isUsable()));
    EXPECT_TRUE((Configuration{feed, " key "}.isUsable()));
}

} // namespace
} // namespace blankwell
