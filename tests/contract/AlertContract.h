#pragma once

#include "platform/Alert.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace blankwell {

/// What every `Alert` does. `World` has an `alert()` before a user who presses Return after having
/// read it, `dismissed()`, the same before one who presses Escape, and `read()`, what that user has
/// read, oldest first.
template <typename World>
struct AlertContract : testing::Test {
    World world;
};

TYPED_TEST_SUITE_P(AlertContract);

TYPED_TEST_P(AlertContract, WhenItReturnsTheUserHasReadTheContentOnce) {
    const AlertContent content{
        .style = AlertContent::Style::warning,
        .messageText = "Could not create file",
        .informativeText = "“Ünïcode & <b>marks</b>”\ncould not be written.",
    };
    this->world.alert().runModal(content);
    EXPECT_THAT(this->world.read(), testing::ElementsAre(content));
}

TYPED_TEST_P(AlertContract, EveryStyleIsToldFromTheOthers) {
    using enum AlertContent::Style;
    std::vector<AlertContent> contents;
    for (const auto style : {warning, informational, critical}) {
        contents.push_back({.style = style, .messageText = "Title", .informativeText = "Text"});
        this->world.alert().runModal(contents.back());
    }
    EXPECT_THAT(this->world.read(), testing::ElementsAreArray(contents));
}

TYPED_TEST_P(AlertContract, TheInformativeTextMayBeEmpty) {
    const AlertContent content{.messageText = "Title", .informativeText = ""};
    this->world.alert().runModal(content);
    EXPECT_THAT(this->world.read(), testing::ElementsAre(content));
}

TYPED_TEST_P(AlertContract, ReturnPressesTheFirstOfTheButtonsAndEscapeTheLast) {
    const AlertContent question{.style = AlertContent::Style::critical,
                                .messageText = "Uninstall Blankwell+?",
                                .informativeText = "Text",
                                .buttons = {"Uninstall", "Later", "Cancel"}};
    EXPECT_EQ(this->world.alert().runModal(question), 0U);
    EXPECT_EQ(this->world.dismissed().runModal(question), 2U);
    EXPECT_THAT(this->world.read(), testing::ElementsAre(question, question));
}

TYPED_TEST_P(AlertContract, WithoutTitlesTheOneButtonTakesNote) {
    const AlertContent content{.messageText = "Title", .informativeText = "Text"};
    EXPECT_EQ(this->world.alert().runModal(content), 0U);
    EXPECT_EQ(this->world.dismissed().runModal(content), 0U);
}

REGISTER_TYPED_TEST_SUITE_P(AlertContract, WhenItReturnsTheUserHasReadTheContentOnce,
                            EveryStyleIsToldFromTheOthers, TheInformativeTextMayBeEmpty,
                            ReturnPressesTheFirstOfTheButtonsAndEscapeTheLast,
                            WithoutTitlesTheOneButtonTakesNote);

} // namespace blankwell
