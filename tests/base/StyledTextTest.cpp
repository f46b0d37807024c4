#include "base/StyledText.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(StyledTextTest, WhatStandsBetweenDoubleAsterisksIsBold) {
    EXPECT_EQ(styledText("Works in **Dropbox**, **Downloads**, and **your own folders**."),
              (StyledText{{"Works in ", false},
                          {"Dropbox", true},
                          {", ", false},
                          {"Downloads", true},
                          {", and ", false},
                          {"your own folders", true},
                          {".", false}}));
}

TEST(StyledTextTest, ATextWithoutMarksIsOneRun) {
    EXPECT_EQ(styledText("a → b — c"), (StyledText{{"a → b — c", false}}));
    EXPECT_EQ(styledText("a * b"), (StyledText{{"a * b", false}}));
    EXPECT_EQ(styledText(""), StyledText{});
}

TEST(StyledTextTest, ABoldTextNeedsNoOtherAroundIt) {
    EXPECT_EQ(styledText("**a**"), (StyledText{{"a", true}}));
    EXPECT_EQ(styledText("**a**b"), (StyledText{{"a", true}, {"b", false}}));
    EXPECT_EQ(styledText("**⌃ + ⌥ + N**"), (StyledText{{"⌃ + ⌥ + N", true}}));
}

TEST(StyledTextTest, NeighboursOfOneWeightAreOneRun) {
    EXPECT_EQ(styledText("**a****b**"), (StyledText{{"ab", true}}));
}

TEST(StyledTextTest, AMarkThatIsNotClosedIsText) {
    EXPECT_EQ(styledText("a **b"), (StyledText{{"a **b", false}}));
    EXPECT_EQ(styledText("**"), (StyledText{{"**", false}}));
    EXPECT_EQ(styledText("**a** b **c"), (StyledText{{"a", true}, {" b **c", false}}));
}

TEST(StyledTextTest, MarksAroundNothingAreText) {
    EXPECT_EQ(styledText("****"), (StyledText{{"****", false}}));
    EXPECT_EQ(styledText("a****b **c**"), (StyledText{{"a****b ", false}, {"c", true}}));
}

TEST(StyledTextTest, ASingleAsteriskBesideAMarkBelongsToTheText) {
    EXPECT_EQ(styledText("***a***"), (StyledText{{"*a", true}, {"*", false}}));
    EXPECT_EQ(styledText("*"), (StyledText{{"*", false}}));
    EXPECT_EQ(styledText("***"), (StyledText{{"***", false}}));
}

} // namespace
} // namespace blankwell
