#include "settings/HotKeyFailures.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

constexpr HotKeyStatus taken = 10;
constexpr HotKeyStatus unavailable = 11;

const HotKeyAction quickCreate{HotKeyAction::QuickCreate{}};
const HotKeyAction createMarkdown{HotKeyAction::CreateFile{"md"}};
const HotKeyAction createJson{HotKeyAction::CreateFile{"json"}};

struct HotKeyFailuresTest : testing::Test {
    HotKeyFailuresTest() {
        failures.add(quickCreate, taken);
        failures.add(createMarkdown, taken);
        failures.add(createJson, taken);
    }

    HotKeyFailures failures;
};

TEST_F(HotKeyFailuresTest, AreNotedByWhatDoesNotWork) {
    EXPECT_EQ(failures, (HotKeyFailures{.quickCreate = taken,
                                        .fileTypes = {{"json", taken}, {"md", taken}}}));
}

TEST_F(HotKeyFailuresTest, TheLastReasonCounts) {
    failures.add(quickCreate, unavailable);
    failures.add(createMarkdown, unavailable);
    EXPECT_EQ(failures, (HotKeyFailures{.quickCreate = unavailable,
                                        .fileTypes = {{"json", taken}, {"md", unavailable}}}));
}

TEST_F(HotKeyFailuresTest, WhatWorksAgainIsNoFailureAndTheOthersStay) {
    failures.remove(createMarkdown);
    EXPECT_EQ(failures, (HotKeyFailures{.quickCreate = taken, .fileTypes = {{"json", taken}}}));
    failures.remove(quickCreate);
    EXPECT_EQ(failures, (HotKeyFailures{.quickCreate = {}, .fileTypes = {{"json", taken}}}));
}

} // namespace
} // namespace blankwell
