#include "base/Published.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>

namespace blankwell {
namespace {

using testing::ElementsAre;

struct PublishedTest : testing::Test {
    /// An observer that notes what it hears under `name`, with the value held at that moment.
    auto noting(std::string name) {
        return [this, name](int announced) {
            heard.push_back(name + std::to_string(announced) + " while " +
                            std::to_string(number.get()));
        };
    }

    ObjectWillChange owner;
    Published<int> number{owner, 0};
    std::vector<std::string> heard;
};

TEST_F(PublishedTest, AnAssignmentIsAnnouncedBeforeItIsHeld) {
    const auto subscription = number.observeChanges(noting("a"));
    number.set(1);
    EXPECT_THAT(heard, ElementsAre("a1 while 0"));
    EXPECT_EQ(number.get(), 1);
}

TEST_F(PublishedTest, ASubscriptionDeliversTheCurrentValueAtOnce) {
    number.set(7);
    const auto subscription = number.observe(noting("a"));
    EXPECT_THAT(heard, ElementsAre("a7 while 7"));
}

TEST_F(PublishedTest, ObservingChangesSkipsTheCurrentValue) {
    const auto subscription = number.observeChanges(noting("a"));
    EXPECT_THAT(heard, ElementsAre());
}

TEST_F(PublishedTest, AnEqualValueIsAnnouncedToo) {
    const auto subscription = number.observeChanges(noting("a"));
    number.set(0);
    EXPECT_THAT(heard, ElementsAre("a0 while 0"));
}

TEST_F(PublishedTest, AnEndedSubscriptionHearsNothing) {
    auto subscription = number.observeChanges(noting("a"));
    EXPECT_EQ(number.observerCount(), 1U);
    subscription.end();
    number.set(1);
    EXPECT_THAT(heard, ElementsAre());
    EXPECT_EQ(number.observerCount(), 0U);
}

TEST_F(PublishedTest, TheObjectAnnouncesFirstThatItWillChange) {
    const auto property = number.observeChanges(noting("a"));
    const auto object = owner.observeChanges(
        [this] { heard.push_back("object while " + std::to_string(number.get())); });
    number.set(1);
    EXPECT_THAT(heard, ElementsAre("object while 0", "a1 while 0"));
}

TEST_F(PublishedTest, AfterwardsIsCalledWhenTheValueIsHeld) {
    const auto subscription = number.observeChanges(noting("a"));
    number.set(1, [note = noting("then ")](int value) { note(value); });
    EXPECT_THAT(heard, ElementsAre("a1 while 0", "then 1 while 1"));
}

TEST_F(PublishedTest, AnObserverMayEndItselfDuringTheAnnouncement) {
    std::optional<Subscription> first;
    first = number.observeChanges([&, note = noting("first ")](int value) {
        first.reset();
        note(value);
    });
    const auto second = number.observeChanges(noting("second "));
    number.set(1);
    number.set(2);
    EXPECT_THAT(heard, ElementsAre("first 1 while 0", "second 1 while 0", "second 2 while 1"));
    EXPECT_EQ(number.observerCount(), 1U);
}

TEST_F(PublishedTest, AnObserverThatAnotherOneEndsIsNotToldAnyMore) {
    Subscription second;
    const auto first = number.observeChanges([&](int) { second.end(); });
    second = number.observeChanges(noting("second "));
    const auto third = number.observeChanges(noting("third "));
    number.set(1);
    EXPECT_THAT(heard, ElementsAre("third 1 while 0"));
}

TEST_F(PublishedTest, OneWhoSubscribesDuringTheAnnouncementHearsIt) {
    Subscription second;
    const auto first =
        number.observeChanges([&](int) { second = number.observe(noting("second ")); });
    number.set(1);
    EXPECT_THAT(heard, ElementsAre("second 0 while 0", "second 1 while 0"));
}

TEST_F(PublishedTest, AnAssignmentDuringTheAnnouncementFollowsInTheSameOrderForAll) {
    const auto first = number.observeChanges([&, note = noting("first ")](int value) {
        note(value);
        if (value > 10) {
            number.set(10, [&, wasSet = noting("then ")](int held) { wasSet(held); });
        }
    });
    const auto second = number.observeChanges(noting("second "));
    number.set(11);
    EXPECT_THAT(heard, ElementsAre("first 11 while 0", "second 11 while 0", "first 10 while 11",
                                   "second 10 while 11", "then 10 while 10"));
    EXPECT_EQ(number.get(), 10);
}

TEST_F(PublishedTest, ASubscriptionMayOutliveWhatItObserves) {
    Subscription subscription;
    {
        Published<int> brief(owner, 0);
        subscription = brief.observeChanges(noting("a"));
    }
    subscription.end();
    EXPECT_THAT(heard, ElementsAre());
}

TEST(ObserversTest, ANotificationInsideOfAnotherReachesAll) {
    Observers<> observers;
    int rounds = 0;
    int calls = 0;
    Subscription counter = observers.add([&] { ++calls; });
    const auto again = observers.add([&] {
        if (++rounds == 1) {
            counter.end();
            observers.notify();
        }
    });
    const auto last = observers.add([&] { ++calls; });
    observers.notify();
    EXPECT_EQ(calls, 3);
    EXPECT_EQ(observers.count(), 2U);
}

} // namespace
} // namespace blankwell
