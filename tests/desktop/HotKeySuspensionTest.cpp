#include "desktop/PrivateDisplay.h"
#include "desktop/TestKeyboard.h"
#include "platform/linux/X11HotKeyService.h"
#include "settings/GlobalHotKeyManager.h"
#include "settings/RecordingSuspension.h"
#include "support/FakeLog.h"
#include "support/FakeMainQueue.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace blankwell {
namespace {

constexpr std::uint32_t keyN = 45;

/// The manager on the keys of a real X server, and the window of a recorder.
struct HotKeySuspensionTest : testing::Test {
    HotKeySuspensionTest() { manager.registerShortcuts(defaultQuickCreateShortcut, {}); }

    /// Whether the hot key was pressed since the last time it was asked.
    bool fired() {
        service.processEvents();
        queue.run();
        return std::exchange(actions, 0) > 0;
    }

    void holdShortcut() {
        keyboard.down(TestKeyboard::control);
        keyboard.down(TestKeyboard::option);
        keyboard.down(keyN);
        keyboard.settle();
    }

    /// Longer than a held key takes to repeat.
    void waitForRepetitions() {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        keyboard.settle();
    }

    void releaseShortcut() {
        keyboard.up(keyN);
        keyboard.up(TestKeyboard::option);
        keyboard.up(TestKeyboard::control);
        keyboard.settle();
    }

    PrivateDisplay display{{"-ardelay", "50", "-arinterval", "10"}};
    TypedProgram recorder;
    TestKeyboard keyboard;
    FakeMainQueue queue;
    FakeLog log;
    X11HotKeyService service;
    int actions = 0;
    GlobalHotKeyManager manager{service, queue, log, [this](const auto&) { ++actions; }};
    RecordingSuspension recording{[this] { return manager.suspend(); }};
};

TEST_F(HotKeySuspensionTest, OurOwnCombinationCanBeRecordedAndWorksAfterwards) {
    recording.recordingBegan();
    holdShortcut();
    EXPECT_TRUE(recorder.got(keyN));
    recording.keyPressed(keyN);
    recording.recordingEnded();
    waitForRepetitions();
    EXPECT_FALSE(fired()) << "while the recorded key is held";
    releaseShortcut();
    recording.keyReleased(keyN);
    EXPECT_FALSE(fired());
    recorder.got(keyN);

    holdShortcut();
    releaseShortcut();
    EXPECT_TRUE(fired());
    EXPECT_FALSE(recorder.got(keyN));
}

TEST_F(HotKeySuspensionTest, WhatAnotherProgramTookMeanwhileIsAFailure) {
    RivalProgram rival;
    {
        const auto suspension = manager.suspend();
        ASSERT_TRUE(rival.grab(keyN, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1));
    }
    EXPECT_EQ(manager.failures.get(), HotKeyFailures{.quickCreate = eventHotKeyExistsErr});
}

} // namespace
} // namespace blankwell
