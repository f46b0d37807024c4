#include "updates/UpdateRefusal.h"

#include "support/FakeBundle.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace blankwell {
namespace {

struct UpdateRefusalTest : testing::Test {
    static std::map<std::string, std::string> infoOf(const std::string& version) {
        return {{"CFBundleIdentifier", "app.blankwell.BlankwellPlus"},
                {"CFBundleVersion", version},
                {"SUPublicEDKey", "key"}};
    }

    UpdateRefusalTest() {
        running.info = infoOf("1");
        update.info = infoOf("2");
    }

    /// Why the update is refused where it was announced as `announced`; blank where it is not.
    std::string refusal(std::string_view announced = "2") const {
        const auto failure = refusalOf(update, running, announced);
        EXPECT_TRUE(!failure || failure->reason == UpdateFailure::Reason::wrongBundle);
        return failure ? failure->description : "";
    }

    FakeBundle running;
    FakeBundle update;
};

TEST_F(UpdateRefusalTest, TheAnnouncedVersionOfTheSameMakersIsWelcome) {
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(refusal("2.0"), "");
}

TEST_F(UpdateRefusalTest, AnotherProgramIsRefused) {
    constexpr auto text = "The update is another application. It was thrown away.";
    update.info["CFBundleIdentifier"] = "org.example.Other";
    EXPECT_EQ(refusal(), text);
    update.info.erase("CFBundleIdentifier");
    EXPECT_EQ(refusal(), text);
}

TEST_F(UpdateRefusalTest, AnotherKeyOrNoneIsRefused) {
    constexpr auto text = "The update would trust other makers than those of Blankwell+. "
                          "It was thrown away.";
    update.info["SUPublicEDKey"] = "other";
    EXPECT_EQ(refusal(), text);
    update.info.erase("SUPublicEDKey");
    EXPECT_EQ(refusal(), text);
    running.info.erase("SUPublicEDKey");
    EXPECT_EQ(refusal(), text) << "two that trust nobody do not trust each other";
}

TEST_F(UpdateRefusalTest, WhatIsNoNewerIsRefused) {
    constexpr auto text = "The update is no newer than what you have. It was thrown away.";
    for (const auto* const version : {"1", "1.0", "0.9", "1b3", ""}) {
        update.info["CFBundleVersion"] = version;
        EXPECT_EQ(refusal(version), text) << version;
    }
    update.info.erase("CFBundleVersion");
    EXPECT_EQ(refusal(""), text);
}

TEST_F(UpdateRefusalTest, AVersionThatWasNotAnnouncedIsRefused) {
    constexpr auto text = "The update is not the version that was announced. It was thrown away.";
    EXPECT_EQ(refusal("3"), text);
    EXPECT_EQ(refusal("1.5"), text);
}

TEST(UpdaterElsewhereTest, OnlyABundleOfTheUsersOwnUpdatesItself) {
    EXPECT_EQ(updaterElsewhere(InstallationForm::ownBundle), std::nullopt);
    std::set<std::string> texts;
    for (const auto form : {InstallationForm::foreignBundle, InstallationForm::package,
                            InstallationForm::sandbox, InstallationForm::looseProgram}) {
        texts.insert(updaterElsewhere(form).value_or(""));
    }
    EXPECT_EQ(texts.size(), 4U) << "each says who does";
    EXPECT_FALSE(texts.contains(""));
}

} // namespace
} // namespace blankwell
