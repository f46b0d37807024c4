#include "platform/ObserveLater.h"

#include "base/Published.h"
#include "support/FakeMainQueue.h"

#include <gmock/gmock.h>

#include <vector>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ObserveLaterTest : testing::Test {
    FakeMainQueue queue;
    ObjectWillChange owner;
    Published<int> number{owner, 0};
    std::vector<int> heard;
    Subscription subscription = observeLater(number, queue, [this](int value) {
        EXPECT_EQ(number.get(), value);
        heard.push_back(value);
    });
};

TEST_F(ObserveLaterTest, TheObserverIsCalledOncePerChangeWhenTheValueIsHeld) {
    number.set(1);
    EXPECT_THAT(heard, IsEmpty());
    queue.run();
    number.set(2);
    queue.run();
    EXPECT_THAT(heard, ElementsAre(1, 2));
}

TEST_F(ObserveLaterTest, ACallThatWaitsWhenTheSubscriptionEndsIsDropped) {
    number.set(1);
    subscription.end();
    queue.run();
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_EQ(number.observerCount(), 0U);
}

TEST_F(ObserveLaterTest, AnObjectsChangesAreHeardWithoutAValue) {
    int changes = 0;
    const auto object = observeLater(owner, queue, [&] { ++changes; });
    number.set(1);
    queue.run();
    EXPECT_EQ(changes, 1);
}

} // namespace
} // namespace blankwell
