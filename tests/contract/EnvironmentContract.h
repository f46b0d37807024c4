#pragma once

#include "platform/Environment.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `Environment` does. `Subject` has `const Environment& environment()`, in which
/// `BLANKWELL_TEST_SET` is "value" and `BLANKWELL_TEST_EMPTY` is set to nothing.
template <typename Subject>
struct EnvironmentContract : testing::Test {
    [[nodiscard]] std::optional<std::string> variable(const char* name) {
        return subject.environment().variable(name);
    }

    Subject subject;
};

TYPED_TEST_SUITE_P(EnvironmentContract);

TYPED_TEST_P(EnvironmentContract, AVariableHasItsValueEvenIfThatIsEmpty) {
    EXPECT_EQ(this->variable("BLANKWELL_TEST_SET"), "value");
    EXPECT_EQ(this->variable("BLANKWELL_TEST_EMPTY"), "");
}

TYPED_TEST_P(EnvironmentContract, WhatIsNotSetIsAbsent) {
    EXPECT_EQ(this->variable("BLANKWELL_TEST_UNSET"), std::nullopt);
    EXPECT_EQ(this->variable("BLANKWELL_TEST"), std::nullopt);
    EXPECT_EQ(this->variable("blankwell_test_set"), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(EnvironmentContract, AVariableHasItsValueEvenIfThatIsEmpty,
                            WhatIsNotSetIsAbsent);

} // namespace blankwell
