#include "platform/linux/PortalTrigger.h"

#include "platform/linux/MacKeyCodes.h"
#include "settings/QuickCreateShortcut.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

namespace blankwell {
namespace {

TEST(PortalTrigger, ModifiersStandInFrontOfTheKeyOfTheAnsiLayout) {
    EXPECT_EQ(portalTrigger({45, carbon::controlKey | carbon::optionKey}), "CTRL+ALT+n");
    EXPECT_EQ(portalTrigger(
                  {49, carbon::cmdKey | carbon::controlKey | carbon::optionKey | carbon::shiftKey}),
              "CTRL+ALT+SHIFT+LOGO+space");
    EXPECT_EQ(portalTrigger({122, carbon::shiftKey}), "SHIFT+F1");
    EXPECT_EQ(portalTrigger({29, carbon::cmdKey}), "LOGO+0");
    EXPECT_EQ(portalTrigger({126, carbon::optionKey}), "ALT+Up");
}

TEST(PortalTrigger, WhatIsNoKeyCombinationHasNone) {
    EXPECT_EQ(portalTrigger({45, 0}), std::nullopt) << "no modifier";
    EXPECT_EQ(portalTrigger({45, carbon::cmdKey | 0x400}), std::nullopt) << "a lock";
    EXPECT_EQ(portalTrigger({0xFFFFFFFF, carbon::cmdKey}), std::nullopt);
    EXPECT_EQ(portalTrigger({127, carbon::cmdKey}), std::nullopt);
    EXPECT_EQ(portalTrigger({56, carbon::cmdKey}), std::nullopt) << "a modifier's own key";
}

TEST(PortalTrigger, EveryKeyThatIsNoModifierHasOneOfItsOwn) {
    const std::set<std::uint32_t> modifierKeys{54, 55, 56, 57, 58, 59, 60, 61, 62, 63};
    std::set<std::string> triggers;
    for (std::uint32_t key = 0; key < 200; ++key) {
        const bool isKey = evdevCode(key) && !modifierKeys.contains(key);
        const auto trigger = portalTrigger({key, carbon::cmdKey});
        EXPECT_EQ(trigger.has_value(), isKey) << key;
        if (trigger) {
            EXPECT_TRUE(triggers.insert(*trigger).second) << *trigger;
        }
    }
}

} // namespace
} // namespace blankwell
