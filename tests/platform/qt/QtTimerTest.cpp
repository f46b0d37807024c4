#include "platform/qt/QtTimer.h"

#include <gtest/gtest.h>

#include <QTest>

namespace blankwell {
namespace {

using namespace std::chrono_literals;

TEST(QtTimerTest, WorksOnceAfterTheDelay) {
    QtTimer timer;
    int count = 0;
    const auto subscription = timer.after(1s, [&] { ++count; });
    QTest::qWait(300);
    EXPECT_EQ(count, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return count > 0; }, 3000));
    QTest::qWait(1300);
    EXPECT_EQ(count, 1);
}

TEST(QtTimerTest, NothingHappensAfterTheEnd) {
    QtTimer timer;
    int count = 0;
    auto subscription = timer.after(0s, [&] { ++count; });
    subscription.end();
    QTest::qWait(100);
    EXPECT_EQ(count, 0);
}

TEST(QtTimerTest, TheWorkMayEndItsOwnSubscription) {
    QtTimer timer;
    Subscription subscription;
    bool isDone = false;
    subscription = timer.after(0s, [&] {
        subscription.end();
        isDone = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDone; }, 3000));
}

} // namespace
} // namespace blankwell
