#include "platform/linux/UnavailableHotKeyService.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

TEST(UnavailableHotKeyService, EveryRegistrationFailsAndSaysWhy) {
    UnavailableHotKeyService service;
    ASSERT_TRUE(service.installHandler([](const auto&) { return noErr; }));
    EXPECT_EQ(service.registerHotKey(45, 0x1800, {1, 1}), std::unexpected(hotKeysUnavailableErr));
    EXPECT_NE(hotKeysUnavailableErr, noErr);
}

TEST(UnavailableHotKeyService, ThereIsNothingToGiveBack) {
    UnavailableHotKeyService service;
    EXPECT_EQ(service.unregisterHotKey({}), eventHotKeyInvalidErr);
}

} // namespace
} // namespace blankwell
