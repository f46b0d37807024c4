#include "updates/UpdateChoice.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace blankwell {
namespace {

const UpdateTarget target{.version = "10", .systemVersion = "6.1.0"};

AppcastItem item(std::string version) {
    return {
        .version = std::move(version),
        .url = "https://example.org/a",
        .length = 1,
        .signature = "c2ln",
    };
}

std::string chosen(const Appcast& feed) {
    const auto found = chooseUpdate(feed, target);
    return found ? found->version : "(none)";
}

bool isOffered(const std::function<void(AppcastItem&)>& change) {
    auto changed = item("11");
    change(changed);
    return chooseUpdate({changed}, target).has_value();
}

TEST(UpdateChoiceTest, TheNewestIsChosen) {
    EXPECT_EQ(chosen({item("11"), item("12b1"), item("13"), item("12")}), "13");
}

TEST(UpdateChoiceTest, OfEqualVersionsTheFirstIsChosen) {
    auto other = item("11");
    other.url = "https://example.org/b";
    EXPECT_EQ(chooseUpdate({item("11"), other}, target)->url, "https://example.org/a");
}

TEST(UpdateChoiceTest, WhatIsNotNewerIsNone) {
    EXPECT_EQ(chosen({}), "(none)");
    EXPECT_EQ(chosen({item("10"), item("9.9"), item("10b1"), item("10.0")}), "(none)");
}

TEST(UpdateChoiceTest, OnlyArchivesForThisSystemAreOfUse) {
    EXPECT_TRUE(isOffered([](auto& item) { item.operatingSystem = "linux"; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.operatingSystem = "macos"; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.operatingSystem = "windows-x64"; }));
}

TEST(UpdateChoiceTest, TheSystemsVersionMustLieBetweenTheBounds) {
    EXPECT_TRUE(isOffered([](auto& item) { item.minimumSystemVersion = "6.1"; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.minimumSystemVersion = "6.1.1"; }));
    EXPECT_TRUE(isOffered([](auto& item) { item.maximumSystemVersion = "6.1"; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.maximumSystemVersion = "6.0.99"; }));
}

TEST(UpdateChoiceTest, AnUnknownSystemVersionExcludesNothing) {
    auto demanding = item("11");
    demanding.minimumSystemVersion = "99";
    EXPECT_TRUE(chooseUpdate({demanding}, {.version = "10", .systemVersion = ""}).has_value());
}

TEST(UpdateChoiceTest, OtherChannelsAreNotForEverybody) {
    EXPECT_FALSE(isOffered([](auto& item) { item.channel = "beta"; }));
}

TEST(UpdateChoiceTest, AnIncompleteItemIsPassedOver) {
    EXPECT_TRUE(isOffered([](auto&) {}));
    EXPECT_TRUE(isOffered([](auto& item) { item.url = "HTTPS://example.org/a"; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.url = "http://example.org/a"; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.url = "https://"; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.url = ""; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.length.reset(); }));
    EXPECT_FALSE(isOffered([](auto& item) { item.length = 0; }));
    EXPECT_FALSE(isOffered([](auto& item) { item.signature = ""; }));
}

TEST(UpdateChoiceTest, AnUpdateIsCriticalToVersionsBeforeTheNamedOne) {
    auto update = item("12");
    EXPECT_FALSE(isCritical(update, "10"));
    update.isCritical = true;
    EXPECT_TRUE(isCritical(update, "10"));
    update.criticalBefore = "10";
    EXPECT_FALSE(isCritical(update, "10"));
    EXPECT_TRUE(isCritical(update, "9"));
}

} // namespace
} // namespace blankwell
