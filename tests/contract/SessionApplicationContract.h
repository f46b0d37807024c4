#pragma once

#include "platform/SessionApplication.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace blankwell {

/// What every `SessionApplication` does. `World` has the `application` to ask, and `run()`,
/// `hang()` and `received()`: lets one run, lets one run that never answers, and what it was asked.
/// At first none runs and none can be started.
template <typename World>
struct SessionApplicationContract : testing::Test {
    World world;
};

TYPED_TEST_SUITE_P(SessionApplicationContract);

TYPED_TEST_P(SessionApplicationContract, OneThatRunsGetsEachRequestOnceInItsOrder) {
    this->world.run();
    EXPECT_TRUE(this->world.application.open({"x:a", "x:b"}));
    EXPECT_TRUE(this->world.application.activate());
    EXPECT_TRUE(this->world.application.activateAction("act"));
    EXPECT_THAT(this->world.received(),
                testing::ElementsAre("open x:a x:b", "activate", "action act"));
}

TYPED_TEST_P(SessionApplicationContract, WhereNoneRunsNothingIsTaken) {
    for (const auto& taken :
         {this->world.application.open({"x:a"}), this->world.application.activate(),
          this->world.application.activateAction("act")}) {
        ASSERT_FALSE(taken);
        EXPECT_EQ(taken.error().request, HandOverFailure::Request::notTaken);
        EXPECT_NE(taken.error().description, "");
    }
}

TYPED_TEST_P(SessionApplicationContract, WhatOneThatHangsDoesIsUnknown) {
    this->world.hang();
    const auto taken = this->world.application.open({"x:a"});
    ASSERT_FALSE(taken);
    EXPECT_EQ(taken.error().request, HandOverFailure::Request::unknown);
    EXPECT_NE(taken.error().description, "");
}

TYPED_TEST_P(SessionApplicationContract, WhereNoneRunsNoneHasToQuit) {
    EXPECT_TRUE(this->world.application.quit());
}

TYPED_TEST_P(SessionApplicationContract, OneThatHangsDoesNotQuit) {
    this->world.hang();
    const auto quit = this->world.application.quit();
    ASSERT_FALSE(quit);
    EXPECT_EQ(quit.error().code, ETIMEDOUT);
    EXPECT_NE(quit.error().description, "");
}

REGISTER_TYPED_TEST_SUITE_P(SessionApplicationContract, OneThatRunsGetsEachRequestOnceInItsOrder,
                            WhereNoneRunsNothingIsTaken, WhatOneThatHangsDoesIsUnknown,
                            WhereNoneRunsNoneHasToQuit, OneThatHangsDoesNotQuit);

} // namespace blankwell
