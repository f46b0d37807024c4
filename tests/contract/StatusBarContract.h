#pragma once

#include "platform/StatusBar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace blankwell {

/// What every `StatusBar` does while the desktop shows it. `World` has a `bar()`, and what a user
/// sees and does there: `items()` counts the items, `titles()` are those of the first item's menu,
/// `choose(title)` clicks one of them and returns when that has had its effect.
template <typename World>
struct StatusBarContract : testing::Test {
    std::unique_ptr<StatusItem> makeItem() {
        return world.bar().makeItem({.length = 26, .image = {}, .toolTip = "Item"});
    }

    MenuCommand<std::function<void()>> command(const std::string& title) {
        return {.title = title, .symbol = {}, .action = [this, title] { chosen.push_back(title); }};
    }

    std::vector<std::string> chosen;
    World world;
};

TYPED_TEST_SUITE_P(StatusBarContract);

TYPED_TEST_P(StatusBarContract, AnItemIsInTheBarAsLongAsItIsKept) {
    EXPECT_EQ(this->world.items(), 0);
    auto item = this->makeItem();
    item->setMenu({this->command("One")});
    EXPECT_EQ(this->world.items(), 1);
    item.reset();
    EXPECT_EQ(this->world.items(), 0);
}

TYPED_TEST_P(StatusBarContract, TheMenuThatWasSetLastIsShown) {
    const auto item = this->makeItem();
    item->setMenu({this->command("One"), this->command("Two")});
    EXPECT_THAT(this->world.titles(), testing::ElementsAre("One", "Two"));
    item->setMenu({this->command("Three")});
    EXPECT_THAT(this->world.titles(), testing::ElementsAre("Three"));
}

TYPED_TEST_P(StatusBarContract, ChoosingRunsTheCommandOnce) {
    const auto item = this->makeItem();
    item->setMenu({this->command("One"), this->command("Two")});
    this->world.choose("Two");
    EXPECT_THAT(this->chosen, testing::ElementsAre("Two"));
}

TYPED_TEST_P(StatusBarContract, ACommandMayReplaceTheMenuThatItIsIn) {
    const auto item = this->makeItem();
    auto replacing = this->command("Replace");
    replacing.action = [&] { item->setMenu({this->command("New")}); };
    item->setMenu({replacing});
    this->world.choose("Replace");
    EXPECT_THAT(this->world.titles(), testing::ElementsAre("New"));
    this->world.choose("New");
    EXPECT_THAT(this->chosen, testing::ElementsAre("New"));
}

REGISTER_TYPED_TEST_SUITE_P(StatusBarContract, AnItemIsInTheBarAsLongAsItIsKept,
                            TheMenuThatWasSetLastIsShown, ChoosingRunsTheCommandOnce,
                            ACommandMayReplaceTheMenuThatItIsIn);

} // namespace blankwell
