#include "desktop/ApplicationFixture.h"
#include "desktop/Desktop.h"
#include "desktop/TestKeyboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace blankwell {
namespace {

constexpr std::uint32_t keyZ = 6;
constexpr std::uint32_t keyN = 45;
constexpr std::uint32_t keyM = 46;
constexpr std::uint32_t controlOption = carbon::controlKey | carbon::optionKey;
constexpr QuickCreateShortcut controlOptionM{.keyCode = keyM, .carbonModifiers = controlOption};
constexpr QuickCreateShortcut controlOptionZ{.keyCode = keyZ, .carbonModifiers = controlOption};

/// The same in the X server's bits, with each combination of Caps Lock and Num Lock.
constexpr std::uint32_t x11ControlOption = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
constexpr std::uint32_t lockCombinations[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                              XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

struct ApplicationHotKeyTest : ApplicationFixture {
    ApplicationHotKeyTest() {
        EXPECT_TRUE(eventually([this] {
            keyboard.hit(keyM);
            return other.got(keyM);
        })) << "the other program has no keyboard";
    }

    void startWith(const QuickCreateShortcut& markdownShortcut) {
        settings->setShortcut(markdownShortcut, "md");
        startInBackground();
        ASSERT_TRUE(eventually([this] { return logged("Registered ") == 2; }));
    }

    static FileUrl onDesktop(std::string_view name) {
        return desktopHome().appending("Desktop").appending(name);
    }

    /// Whether another program gets the key, in vain or not, with every combination of locks.
    static bool othersCanTake(std::uint32_t keyCode) {
        RivalProgram rival;
        return std::ranges::all_of(lockCombinations, [&](std::uint32_t locks) {
            return rival.grab(keyCode, x11ControlOption | locks);
        });
    }

    TestKeyboard keyboard;
    /// Has the keyboard.
    TypedProgram other;
};

TEST_F(ApplicationHotKeyTest, ADirectShortcutCreatesOnTheDesktopWhateverTheLocks) {
    startWith(controlOptionM);
    keyboard.hit(TestKeyboard::numLock);
    keyboard.hit(TestKeyboard::capsLock);
    keyboard.hit(keyM, controlOption);
    EXPECT_TRUE(fileAppears(onDesktop("Untitled.md")));
    EXPECT_FALSE(other.got(keyM));
    EXPECT_FALSE(std::filesystem::exists(onDesktop("Untitled 2.md").path()));
}

TEST_F(ApplicationHotKeyTest, ADirectShortcutCreatesInTheFrontFolderWhereTheSettingsSaySo) {
    const auto folder = makeFolder("Projects");
    const Program nautilus({"nautilus", folder.path()});
    ASSERT_TRUE(windowAppears("Projects"));
    settings->directShortcutDestination.set(CreationDestinationMode::frontFinderFolder);
    startWith(controlOptionM);
    ASSERT_TRUE(bringToFront("Projects"));
    keyboard.hit(keyM, controlOption);
    EXPECT_TRUE(fileAppears(folder.appending("Untitled.md")));
}

TEST_F(ApplicationHotKeyTest, AfterAChangeOfTheLayoutTheKeyIsTakenByItsPlace) {
    startWith(controlOptionZ);
    outputOf({"setxkbmap", "de"});
    keyboard.settle();
    keyboard.hit(keyZ, controlOption);
    EXPECT_TRUE(fileAppears(onDesktop("Untitled.md")));
}

TEST_F(ApplicationHotKeyTest, ATakenCombinationIsLoggedWithItsStatusAndTheOthersWork) {
    RivalProgram rival;
    ASSERT_TRUE(rival.grab(keyN, x11ControlOption));
    settings->setShortcut(controlOptionM, "md");
    startInBackground();
    ASSERT_TRUE(eventually([this] { return logged("Registered ⌃ + ⌥ + M hot key") == 1; }));
    EXPECT_EQ(logged("[GlobalHotKey] Failed to register ⌃ + ⌥ + N hot key: -9878"), 1);
    keyboard.hit(keyM, controlOption);
    EXPECT_TRUE(fileAppears(onDesktop("Untitled.md")));
}

TEST_F(ApplicationHotKeyTest, AShortcutThatAnotherProcessChangesIsGivenBackAndTheNewOneTaken) {
    startWith(controlOptionM);
    EXPECT_FALSE(othersCanTake(keyM));
    settings->setShortcut(controlOptionZ, "md");
    // Looking takes the key for a moment, so not before it is settled who has it.
    ASSERT_TRUE(eventually([] { return logged("Registered ⌃ + ⌥ + Z hot key") == 1; }));
    EXPECT_TRUE(othersCanTake(keyM));
    EXPECT_FALSE(othersCanTake(keyZ));
    settings->setEnabled(false, "md");
    // At the start, and after each change.
    ASSERT_TRUE(eventually([] { return logged("Registered ⌃ + ⌥ + N hot key") == 3; }));
    EXPECT_TRUE(othersCanTake(keyZ));
    EXPECT_FALSE(othersCanTake(keyN));
}

TEST_F(ApplicationHotKeyTest, AfterItsEndOthersCanTakeTheKeys) {
    startWith(controlOptionM);
    EXPECT_FALSE(othersCanTake(keyN));
    EXPECT_FALSE(othersCanTake(keyM));
    EXPECT_EQ(application->terminate(), 0);
    EXPECT_TRUE(othersCanTake(keyN));
    EXPECT_TRUE(othersCanTake(keyM));
}

} // namespace
} // namespace blankwell
