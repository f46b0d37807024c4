#include "updates/VersionOrder.h"

#include <gtest/gtest.h>

#include <string>

namespace blankwell {
namespace {

void expectAscending(std::string_view earlier, std::string_view later) {
    EXPECT_TRUE(compareVersions(earlier, later) < 0) << earlier << " and " << later;
    EXPECT_TRUE(compareVersions(later, earlier) > 0) << later << " and " << earlier;
}

void expectEqual(std::string_view left, std::string_view right) {
    EXPECT_TRUE(compareVersions(left, right) == 0) << left << " and " << right;
    EXPECT_TRUE(compareVersions(right, left) == 0) << right << " and " << left;
}

TEST(VersionOrderTest, NumbersCompareByValue) {
    expectAscending("1.0", "1.1");
    expectAscending("1.9", "1.10");
    expectAscending("0.0.1", "0.1");
    expectAscending("1.2", "1.2.3");
    expectAscending("201210251627", "201211051041");
    expectAscending("99999999999999999999", "100000000000000000000");
}

TEST(VersionOrderTest, FillingZerosDoNotCount) {
    expectEqual("1.0", "1.0");
    expectEqual("1", "1.0.0");
    expectEqual("01.002", "1.2");
    expectEqual("1.0b2", "1.0.0b2");
    expectEqual("", "0");
}

TEST(VersionOrderTest, APreReleaseComesBeforeItsRelease) {
    expectAscending("1.1b1", "1.1");
    expectAscending("1.5.5", "1.5.6a1");
    expectAscending("1.1.0b1", "1.1.0b2");
    expectAscending("1.1.1b2", "1.1.1");
    expectAscending("1.1.0b1", "1.1.1b2");
    expectAscending("1.0b5", "1.0.1b5");
    expectAscending("1.0a9", "1.0b1");
    expectAscending("1.0b9", "1.0b10");
    expectAscending("1.0b", "1.0b1");
}

TEST(VersionOrderTest, SpacesAndDashesOnlySeparate) {
    expectAscending("1.0 beta", "1.0");
    expectAscending("1.0-beta", "1.0");
    expectAscending("1.0 - beta", "1.0");
    expectEqual("1.0 beta 2", "1.0-beta2");
}

TEST(VersionOrderTest, BuildNumbersDecideBetweenEqualVersions) {
    expectAscending("1.0 (1234)", "1.0 (1235)");
    expectAscending("1.0b5 (1234)", "1.0b5 (1235)");
    expectAscending("1.0b1 (1234)", "1.0 (1234)");
    expectAscending("1.0b5 (1234)", "1.0.1b5 (1234)");
}

TEST(VersionOrderTest, NewerMeansStrictlyLater) {
    EXPECT_TRUE(isNewer("2", "1"));
    EXPECT_FALSE(isNewer("1", "1"));
    EXPECT_FALSE(isNewer("1", "2"));
}

} // namespace
} // namespace blankwell
