#include "base/Text.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(Utf8Test, AcceptsEveryLengthOfSequence) {
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8("a\x7F"));
    EXPECT_TRUE(isUtf8("é€😀"));
    EXPECT_TRUE(isUtf8("\xF4\x8F\xBF\xBF"));
    EXPECT_TRUE(isUtf8("\xED\x9F\xBF\xEE\x80\x80")); // both sides of the surrogates
}

TEST(Utf8Test, RefusesWhatTheStandardForbids) {
    EXPECT_FALSE(isUtf8("\xFF"));
    EXPECT_FALSE(isUtf8("\x80"));
    EXPECT_FALSE(isUtf8("\xC3"));
    EXPECT_FALSE(isUtf8("\xC3("));
    EXPECT_FALSE(isUtf8("\xC0\xAF"));         // overlong slash
    EXPECT_FALSE(isUtf8("\xE0\x80\xAF"));     // overlong slash, longer
    EXPECT_FALSE(isUtf8("\xF0\x80\x80\xAF")); // overlong slash, longest
    EXPECT_FALSE(isUtf8("\xED\xA0\x80"));     // the first surrogate
    EXPECT_FALSE(isUtf8("\xED\xBF\xBF"));     // the last surrogate
    EXPECT_FALSE(isUtf8("\xF4\x90\x80\x80")); // past the last code point
    EXPECT_FALSE(isUtf8("\xF5\x80\x80\x80"));
    EXPECT_FALSE(isUtf8("\xF8\x90\x80\x80")); // a byte that leads no sequence
}

TEST(TrimmedTest, TakesWhiteSpaceAndLineFeedsFromBothEndsOnly) {
    EXPECT_EQ(trimmed(" \t\r\n a b \n"), "a b");
    EXPECT_EQ(trimmed("\xC2\xA0json\xE3\x80\x80"), "json");
    EXPECT_EQ(trimmed("\xC2\x85\xE2\x80\xA8json\xE2\x80\xA9"), "json");
    EXPECT_EQ(trimmed(" \n"), "");
    EXPECT_EQ(trimmed(""), "");
}

} // namespace
} // namespace blankwell
