#include "platform/linux/X11HotKeyService.h"

#include "desktop/PrivateDisplay.h"
#include "desktop/Program.h"
#include "desktop/TestKeyboard.h"
#include "platform/linux/HotKeyStatuses.h"
#include "platform/linux/MacKeyCodes.h"
#include "settings/QuickCreateShortcut.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace blankwell {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::uint32_t keyZ = 6;
constexpr std::uint32_t keyN = 45;
constexpr std::uint32_t keyM = 46;
constexpr std::uint32_t f1 = 122;
constexpr std::uint32_t controlOption = carbon::controlKey | carbon::optionKey;

/// The same in the X server's bits, on the keyboard map that Xvfb starts with.
constexpr std::uint32_t x11ControlOption = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;

bool isReadable(int descriptor, milliseconds patience = milliseconds(0)) {
    pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
    return ::poll(&waiting, 1, static_cast<int>(patience.count())) == 1;
}

/// A service whose presses and losses are noted.
struct Hearing {
    Hearing() {
        EXPECT_TRUE(service.installHandler([this](const HotKeyEvent& event) {
            pressed.push_back(event.hotKeyID().value().id);
            return noErr;
        }));
        service.onLoss(
            [this](EventHotKeyID id, HotKeyStatus status) { lost.emplace_back(id.id, status); });
    }

    std::expected<HotKeyService::HotKeyReference, HotKeyStatus>
    take(std::uint32_t keyCode, std::uint32_t id, std::uint32_t modifiers = controlOption) {
        return service.registerHotKey(keyCode, modifiers, {.signature = 1, .id = id});
    }

    /// The ids of the hot keys that were pressed since the last time it was asked.
    std::vector<std::uint32_t> heard() {
        service.processEvents();
        return std::exchange(pressed, {});
    }

    X11HotKeyService service;
    std::vector<std::uint32_t> pressed;
    std::vector<std::pair<std::uint32_t, HotKeyStatus>> lost;
};

struct X11HotKeyServiceTest : testing::Test {
    /// Presses a key and tells who gets it: "hot key ID", "the other program", several or nobody.
    std::string whoGets(std::uint32_t keyCode, std::uint32_t modifiers = controlOption) {
        program.got(keyCode);
        ours.heard();
        keyboard.settle();
        keyboard.hit(keyCode, modifiers);
        std::string who;
        for (const auto id : ours.heard()) {
            who += "hot key " + std::to_string(id);
        }
        return who + (program.got(keyCode) ? "the other program" : "");
    }

    PrivateDisplay display{{"-ardelay", "100", "-arinterval", "10"}};
    TypedProgram program;
    TestKeyboard keyboard;
    Hearing ours;
};

TEST_F(X11HotKeyServiceTest, APressIsOursAloneWhileAnotherProgramHasTheFocus) {
    EXPECT_EQ(whoGets(keyN), "the other program");
    ASSERT_TRUE(ours.take(keyN, 1));
    EXPECT_EQ(whoGets(keyN), "hot key 1");
    EXPECT_EQ(whoGets(keyM), "the other program");
}

TEST_F(X11HotKeyServiceTest, AKeyGivenBackGoesToTheProgramWithTheFocus) {
    const auto hotKey = ours.take(keyN, 1);
    ASSERT_TRUE(hotKey);
    ASSERT_TRUE(ours.take(keyM, 2));
    EXPECT_EQ(ours.service.unregisterHotKey(*hotKey), noErr);
    EXPECT_EQ(whoGets(keyN), "the other program");
    EXPECT_EQ(whoGets(keyM), "hot key 2");
}

TEST_F(X11HotKeyServiceTest, APressThatArrivesAfterItsKeyWasGivenBackIsDropped) {
    const auto hotKey = ours.take(keyN, 1);
    ASSERT_TRUE(hotKey);
    keyboard.hit(keyN, controlOption);
    EXPECT_EQ(ours.service.unregisterHotKey(*hotKey), noErr);
    EXPECT_THAT(ours.heard(), IsEmpty());
}

TEST_F(X11HotKeyServiceTest, LocksDoNotMatter) {
    ASSERT_TRUE(ours.take(keyN, 1));
    keyboard.hit(TestKeyboard::numLock);
    EXPECT_EQ(whoGets(keyN), "hot key 1") << "Num Lock";
    keyboard.hit(TestKeyboard::capsLock);
    EXPECT_EQ(whoGets(keyN), "hot key 1") << "both";
    keyboard.hit(TestKeyboard::numLock);
    EXPECT_EQ(whoGets(keyN), "hot key 1") << "Caps Lock";
}

TEST_F(X11HotKeyServiceTest, WithALockTheKeyIsGivenBackToo) {
    const auto hotKey = ours.take(keyN, 1);
    ASSERT_TRUE(hotKey);
    EXPECT_EQ(ours.service.unregisterHotKey(*hotKey), noErr);
    keyboard.hit(TestKeyboard::numLock);
    EXPECT_EQ(whoGets(keyN), "the other program");
}

TEST_F(X11HotKeyServiceTest, AHeldKeyCountsOnce) {
    ASSERT_TRUE(ours.take(keyN, 1));
    ours.service.processEvents();
    keyboard.down(TestKeyboard::control);
    keyboard.down(TestKeyboard::option);
    keyboard.down(keyN);
    // Each readiness is the press or a repetition of it.
    for (int repetition = 0; repetition < 10; ++repetition) {
        ASSERT_TRUE(isReadable(ours.service.descriptor(), milliseconds(5000)));
        ours.service.processEvents();
    }
    keyboard.up(keyN);
    keyboard.settle();
    EXPECT_THAT(ours.heard(), ElementsAre(1));
    keyboard.down(keyN);
    keyboard.up(keyN);
    keyboard.settle();
    EXPECT_THAT(ours.heard(), ElementsAre(1)) << "a second press";
}

TEST_F(X11HotKeyServiceTest, AKeyIsTakenByItsPlaceWhateverTheLayout) {
    ASSERT_TRUE(ours.take(keyZ, 1));
    outputOf({"setxkbmap", "de"});
    EXPECT_THAT(outputOf({"xmodmap", "-pke"}), testing::HasSubstr("keycode  52 = y Y"));
    EXPECT_EQ(whoGets(keyZ), "hot key 1");
    EXPECT_EQ(whoGets(keyN), "the other program");
}

TEST_F(X11HotKeyServiceTest, TheSecondLayoutIsNoObstacle) {
    ASSERT_TRUE(ours.take(keyN, 1));
    outputOf({"setxkbmap", "us,ru"});
    keyboard.switchToLayout(1);
    EXPECT_EQ(whoGets(keyN), "hot key 1");
    EXPECT_EQ(whoGets(keyM), "the other program");
    EXPECT_EQ(keyboard.currentLayout(), 1);
}

TEST_F(X11HotKeyServiceTest, AHeldMouseButtonIsNoObstacle) {
    ASSERT_TRUE(ours.take(keyN, 1));
    keyboard.holdMouseButton();
    EXPECT_EQ(whoGets(keyN), "hot key 1");
    EXPECT_EQ(whoGets(keyM), "the other program");
    EXPECT_NE(program.lastState() & XCB_BUTTON_MASK_1, 0);
}

// The left Alt sets the third modifier in this layout. Of such a change the events of the keyboard
// extension alone tell.
TEST_F(X11HotKeyServiceTest, OptionIsTheModifierThatAltSetsInTheNewLayout) {
    ASSERT_TRUE(ours.take(keyN, 1));
    outputOf({"setxkbmap", "fujitsu_vndr/us"});
    ours.service.processEvents();
    EXPECT_EQ(whoGets(keyM), "the other program");
    EXPECT_EQ(program.lastState(), XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_3);
    EXPECT_EQ(whoGets(keyN), "hot key 1");
}

TEST_F(X11HotKeyServiceTest, ALockThatMovesToAnotherModifierDoesNotMatterEither) {
    ASSERT_TRUE(ours.take(keyN, 1));
    outputOf({"xmodmap", "-e", "remove mod2 = Num_Lock", "-e", "add mod3 = Num_Lock"});
    ours.service.processEvents();
    keyboard.hit(TestKeyboard::numLock);
    EXPECT_EQ(whoGets(keyN), "hot key 1");
    EXPECT_EQ(whoGets(keyM), "the other program");
    EXPECT_NE(program.lastState() & XCB_MOD_MASK_3, 0) << "Num Lock is not on";
}

TEST_F(X11HotKeyServiceTest, CommandIsTheModifierThatSuperSets) {
    outputOf({"xmodmap", "-e", "clear mod4", "-e", "clear mod3", "-e", "add mod3 = Super_L"});
    ASSERT_TRUE(ours.take(keyN, 1, carbon::cmdKey));
    EXPECT_EQ(whoGets(keyN, carbon::cmdKey), "hot key 1");
}

TEST_F(X11HotKeyServiceTest, AModifierThatTheKeyboardLacksCannotBeTaken) {
    outputOf({"xmodmap", "-e", "clear mod4"});
    ours.service.processEvents();
    EXPECT_EQ(ours.take(keyN, 1, carbon::cmdKey), std::unexpected(hotKeyNoModifierErr));
    EXPECT_TRUE(ours.take(keyN, 2));
}

TEST_F(X11HotKeyServiceTest, AHotKeyThatTheNewMapMakesImpossibleIsLostAlone) {
    ASSERT_TRUE(ours.take(keyN, 1, carbon::cmdKey));
    ASSERT_TRUE(ours.take(keyM, 2));
    outputOf({"xmodmap", "-e", "clear mod4"});
    ours.service.processEvents();
    EXPECT_THAT(ours.lost, ElementsAre(std::pair(1U, hotKeyNoModifierErr)));
    EXPECT_EQ(whoGets(keyM), "hot key 2");
}

TEST_F(X11HotKeyServiceTest, ATakenCombinationFailsAndLeavesNothingBehind) {
    RivalProgram rival;
    // Only with Num Lock on: one of the several that a hot key needs.
    ASSERT_TRUE(rival.grab(keyN, x11ControlOption | XCB_MOD_MASK_2));
    ASSERT_TRUE(ours.take(keyM, 2));
    EXPECT_EQ(ours.take(keyN, 1), std::unexpected(eventHotKeyExistsErr));
    keyboard.settle();
    RivalProgram third;
    EXPECT_TRUE(third.grab(keyN, x11ControlOption));
    EXPECT_TRUE(third.grab(keyN, x11ControlOption | XCB_MOD_MASK_LOCK));
    EXPECT_FALSE(third.grab(keyN, x11ControlOption | XCB_MOD_MASK_2)) << "the rival's was released";
    EXPECT_EQ(whoGets(keyM), "hot key 2");
    rival.ungrab(keyN, x11ControlOption | XCB_MOD_MASK_2);
    EXPECT_TRUE(third.grab(keyN, x11ControlOption | XCB_MOD_MASK_2));
}

TEST_F(X11HotKeyServiceTest, ACombinationIsFreeAgainOnceTheOtherProgramIsGone) {
    auto rival = std::make_unique<RivalProgram>();
    ASSERT_TRUE(rival->grab(keyN, x11ControlOption));
    EXPECT_EQ(ours.take(keyN, 1), std::unexpected(eventHotKeyExistsErr));
    rival.reset();
    EXPECT_TRUE(eventually([&] { return ours.take(keyN, 1).has_value(); }));
}

TEST_F(X11HotKeyServiceTest, WhatTheServerDoesItselfCannotBeTaken) {
    constexpr std::array functionKeys{122U, 120U, 99U,  118U, 96U,  97U,
                                      98U,  100U, 101U, 109U, 103U, 111U};
    for (const auto key : functionKeys) {
        EXPECT_EQ(ours.take(key, 1), std::unexpected(hotKeyReservedErr)) << key;
    }
    constexpr std::uint32_t keypadPlus = 69;
    constexpr std::uint32_t keypadMinus = 78;
    EXPECT_EQ(ours.take(keypadPlus, 1), std::unexpected(hotKeyReservedErr));
    EXPECT_EQ(ours.take(keypadMinus, 1), std::unexpected(hotKeyReservedErr));
    EXPECT_EQ(ours.take(TestKeyboard::numLock, 1, carbon::cmdKey),
              std::unexpected(hotKeyReservedErr));
}

TEST_F(X11HotKeyServiceTest, WhatNoKeyboardHasCannotBeTaken) {
    constexpr std::uint32_t functionKey = 63;
    constexpr std::uint32_t numberWithoutAKey = 66;
    EXPECT_EQ(ours.take(functionKey, 1), std::unexpected(eventHotKeyInvalidErr));
    EXPECT_EQ(ours.take(numberWithoutAKey, 1), std::unexpected(eventHotKeyInvalidErr));
    constexpr std::uint32_t alphaLock = 0x400;
    EXPECT_EQ(ours.take(keyN, 1, controlOption | alphaLock),
              std::unexpected(eventHotKeyInvalidErr));
}

// With its own modifier held it can be pressed no more.
TEST_F(X11HotKeyServiceTest, AModifiersKeyCannotBeTaken) {
    for (const auto key : {54U, 55U, 56U, 58U, 59U, 60U, 61U, 62U}) {
        EXPECT_EQ(ours.take(key, 1), std::unexpected(eventHotKeyInvalidErr)) << key;
    }
}

/// The masks of at least one modifier.
std::vector<std::uint32_t> allModifierMasks() {
    constexpr std::array bits{carbon::cmdKey, carbon::shiftKey, carbon::optionKey,
                              carbon::controlKey};
    std::vector<std::uint32_t> masks;
    for (std::uint32_t subset = 1; subset < (1U << bits.size()); ++subset) {
        std::uint32_t mask = 0;
        for (std::size_t bit = 0; bit < bits.size(); ++bit) {
            mask |= (subset >> bit & 1U) != 0 ? bits.at(bit) : 0;
        }
        masks.push_back(mask);
    }
    return masks;
}

TEST_F(X11HotKeyServiceTest, EveryKeyThatCanBeTakenWorks) {
    int working = 0;
    for (std::uint32_t key = 0; key < 128; ++key) {
        for (const auto modifiers : allModifierMasks()) {
            const auto hotKey = ours.take(key, 1, modifiers);
            if (!hotKey) {
                continue;
            }
            EXPECT_EQ(whoGets(key, modifiers), "hot key 1") << key << " with " << modifiers;
            EXPECT_EQ(ours.service.unregisterHotKey(*hotKey), noErr);
            ++working;
        }
    }
    EXPECT_GT(working, 1500);
}

TEST_F(X11HotKeyServiceTest, TwoServicesDoNotTouchEachOther) {
    auto others = std::make_unique<Hearing>();
    ASSERT_TRUE(ours.take(keyN, 1));
    ASSERT_TRUE(others->take(keyM, 2));
    EXPECT_EQ(others->take(keyN, 3), std::unexpected(eventHotKeyExistsErr));
    EXPECT_EQ(whoGets(keyN), "hot key 1");
    EXPECT_THAT(others->heard(), IsEmpty());
    EXPECT_EQ(whoGets(keyM), "");
    EXPECT_THAT(others->heard(), ElementsAre(2));
    others.reset();
    EXPECT_TRUE(eventually([&] { return whoGets(keyM) == "the other program"; }));
    EXPECT_EQ(whoGets(keyN), "hot key 1");
}

TEST_F(X11HotKeyServiceTest, NoGrabOutlivesTheService) {
    {
        Hearing passing;
        ASSERT_TRUE(passing.take(keyN, 1));
        EXPECT_EQ(whoGets(keyN), "");
    }
    EXPECT_TRUE(eventually([&] { return whoGets(keyN) == "the other program"; }));
}

TEST_F(X11HotKeyServiceTest, NoGrabOutlivesAProcessThatIsKilled) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const auto child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        X11HotKeyService service;
        const bool taken = service.registerHotKey(keyN, controlOption, {1, 1}).has_value();
        ::_exit(taken && ::write(ends[1], "x", 1) == 1 && ::pause() == 0 ? 0 : 1);
    }
    ::close(ends[1]);
    char ready = 0;
    EXPECT_EQ(::read(ends[0], &ready, 1), 1);
    ::close(ends[0]);
    EXPECT_EQ(whoGets(keyN), "") << "the child has it";
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(eventually([&] { return whoGets(keyN) == "the other program"; }));
}

TEST_F(X11HotKeyServiceTest, TakingAndGivingBackAgainAndAgainLeavesNothing) {
    for (int cycle = 0; cycle < 200; ++cycle) {
        const auto hotKey = ours.take(keyN, 1);
        ASSERT_TRUE(hotKey);
        ASSERT_EQ(ours.service.unregisterHotKey(*hotKey), noErr);
    }
    keyboard.settle();
    RivalProgram rival;
    for (const std::uint32_t locks : {0x00U, 0x02U, 0x10U, 0x12U}) {
        EXPECT_TRUE(rival.grab(keyN, x11ControlOption | locks));
    }
}

TEST_F(X11HotKeyServiceTest, TheDescriptorTellsOfAPressThatCameInWithAnAnswer) {
    ASSERT_TRUE(ours.take(keyN, 1));
    ours.service.processEvents();
    EXPECT_FALSE(isReadable(ours.service.descriptor()));
    keyboard.hit(keyN, controlOption);
    ASSERT_TRUE(ours.take(keyM, 2));
    EXPECT_TRUE(isReadable(ours.service.descriptor()));
    EXPECT_THAT(ours.heard(), ElementsAre(1));
    EXPECT_FALSE(isReadable(ours.service.descriptor()));
}

TEST_F(X11HotKeyServiceTest, AHandlerMayChangeWhatIsRegistered) {
    const auto first = ours.take(keyN, 1);
    ASSERT_TRUE(first);
    ASSERT_TRUE(ours.service.installHandler([&](const HotKeyEvent&) {
        EXPECT_EQ(ours.service.unregisterHotKey(*first), noErr);
        EXPECT_TRUE(ours.take(keyM, 2));
        return noErr;
    }));
    EXPECT_EQ(whoGets(keyN), "hot key 1");
    EXPECT_EQ(whoGets(keyN), "the other program");
}

TEST_F(X11HotKeyServiceTest, AServerThatGoesAwayTakesTheHotKeysAndNothingElse) {
    const auto hotKey = ours.take(keyN, 1);
    ASSERT_TRUE(hotKey);
    ASSERT_TRUE(ours.take(keyM, 2));
    ours.service.processEvents();
    display.crash();
    EXPECT_TRUE(isReadable(ours.service.descriptor(), milliseconds(5000)));
    ours.service.processEvents();
    EXPECT_THAT(ours.lost, UnorderedElementsAre(std::pair(1U, hotKeyDisplayErr),
                                                std::pair(2U, hotKeyDisplayErr)));
    ours.service.processEvents();
    EXPECT_FALSE(isReadable(ours.service.descriptor())) << "an event loop would never rest";
    EXPECT_EQ(ours.service.unregisterHotKey(*hotKey), eventHotKeyInvalidErr);
    EXPECT_EQ(ours.take(keyN, 3), std::unexpected(hotKeyDisplayErr));
}

TEST_F(X11HotKeyServiceTest, AServerThatIsGoneBeforeItIsNoticedDoesNoHarm) {
    const auto hotKey = ours.take(keyN, 1);
    ASSERT_TRUE(hotKey);
    ASSERT_TRUE(ours.take(f1, 4, carbon::cmdKey));
    display.crash();
    EXPECT_EQ(ours.take(keyM, 2), std::unexpected(hotKeyDisplayErr));
    EXPECT_EQ(ours.service.unregisterHotKey(*hotKey), noErr);
    ours.service.processEvents();
    EXPECT_THAT(ours.lost, ElementsAre(std::pair(4U, hotKeyDisplayErr)));
}

TEST(X11HotKeyServiceWithoutAServer, EveryRegistrationFails) {
    X11HotKeyService service("/nowhere:1");
    EXPECT_EQ(service.registerHotKey(keyN, controlOption, {1, 1}),
              std::unexpected(hotKeyDisplayErr));
    service.processEvents();
    EXPECT_FALSE(isReadable(service.descriptor()));
}

TEST(X11HotKeyServiceOnTwoScreens, AKeyIsOursOnBoth) {
    const PrivateDisplay display({"-screen", "0", "640x480x24", "-screen", "1", "640x480x24"});
    TestKeyboard keyboard;
    Hearing ours;
    ASSERT_TRUE(ours.take(keyN, 1));
    for (const int screen : {0, 1}) {
        TypedProgram program(screen);
        keyboard.hit(keyN, controlOption);
        EXPECT_THAT(ours.heard(), ElementsAre(1)) << screen;
        EXPECT_FALSE(program.got(keyN)) << screen;
        keyboard.hit(keyM, controlOption);
        EXPECT_TRUE(program.got(keyM)) << screen;
    }
}

} // namespace
} // namespace blankwell
