#include "updates/UpdateSchedule.h"

#include "support/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using namespace std::chrono_literals;

struct UpdateScheduleTest : testing::Test {
    FakeUserDefaults defaults;
    UpdateSchedule schedule{defaults};
    UpdateSchedule::Clock::time_point now{1'800'000'000s};
};

TEST_F(UpdateScheduleTest, NothingIsCheckedUntilTheUserAgreed) {
    EXPECT_FALSE(schedule.checksAutomatically());
    EXPECT_EQ(schedule.untilNextCheck(now), std::nullopt);
    ASSERT_TRUE(schedule.setChecksAutomatically(true));
    EXPECT_EQ(schedule.untilNextCheck(now), 0s);
    ASSERT_TRUE(schedule.setChecksAutomatically(false));
    EXPECT_EQ(schedule.untilNextCheck(now), std::nullopt);
}

TEST_F(UpdateScheduleTest, AnAgreementOfAnotherFormIsNone) {
    defaults.values["SUEnableAutomaticChecks"] = std::string("yes");
    EXPECT_FALSE(schedule.checksAutomatically());
}

TEST_F(UpdateScheduleTest, ChecksAreADayApart) {
    ASSERT_TRUE(schedule.setChecksAutomatically(true));
    ASSERT_TRUE(schedule.checked(now));
    EXPECT_EQ(schedule.untilNextCheck(now), 24h);
    EXPECT_EQ(schedule.untilNextCheck(now + 23h), 1h);
    EXPECT_EQ(schedule.untilNextCheck(now + 24h), 0s);
    EXPECT_EQ(schedule.untilNextCheck(now + 240h), 0s);
}

TEST_F(UpdateScheduleTest, TheLastCheckOutlivesTheProgram) {
    ASSERT_TRUE(schedule.setChecksAutomatically(true));
    ASSERT_TRUE(schedule.checked(now));
    EXPECT_EQ(UpdateSchedule(defaults).untilNextCheck(now + 1h), 23h);
}

TEST_F(UpdateScheduleTest, ACheckInTheFutureOrOfNoTimeDoesNotCount) {
    ASSERT_TRUE(schedule.setChecksAutomatically(true));
    ASSERT_TRUE(schedule.checked(now + 1h));
    EXPECT_EQ(schedule.untilNextCheck(now), 0s);
    for (const auto* text : {"", "soon", "-1", "9223372036854775807", "12 "}) {
        defaults.values["SULastCheckTime"] = std::string(text);
        EXPECT_EQ(schedule.untilNextCheck(now), 0s) << text;
    }
}

TEST_F(UpdateScheduleTest, ASkippedVersionIsRemembered) {
    EXPECT_EQ(schedule.skippedVersion(), "");
    ASSERT_TRUE(schedule.skip("12"));
    EXPECT_EQ(UpdateSchedule(defaults).skippedVersion(), "12");
}

TEST_F(UpdateScheduleTest, WhatCannotBeStoredIsAnError) {
    defaults.failWith = cocoaError(CocoaCode::fileWriteOutOfSpace, "No space.");
    EXPECT_EQ(schedule.setChecksAutomatically(true).error(), *defaults.failWith);
    EXPECT_EQ(schedule.checked(now).error(), *defaults.failWith);
    EXPECT_EQ(schedule.skip("12").error(), *defaults.failWith);
    EXPECT_FALSE(schedule.checksAutomatically());
}

} // namespace
} // namespace blankwell
