#pragma once

#include "platform/Registrations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string_view>
#include <vector>

namespace blankwell {

/// What every `Registrations` does. `World` has `registrations()`, the port under test, at first
/// with nothing registered, `file(name)`, which is a registration of a file, and `names()`, the
/// names of the files that are registered, in ascending order.
template <typename World>
struct RegistrationsContract : testing::Test {
    /// Registers the files `names` under `group`.
    void set(std::string_view group, std::initializer_list<std::string_view> names) {
        std::vector<Registration> files;
        for (const auto name : names) {
            files.push_back(world.file(name));
        }
        EXPECT_TRUE(world.registrations().set(group, files));
    }

    World world;
};

TYPED_TEST_SUITE_P(RegistrationsContract);

TYPED_TEST_P(RegistrationsContract, GroupsAreListedInAscendingOrder) {
    EXPECT_THAT(this->world.registrations().groups(), testing::IsEmpty());
    this->set("menu.thunar", {"b"});
    this->set("application", {"c"});
    this->set("menu", {"a"});
    EXPECT_THAT(this->world.registrations().groups(),
                testing::ElementsAre("application", "menu", "menu.thunar"));
    EXPECT_THAT(this->world.names(), testing::ElementsAre("a", "b", "c"));
}

TYPED_TEST_P(RegistrationsContract, WhatIsSetLastIsAllOfItsGroup) {
    this->set("menu", {"a", "b"});
    this->set("menu", {"b", "c"});
    EXPECT_THAT(this->world.registrations().groups(), testing::ElementsAre("menu"));
    EXPECT_THAT(this->world.names(), testing::ElementsAre("b", "c"));
}

TYPED_TEST_P(RegistrationsContract, AGroupOfNothingIsNone) {
    this->set("menu", {"a"});
    this->set("menu", {});
    this->set("never", {});
    EXPECT_THAT(this->world.registrations().groups(), testing::IsEmpty());
    EXPECT_THAT(this->world.names(), testing::IsEmpty());
}

TYPED_TEST_P(RegistrationsContract, ClearingAGroupLeavesTheOthers) {
    this->set("menu", {"a"});
    this->set("menu.thunar", {"b"});
    EXPECT_TRUE(this->world.registrations().clear("menu"));
    EXPECT_TRUE(this->world.registrations().clear("menu"));
    EXPECT_THAT(this->world.registrations().groups(), testing::ElementsAre("menu.thunar"));
    EXPECT_THAT(this->world.names(), testing::ElementsAre("b"));
}

REGISTER_TYPED_TEST_SUITE_P(RegistrationsContract, GroupsAreListedInAscendingOrder,
                            WhatIsSetLastIsAllOfItsGroup, AGroupOfNothingIsNone,
                            ClearingAGroupLeavesTheOthers);

} // namespace blankwell
