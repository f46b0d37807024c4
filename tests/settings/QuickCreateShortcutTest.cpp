#include "settings/QuickCreateShortcut.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <set>
#include <unordered_set>

namespace blankwell {
namespace {

constexpr std::uint32_t allModifiers = 0x1B00;

std::string display(std::uint32_t keyCode, std::uint32_t mask) {
    return QuickCreateShortcut{keyCode, mask}.displayString();
}

std::optional<QuickCreateShortcut> decode(std::string_view text) {
    try {
        return nlohmann::json::parse(text).get<QuickCreateShortcut>();
    } catch (const nlohmann::json::exception&) {
        return std::nullopt;
    }
}

TEST(QuickCreateShortcutTest, TheDefaultIsControlOptionN) {
    EXPECT_EQ(defaultQuickCreateShortcut, (QuickCreateShortcut{45, 0x1800}));
    EXPECT_EQ(defaultQuickCreateShortcut.displayString(), "⌃ + ⌥ + N");
}

TEST(QuickCreateShortcutTest, ShowsTheModifiersCommandFirst) {
    EXPECT_EQ(display(49, allModifiers), "⌘ + ⌃ + ⌥ + ⇧ + Space");
    EXPECT_EQ(display(49, 0x300), "⌘ + ⇧ + Space");
    EXPECT_EQ(display(200, 0x100), "⌘ + Key 200");
}

TEST(QuickCreateShortcutTest, OtherBitsOfTheMaskAreNotShown) {
    EXPECT_EQ(display(45, 0xFFFFE4FF), "N");
    EXPECT_EQ(display(45, 0), "N");
}

TEST(QuickCreateShortcutTest, NamesTheKeysOfTheAnsiLayout) {
    const std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    const std::uint32_t codes[] = {0,  11, 8,  2,  14, 3,  5,  4,  34, 38, 40, 37,
                                   46, 45, 31, 35, 12, 15, 1,  17, 32, 9,  13, 7,
                                   16, 6,  29, 18, 19, 20, 21, 23, 22, 26, 28, 25};
    for (std::size_t i = 0; i < letters.size(); ++i) {
        EXPECT_EQ(keyName(codes[i]), letters.substr(i, 1));
    }
    const std::uint32_t functionKeys[] = {122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111};
    for (std::size_t i = 0; i < std::size(functionKeys); ++i) {
        EXPECT_EQ(keyName(functionKeys[i]), fmt::format("F{}", i + 1));
    }
}

TEST(QuickCreateShortcutTest, NamesTheKeysThatWriteNothingByTheirGlyphs) {
    EXPECT_EQ(keyName(49), "Space");
    EXPECT_EQ(keyName(36), "\u21A9");
    EXPECT_EQ(keyName(48), "\u21E5");
    EXPECT_EQ(keyName(53), "\u238B");
    EXPECT_EQ(keyName(51), "\u232B");
    EXPECT_EQ(keyName(117), "\u2326");
    EXPECT_EQ(keyName(123), "\u2190");
    EXPECT_EQ(keyName(124), "\u2192");
    EXPECT_EQ(keyName(126), "\u2191");
    EXPECT_EQ(keyName(125), "\u2193");
}

TEST(QuickCreateShortcutTest, FiftyEightKeysHaveNamesAndTheOthersNumbers) {
    std::set<std::string> names;
    for (std::uint32_t code = 0; code < 1000; ++code) {
        if (auto name = keyName(code); !name.starts_with("Key ")) {
            names.insert(std::move(name));
        }
    }
    EXPECT_EQ(names.size(), 58U);
    EXPECT_EQ(keyName(110), "Key 110");
    EXPECT_EQ(keyName(4294967295), "Key 4294967295");
}

TEST(QuickCreateShortcutTest, IsUsableWithAKeyAndAModifier) {
    EXPECT_TRUE((QuickCreateShortcut{0, 0x200}.isUsable()));
    EXPECT_FALSE((QuickCreateShortcut{45, 0}.isUsable()));
    EXPECT_FALSE((QuickCreateShortcut{4294967295, 0x100}.isUsable()));
    EXPECT_TRUE((QuickCreateShortcut{4294967294, 0x100}.isUsable()));
}

TEST(QuickCreateShortcutTest, EqualityAndHashTakeBothNumbers) {
    const std::unordered_set<QuickCreateShortcut> shortcuts{
        {1, 0x100}, {1, 0x200}, {2, 0x100}, {1, 0x100}};
    EXPECT_EQ(shortcuts.size(), 3U);
    const std::hash<QuickCreateShortcut> hash;
    EXPECT_NE(hash({1, 2}), hash({2, 1}));
}

TEST(QuickCreateShortcutTest, FlagsBecomeTheCarbonMask) {
    EXPECT_EQ(carbonModifiers(0x100000), 0x100U);
    EXPECT_EQ(carbonModifiers(0x40000), 0x1000U);
    EXPECT_EQ(carbonModifiers(0x80000), 0x800U);
    EXPECT_EQ(carbonModifiers(0x20000), 0x200U);
    EXPECT_EQ(carbonModifiers(0x1E0000), allModifiers);
}

TEST(QuickCreateShortcutTest, OtherFlagsDoNotCount) {
    constexpr std::uint64_t capsLock = 0x10000;
    constexpr std::uint64_t numericPad = 0x200000;
    constexpr std::uint64_t function = 0x800000;
    EXPECT_EQ(carbonModifiers(capsLock | function), 0U);
    EXPECT_EQ(shortcutFromKeyPress(45, capsLock | function).error(),
              ShortcutRefusal::needsModifier);
    EXPECT_EQ(carbonModifiers(capsLock | function | numericPad | 0xFFFF | 0x80000), 0x800U);
}

TEST(QuickCreateShortcutTest, AKeyPressWithAModifierIsAShortcut) {
    EXPECT_EQ(shortcutFromKeyPress(45, 0xC0000), (QuickCreateShortcut{45, 0x1800}));
    for (const std::uint32_t key : {49U, 36U, 48U, 51U, 122U}) {
        EXPECT_EQ(shortcutFromKeyPress(key, 0x20000), (QuickCreateShortcut{key, 0x200}));
    }
}

TEST(QuickCreateShortcutTest, EscapeIsNeverAShortcut) {
    EXPECT_EQ(shortcutFromKeyPress(53, 0).error(), ShortcutRefusal::endsRecording);
    EXPECT_EQ(shortcutFromKeyPress(53, 0x100000).error(), ShortcutRefusal::endsRecording);
    EXPECT_EQ(message(ShortcutRefusal::endsRecording), "");
}

TEST(QuickCreateShortcutTest, AKeyAloneIsRefusedWithWords) {
    EXPECT_EQ(shortcutFromKeyPress(45, 0).error(), ShortcutRefusal::needsModifier);
    EXPECT_EQ(message(ShortcutRefusal::needsModifier), "Add ⌘, ⌃, ⌥, or ⇧");
}

TEST(QuickCreateShortcutTest, IsAJsonObjectOfTwoNumbers) {
    EXPECT_EQ(nlohmann::json(QuickCreateShortcut{45, 0x1800}).dump(),
              R"({"carbonModifiers":6144,"keyCode":45})");
    EXPECT_EQ(decode(R"({"keyCode":45,"carbonModifiers":6144})"),
              (QuickCreateShortcut{45, 0x1800}));
    EXPECT_EQ(decode(R"({"keyCode":4294967295,"carbonModifiers":45.0})"),
              (QuickCreateShortcut{4294967295, 45}));
}

TEST(QuickCreateShortcutTest, DecodesWithoutModifiersButIsNotUsable) {
    const auto shortcut = decode(R"({"keyCode":45,"carbonModifiers":0})");
    ASSERT_TRUE(shortcut);
    EXPECT_FALSE(shortcut->isUsable());
}

TEST(QuickCreateShortcutTest, DoesNotDecodeWithoutBothNumbers) {
    for (const auto* text : {
             R"({"keyCode":45})",
             R"({"carbonModifiers":256})",
             R"({"keyCode":"45","carbonModifiers":256})",
             R"({"keyCode":-1,"carbonModifiers":256})",
             R"({"keyCode":4294967296,"carbonModifiers":256})",
             R"({"keyCode":4.5,"carbonModifiers":256})",
             R"({"keyCode":true,"carbonModifiers":256})",
             R"({"keyCode":null,"carbonModifiers":256})",
             R"([45,256])",
             "45",
             "",
         }) {
        EXPECT_EQ(decode(text), std::nullopt) << text;
    }
}

} // namespace
} // namespace blankwell
