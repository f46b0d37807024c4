#pragma once

#include "platform/Account.h"

#include <gtest/gtest.h>

namespace blankwell {

/// What every `Account` does. `Subject` has `const Account& account()`.
template <typename Subject>
struct AccountContract : testing::Test {
    Subject subject;
};

TYPED_TEST_SUITE_P(AccountContract);

TYPED_TEST_P(AccountContract, HomesAreAbsolutePaths) {
    const auto record = this->subject.account().record();
    ASSERT_TRUE(record);
    ASSERT_TRUE(record->home);
    EXPECT_TRUE(record->home->path().starts_with('/'));
    EXPECT_TRUE(this->subject.account().processHome().path().starts_with('/'));
}

REGISTER_TYPED_TEST_SUITE_P(AccountContract, HomesAreAbsolutePaths);

} // namespace blankwell
