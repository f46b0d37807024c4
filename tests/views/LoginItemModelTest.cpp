#include "views/LoginItemModel.h"

#include "support/FakeLoginItem.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

const SystemError denied{SystemError::Domain::posix, 13, "Could not write it: denied."};
const std::string description(loginItemTexts.description);

struct LoginItemModelTest : testing::Test {
    FakeLoginItem item;
    LoginItemModel model{item};
    int changes = 0;
    Subscription observation = model.observeChanges([this] { ++changes; });
};

TEST_F(LoginItemModelTest, HasTheseTexts) {
    EXPECT_EQ(
        loginItemTexts,
        (LoginItemTexts{"Open at login", "Start Blankwell+ without a window when you log in."}));
}

TEST_F(LoginItemModelTest, ShowsWhatTheItemIsOnceItIsRead) {
    item.on = true;
    EXPECT_FALSE(model.content().isOn);
    model.reload();
    EXPECT_EQ(model.content(), (LoginItemContent{.isOn = true, .caption = description}));
    EXPECT_EQ(changes, 1);
}

TEST_F(LoginItemModelTest, NothingIsToldWhereNothingHasChanged) {
    model.reload();
    EXPECT_EQ(changes, 0);
}

TEST_F(LoginItemModelTest, SwitchesTheItem) {
    model.setOn(true);
    EXPECT_TRUE(item.on);
    EXPECT_TRUE(model.content().isOn);
    model.setOn(false);
    EXPECT_FALSE(item.on);
    EXPECT_FALSE(model.content().isOn);
    EXPECT_EQ(changes, 2);
}

TEST_F(LoginItemModelTest, FollowsWhatOthersSwitch) {
    item.on = true;
    model.reload();
    item.on = false;
    model.reload();
    EXPECT_FALSE(model.content().isOn);
    EXPECT_EQ(changes, 2);
}

TEST_F(LoginItemModelTest, WhatCannotBeReadCannotBeSwitchedAndSaysWhy) {
    item.failWith = denied;
    model.reload();
    EXPECT_EQ(model.content(),
              (LoginItemContent{.isEnabled = false, .caption = denied.description}));
    item.failWith = std::nullopt;
    model.reload();
    EXPECT_EQ(model.content(), LoginItemContent{.caption = description});
}

/// One that can be read and not be switched.
struct FixedLoginItem : FakeLoginItem {
    std::expected<void, SystemError> turnOn() override { return std::unexpected(denied); }
};

struct FixedLoginItemModelTest : testing::Test {
    FixedLoginItem item;
    LoginItemModel model{item};
    const LoginItemContent refusal{.caption = denied.description, .captionColor = ColorRole::red};
};

TEST_F(FixedLoginItemModelTest, AFailureIsToldEachTimeAndLeavesTheSwitchOff) {
    int changes = 0;
    const auto observation = model.observeChanges([&] { ++changes; });
    model.setOn(true);
    EXPECT_EQ(model.content(), refusal);
    model.setOn(true);
    EXPECT_EQ(model.content(), refusal);
    EXPECT_EQ(changes, 2);
}

TEST_F(FixedLoginItemModelTest, AFailureStaysToBeReadUntilSomethingChanges) {
    model.setOn(true);
    model.reload();
    EXPECT_EQ(model.content(), refusal);
    item.on = true;
    model.reload();
    EXPECT_EQ(model.content(), (LoginItemContent{.isOn = true, .caption = description}));
}

} // namespace
} // namespace blankwell
