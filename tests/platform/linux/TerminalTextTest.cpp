#include "platform/linux/TerminalText.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using namespace std::string_view_literals;

TEST(EscapedControlsTest, LeavesTextsAsTheyAre) {
    EXPECT_EQ(escapedControls("a b ~ é ⌃ 😀 \\n \xFF\xC2"), "a b ~ é ⌃ 😀 \\n \xFF\xC2");
    EXPECT_EQ(escapedControls(""), "");
}

TEST(EscapedControlsTest, ShowsEachControlCharacter) {
    EXPECT_EQ(escapedControls("a\nb\tc\rd"), "a\\nb\\tc\\rd");
    EXPECT_EQ(escapedControls("\x1b[2J\0\x7F"sv), "\\x1b[2J\\x00\\x7f");
}

TEST(EscapedControlsTest, ShowsTheControlCharactersThatAreTwoBytesLong) {
    EXPECT_EQ(escapedControls("\u009B2J\u0080\u009F\u00A0"),
              "\\xc2\\x9b2J\\xc2\\x80\\xc2\\x9f\u00A0");
}

TEST(EscapedControlsTest, KeepsWhatItIsToldToKeep) {
    EXPECT_EQ(escapedControls("a\n\tb\r", "\n\t"), "a\n\tb\\r");
}

} // namespace
} // namespace blankwell
