#pragma once

#include "platform/LoginItem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {

/// What every `LoginItem` does. `World` has the `item`, off at first.
template <typename World>
struct LoginItemContract : testing::Test {
    World world;
};

TYPED_TEST_SUITE_P(LoginItemContract);

TYPED_TEST_P(LoginItemContract, TurnsOnAndOff) {
    auto& item = this->world.item;
    EXPECT_EQ(item.isOn(), false);
    EXPECT_TRUE(item.turnOn());
    EXPECT_EQ(item.isOn(), true);
    EXPECT_TRUE(item.turnOff());
    EXPECT_EQ(item.isOn(), false);
}

TYPED_TEST_P(LoginItemContract, TurningTwiceIsTurningOnce) {
    auto& item = this->world.item;
    EXPECT_TRUE(item.turnOff());
    EXPECT_EQ(item.isOn(), false);
    EXPECT_TRUE(item.turnOn());
    EXPECT_TRUE(item.turnOn());
    EXPECT_EQ(item.isOn(), true);
}

REGISTER_TYPED_TEST_SUITE_P(LoginItemContract, TurnsOnAndOff, TurningTwiceIsTurningOnce);

} // namespace blankwell
