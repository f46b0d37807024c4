#include "views/OnboardingModel.h"

#include "settings/AppSettings.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"

#include <gmock/gmock.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using enum OnboardingButton;

struct OnboardingModelTest : testing::Test {
    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    OnboardingModel onboarding{settings};
};

TEST_F(OnboardingModelTest, TheButtonsHaveTheseTitles) {
    EXPECT_EQ(title(back), "Back");
    EXPECT_EQ(title(skip), "Skip");
    EXPECT_EQ(title(next), "Next");
    EXPECT_EQ(title(getStarted), "Get Started");
}

TEST_F(OnboardingModelTest, IsShownUntilItWasCompleted) {
    EXPECT_TRUE(onboarding.isShown());
    settings.hasCompletedOnboarding.set(true);
    EXPECT_FALSE(onboarding.isShown());
}

TEST_F(OnboardingModelTest, GoesForwardAndBackThroughFourPages) {
    EXPECT_EQ(OnboardingModel::pageCount, 4U);
    EXPECT_EQ(onboarding.page(), 0U);
    for (const std::size_t page : {1U, 2U, 3U}) {
        onboarding.press(next);
        EXPECT_EQ(onboarding.page(), page);
    }
    for (const std::size_t page : {2U, 1U, 0U}) {
        onboarding.press(back);
        EXPECT_EQ(onboarding.page(), page);
    }
}

TEST_F(OnboardingModelTest, EachPageHasItsButtons) {
    EXPECT_THAT(onboarding.buttons(), ElementsAre(skip, next));
    onboarding.press(next);
    EXPECT_THAT(onboarding.buttons(), ElementsAre(back, skip, next));
    onboarding.press(next);
    EXPECT_THAT(onboarding.buttons(), ElementsAre(back, skip, next));
    onboarding.press(next);
    EXPECT_THAT(onboarding.buttons(), ElementsAre(back, getStarted));
}

TEST_F(OnboardingModelTest, AButtonThatThePageDoesNotHaveDoesNothing) {
    onboarding.press(back);
    onboarding.press(getStarted);
    EXPECT_EQ(onboarding.page(), 0U);
    EXPECT_TRUE(onboarding.isShown());
    for (int i = 0; i < 5; ++i) {
        onboarding.press(next);
    }
    onboarding.press(skip);
    EXPECT_EQ(onboarding.page(), 3U);
    EXPECT_TRUE(onboarding.isShown());
}

TEST_F(OnboardingModelTest, SkippingCompletesItForGood) {
    onboarding.press(next);
    onboarding.press(skip);
    EXPECT_FALSE(onboarding.isShown());
    EXPECT_EQ(defaults.values.at("hasCompletedOnboarding"), PropertyValue(true));
}

TEST_F(OnboardingModelTest, GettingStartedCompletesItAndTheNextTimeBeginsAtTheFirstPage) {
    for (int i = 0; i < 3; ++i) {
        onboarding.press(next);
    }
    onboarding.press(getStarted);
    EXPECT_FALSE(onboarding.isShown());

    settings.hasCompletedOnboarding.set(false);
    EXPECT_TRUE(onboarding.isShown());
    EXPECT_EQ(onboarding.page(), 0U);
}

TEST_F(OnboardingModelTest, ThePagesShowTheShortcutOfTheMoment) {
    EXPECT_EQ(onboarding.pages(), onboardingPages("⌃ + ⌥ + N"));
    settings.quickCreateShortcut.set({.keyCode = 46, .carbonModifiers = 0x100});
    EXPECT_EQ(onboarding.pages(), onboardingPages("⌘ + M"));
}

} // namespace
} // namespace blankwell
