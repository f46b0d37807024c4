#include "base/Subscription.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

struct SubscriptionTest : testing::Test {
    Subscription make() {
        return Subscription([this] { ++ended; });
    }

    int ended = 0;
};

TEST_F(SubscriptionTest, EndsWithItsScope) {
    {
        const auto subscription = make();
        EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
}

TEST_F(SubscriptionTest, EndsOnceHoweverOftenItIsToldTo) {
    {
        auto subscription = make();
        subscription.end();
        subscription.end();
    }
    EXPECT_EQ(ended, 1);
}

TEST_F(SubscriptionTest, LastsInTheValueItIsMovedInto) {
    auto first = make();
    {
        auto second = std::move(first);
        EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
}

TEST_F(SubscriptionTest, AssigningAnotherEndsTheOneBefore) {
    auto subscription = make();
    subscription = make();
    EXPECT_EQ(ended, 1);
    subscription = Subscription();
    EXPECT_EQ(ended, 2);
}

} // namespace
} // namespace blankwell
