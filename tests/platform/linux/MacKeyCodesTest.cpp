#include "platform/linux/MacKeyCodes.h"

#include <linux/input-event-codes.h>

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(MacKeyCodes, AKeyIsFoundByItsPlace) {
    EXPECT_EQ(evdevCode(0), KEY_A);
    EXPECT_EQ(evdevCode(45), KEY_N);
    EXPECT_EQ(evdevCode(36), KEY_ENTER);
    EXPECT_EQ(evdevCode(51), KEY_BACKSPACE);
    EXPECT_EQ(evdevCode(117), KEY_DELETE);
    EXPECT_EQ(evdevCode(58), KEY_LEFTALT);
    EXPECT_EQ(evdevCode(55), KEY_LEFTMETA);
    EXPECT_EQ(evdevCode(76), KEY_KPENTER);
    EXPECT_EQ(evdevCode(105), KEY_F13);
    EXPECT_EQ(evdevCode(126), KEY_UP);
}

// Where the numbers of neighbours are not in the order of the keys.
TEST(MacKeyCodes, NeighboursAreNotMixedUp) {
    EXPECT_EQ(evdevCode(22), KEY_6);
    EXPECT_EQ(evdevCode(23), KEY_5);
    EXPECT_EQ(evdevCode(4), KEY_H);
    EXPECT_EQ(evdevCode(5), KEY_G);
    EXPECT_EQ(evdevCode(38), KEY_J);
    EXPECT_EQ(evdevCode(40), KEY_K);
    EXPECT_EQ(evdevCode(30), KEY_RIGHTBRACE);
    EXPECT_EQ(evdevCode(33), KEY_LEFTBRACE);
}

TEST(MacKeyCodes, NumbersWithoutAKeyHaveNone) {
    for (const std::uint32_t code : {66U, 68U, 70U, 77U, 108U, 112U, 127U, 128U, 4294967295U}) {
        EXPECT_EQ(evdevCode(code), std::nullopt) << code;
        EXPECT_EQ(x11KeyCode(code), std::nullopt) << code;
    }
    EXPECT_EQ(macKeyCodeOfEvdev(KEY_SCROLLLOCK), std::nullopt);
    EXPECT_EQ(macKeyCodeOfX11(KEY_SCROLLLOCK + 8), std::nullopt);
}

TEST(MacKeyCodes, EveryKeyLeadsBackToItself) {
    int keys = 0;
    for (std::uint32_t code = 0; code < 256; ++code) {
        const auto evdev = evdevCode(code);
        if (!evdev) {
            continue;
        }
        ++keys;
        EXPECT_EQ(macKeyCodeOfEvdev(*evdev), code);
        EXPECT_EQ(x11KeyCode(code), *evdev + 8);
        EXPECT_EQ(macKeyCodeOfX11(*evdev + 8), code);
    }
    EXPECT_EQ(keys, 119);
}

TEST(MacKeyCodes, X11NumbersBelowTheFirstKeyAreNoKeys) {
    for (std::uint32_t code = 0; code < 9; ++code) {
        EXPECT_EQ(macKeyCodeOfX11(code), std::nullopt) << code;
    }
}

} // namespace
} // namespace blankwell
