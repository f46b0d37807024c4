#include "platform/linux/PortalHotKeyService.h"

#include "desktop/PrivateBus.h"
#include "desktop/Program.h"
#include "desktop/ScriptedPortal.h"
#include "platform/linux/HotKeyStatuses.h"
#include "settings/QuickCreateShortcut.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <poll.h>

namespace blankwell {
namespace {

using std::chrono::milliseconds;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::SizeIs;
using testing::UnorderedElementsAre;

using Answer = ScriptedPortal::Answer;
using Lost = std::pair<std::uint32_t, HotKeyStatus>;
using Given = std::pair<std::uint32_t, std::string>;

constexpr std::uint32_t keyN = 45;
constexpr std::uint32_t keyM = 46;
constexpr std::uint32_t keyB = 11;
constexpr std::uint32_t controlOption = carbon::controlKey | carbon::optionKey;

/// A service that an event loop serves, whose presses, gifts and losses are noted.
struct Hearing {
    explicit Hearing(milliseconds patience = GlobalShortcutsPortal::patience)
        : service(
              [](const KeyCombination& combination) {
                  return "Does " + std::to_string(combination.keyCode);
              },
              patience) {
        EXPECT_TRUE(service.installHandler([this](const HotKeyEvent& event) {
            pressed.push_back(event.hotKeyID().value().id);
            return noErr;
        }));
        service.onGift([this](const EventHotKeyID& id, const std::string& key) {
            given.emplace_back(id.id, key);
        });
        service.onLoss([this](const EventHotKeyID& id, HotKeyStatus status) {
            lost.emplace_back(id.id, status);
        });
        service.onAbsence([this] { ++absences; });
    }

    auto take(std::uint32_t keyCode, std::uint32_t id, std::uint32_t modifiers = controlOption) {
        return service.registerHotKey(keyCode, modifiers, {.signature = 1, .id = id});
    }

    void serve() {
        pollfd waiting{.fd = service.descriptor(), .events = POLLIN, .revents = 0};
        if (::poll(&waiting, 1, 1) == 1) {
            service.processEvents();
        }
    }

    int absences = 0;
    PortalHotKeyService service;
    std::vector<std::uint32_t> pressed;
    std::vector<Given> given;
    std::vector<Lost> lost;
};

struct PortalHotKeyServiceTest : testing::Test {
    void start(Answer toVersion = Answer::give,
               milliseconds patience = GlobalShortcutsPortal::patience) {
        portal.emplace(toVersion);
        ours = std::make_unique<Hearing>(patience);
    }

    /// Serves both sides until `condition` holds.
    bool becomes(const std::function<bool()>& condition,
                 milliseconds patience = std::chrono::seconds(10)) {
        return eventually(
            [&] {
                if (portal) {
                    portal->process();
                }
                ours->serve();
                return condition();
            },
            patience);
    }

    bool isGiven(std::size_t count) {
        return becomes([&] { return ours->given.size() >= count; });
    }

    bool isLost(std::size_t count) {
        return becomes([&] { return ours->lost.size() >= count; });
    }

    /// Lets our side alone go on, so that the portal has all of it before it answers.
    void serveOurs() {
        eventually(
            [this] {
                ours->serve();
                return false;
            },
            milliseconds(50));
    }

    /// Lets all that is under way arrive, and waits for what `send` sends, which is not dealt with.
    void leaveUnread(const std::function<void()>& send) {
        settle();
        send();
        pollfd waiting{.fd = ours->service.descriptor(), .events = POLLIN, .revents = 0};
        ASSERT_EQ(::poll(&waiting, 1, 10'000), 1);
    }

    /// Lets all that is under way arrive.
    void settle() {
        becomes([] { return false; }, milliseconds(100));
    }

    /// Starts, asks for one hot key, and waits for what becomes of it.
    void takeOne() {
        ASSERT_TRUE(ours->take(keyN, 1));
        ASSERT_TRUE(becomes([&] { return !ours->given.empty() || !ours->lost.empty(); }));
    }

    PrivateBus bus;
    std::optional<ScriptedPortal> portal;
    std::unique_ptr<Hearing> ours;
};

TEST_F(PortalHotKeyServiceTest, TheDesktopIsAskedForTheTriggerAndToldWhatItDoes) {
    start();
    takeOne();
    EXPECT_EQ(
        portal->bound,
        (BoundShortcuts{
            {"CTRL+ALT+n", {{"description", "Does 45"}, {"preferred_trigger", "CTRL+ALT+n"}}}}));
    EXPECT_THAT(ours->given, ElementsAre(Given(1, "Key CTRL+ALT+n")));
    EXPECT_THAT(ours->lost, IsEmpty());
}

TEST_F(PortalHotKeyServiceTest, WhatIsRegisteredTogetherIsOneSet) {
    start();
    ASSERT_TRUE(ours->take(keyN, 1));
    ASSERT_TRUE(ours->take(keyM, 100));
    EXPECT_TRUE(isGiven(2));
    EXPECT_EQ(portal->sessions, 1);
    EXPECT_EQ(portal->bindings, 1);
    EXPECT_THAT(portal->bound, ElementsAre(Key("CTRL+ALT+m"), Key("CTRL+ALT+n")));
}

TEST_F(PortalHotKeyServiceTest, AnotherSetTakesAnotherSessionAndTheOldOneIsClosed) {
    start();
    takeOne();
    ASSERT_TRUE(ours->take(keyM, 2));
    EXPECT_TRUE(isGiven(3));
    EXPECT_EQ(portal->sessions, 2);
    EXPECT_THAT(portal->closed, ElementsAre(portal->session));
    EXPECT_THAT(portal->bound, SizeIs(2));
    portal->activate("CTRL+ALT+m");
    EXPECT_TRUE(becomes([&] { return !ours->pressed.empty(); }));
    EXPECT_THAT(ours->pressed, ElementsAre(2));
}

TEST_F(PortalHotKeyServiceTest, EverySessionHasTheSameNameAndIsCreatedWithItsShortcuts) {
    start();
    takeOne();
    const auto first = portal->session;
    EXPECT_EQ(portal->created, portal->bound);
    ASSERT_TRUE(ours->take(keyM, 2));
    EXPECT_TRUE(isGiven(3));
    EXPECT_EQ(portal->session, first);
    EXPECT_EQ(portal->created, portal->bound);
}

TEST_F(PortalHotKeyServiceTest, TheSameSetAnewAsksNothing) {
    start();
    ASSERT_TRUE(ours->take(keyM, 5));
    const auto hotKey = ours->take(keyN, 1);
    ASSERT_TRUE(isGiven(2));
    EXPECT_EQ(ours->service.unregisterHotKey(*hotKey), noErr);
    ASSERT_TRUE(ours->take(keyN, 7));
    settle();
    EXPECT_EQ(portal->sessions, 1);
    portal->activate("CTRL+ALT+n");
    EXPECT_TRUE(becomes([&] { return !ours->pressed.empty(); }));
    EXPECT_THAT(ours->pressed, ElementsAre(7));
}

TEST_F(PortalHotKeyServiceTest, WithoutHotKeysThereIsNoSession) {
    start();
    settle();
    EXPECT_EQ(portal->sessions, 0);
    const auto hotKey = ours->take(keyN, 1);
    ASSERT_TRUE(isGiven(1));
    EXPECT_EQ(ours->service.unregisterHotKey(*hotKey), noErr);
    EXPECT_TRUE(becomes([&] { return !portal->closed.empty(); }));
    EXPECT_THAT(portal->closed, ElementsAre(portal->session));
    EXPECT_EQ(portal->sessions, 1);
}

TEST_F(PortalHotKeyServiceTest, ADesktopWithoutThePortalFailsEveryRegistration) {
    start(Answer::error);
    settle();
    EXPECT_EQ(ours->take(keyN, 1), std::unexpected(hotKeysUnavailableErr));
    EXPECT_EQ(ours->take(keyM, 2), std::unexpected(hotKeysUnavailableErr));
    settle();
    EXPECT_THAT(ours->lost, IsEmpty());
    EXPECT_EQ(ours->absences, 1);
}

TEST_F(PortalHotKeyServiceTest, ARegistrationBeforeTheAnswerIsLostWhenThereIsNoPortal) {
    start(Answer::error);
    ASSERT_TRUE(ours->take(keyN, 1));
    EXPECT_TRUE(isLost(1));
    EXPECT_THAT(ours->lost, ElementsAre(Lost(1, hotKeysUnavailableErr)));
    EXPECT_EQ(ours->take(keyM, 2), std::unexpected(hotKeysUnavailableErr));
}

TEST_F(PortalHotKeyServiceTest, ABusWithoutAnyPortalFailsEveryRegistration) {
    ours = std::make_unique<Hearing>();
    ASSERT_TRUE(becomes([&] { return ours->absences == 1; }));
    EXPECT_EQ(ours->take(keyN, 1), std::unexpected(hotKeysUnavailableErr));
    EXPECT_EQ(ours->take(keyM, 1), std::unexpected(hotKeysUnavailableErr));
}

TEST_F(PortalHotKeyServiceTest, AUserWhoDeclinesIsNotAskedForTheSameAgain) {
    start();
    portal->toBind = Answer::cancel;
    const auto hotKey = ours->take(keyN, 1);
    ASSERT_TRUE(isLost(1));
    EXPECT_TRUE(becomes([&] { return portal->closed.size() == 2; }));
    EXPECT_THAT(portal->closed, Contains(portal->session));
    EXPECT_EQ(ours->service.unregisterHotKey(*hotKey), noErr);
    ASSERT_TRUE(ours->take(keyN, 1));
    EXPECT_TRUE(isLost(2));
    EXPECT_THAT(ours->lost, ElementsAre(Lost(1, hotKeyDeniedErr), Lost(1, hotKeyDeniedErr)));
    EXPECT_EQ(portal->sessions, 1);

    portal->toBind = Answer::give;
    ASSERT_TRUE(ours->take(keyM, 2));
    EXPECT_TRUE(isGiven(2));
}

TEST_F(PortalHotKeyServiceTest, AShortcutThatTheUserLeavesOutIsLostAndTheOthersAreNot) {
    start();
    portal->leftOut = {"CTRL+ALT+m"};
    ASSERT_TRUE(ours->take(keyN, 1));
    ASSERT_TRUE(ours->take(keyM, 2));
    ASSERT_TRUE(isGiven(1));
    EXPECT_THAT(ours->given, ElementsAre(Given(1, "Key CTRL+ALT+n")));
    EXPECT_THAT(ours->lost, ElementsAre(Lost(2, hotKeyDeniedErr)));
}

TEST_F(PortalHotKeyServiceTest, AShortcutWithoutAKeyIsLostUntilTheUserGivesItOne) {
    start();
    portal->triggers = {{"CTRL+ALT+n", ""}};
    takeOne();
    EXPECT_THAT(ours->lost, ElementsAre(Lost(1, hotKeyNoKeyErr)));
    portal->changeShortcuts({{"CTRL+ALT+n", "Meta+B"}});
    ASSERT_TRUE(isGiven(1));
    EXPECT_THAT(ours->given, ElementsAre(Given(1, "Meta+B")));
    portal->activate("CTRL+ALT+n");
    EXPECT_TRUE(becomes([&] { return !ours->pressed.empty(); }));
}

struct Failure {
    const char* name;
    Answer toVersion;
    Answer toCreate;
    Answer toBind;
    HotKeyStatus status;
};

void PrintTo(const Failure& failure, std::ostream* stream) {
    *stream << failure.name;
}

struct PortalHotKeyServiceFailureTest : PortalHotKeyServiceTest,
                                        testing::WithParamInterface<Failure> {};

TEST_P(PortalHotKeyServiceFailureTest, IsToldOnceAndIsNoSuccess) {
    start(GetParam().toVersion);
    portal->toCreate = GetParam().toCreate;
    portal->toBind = GetParam().toBind;
    ASSERT_TRUE(ours->take(keyN, 1));
    ASSERT_TRUE(isLost(1));
    settle();
    EXPECT_THAT(ours->lost, ElementsAre(Lost(1, GetParam().status)));
    EXPECT_THAT(ours->given, IsEmpty());

    // What fails for once is asked again when the hot keys are registered again.
    portal->toVersion = portal->toCreate = portal->toBind = Answer::give;
    ASSERT_TRUE(ours->take(keyM, 2));
    EXPECT_TRUE(isGiven(2));
}

INSTANTIATE_TEST_SUITE_P(
    Portal, PortalHotKeyServiceFailureTest,
    testing::Values(
        Failure{"NonsensicalVersion", Answer::malformed, Answer::give, Answer::give,
                hotKeyPortalErr},
        Failure{"FailedSession", Answer::give, Answer::fail, Answer::give, hotKeyPortalErr},
        Failure{"DeclinedSession", Answer::give, Answer::cancel, Answer::give, hotKeyDeniedErr},
        Failure{"SessionThatIsAnError", Answer::give, Answer::error, Answer::give, hotKeyPortalErr},
        Failure{"NonsensicalSession", Answer::give, Answer::malformed, Answer::give,
                hotKeyPortalErr},
        Failure{"ResponseWithoutASession", Answer::give, Answer::empty, Answer::give,
                hotKeyPortalErr},
        Failure{"SessionThatIsNoPath", Answer::give, Answer::garbled, Answer::give,
                hotKeyPortalErr},
        Failure{"TriggerThatIsNoText", Answer::give, Answer::give, Answer::garbled,
                hotKeyPortalErr},
        Failure{"FailedBinding", Answer::give, Answer::give, Answer::fail, hotKeyPortalErr},
        Failure{"BindingThatIsAnError", Answer::give, Answer::give, Answer::error, hotKeyPortalErr},
        Failure{"NonsensicalBinding", Answer::give, Answer::give, Answer::malformed,
                hotKeyPortalErr},
        Failure{"ResponseWithoutShortcuts", Answer::give, Answer::give, Answer::empty,
                hotKeyPortalErr}),
    [](const auto& test) { return test.param.name; });

TEST_F(PortalHotKeyServiceTest, ASessionThatTheDesktopClosesIsALoss) {
    start();
    takeOne();
    portal->closeSession();
    ASSERT_TRUE(isLost(1));
    EXPECT_THAT(ours->lost, ElementsAre(Lost(1, hotKeyDeniedErr)));
    portal->activate("CTRL+ALT+n");
    settle();
    EXPECT_THAT(ours->pressed, IsEmpty());
}

TEST_F(PortalHotKeyServiceTest, APortalThatVanishesIsALossAndIsAskedAgainWhenItIsBack) {
    start();
    takeOne();
    portal.reset();
    ASSERT_TRUE(isLost(1));
    EXPECT_THAT(ours->lost, ElementsAre(Lost(1, hotKeyPortalGoneErr)));

    portal.emplace();
    ASSERT_TRUE(isGiven(2));
    EXPECT_THAT(portal->bound, ElementsAre(Key("CTRL+ALT+n")));
    portal->activate("CTRL+ALT+n");
    EXPECT_TRUE(becomes([&] { return !ours->pressed.empty(); }));
}

TEST_F(PortalHotKeyServiceTest, APortalThatVanishesWithoutAnAnswerIsALoss) {
    start(Answer::hang);
    ASSERT_TRUE(ours->take(keyN, 1));
    settle();
    EXPECT_THAT(ours->lost, IsEmpty());
    portal.reset();
    EXPECT_TRUE(isLost(1));
}

TEST_F(PortalHotKeyServiceTest, APortalThatSaysNothingInTimeIsALoss) {
    constexpr milliseconds patience(300);
    start(Answer::hang, patience);
    ASSERT_TRUE(ours->take(keyN, 1));
    EXPECT_TRUE(isLost(1));
    for (const auto toCreate : {Answer::hang, Answer::silence}) {
        start(Answer::give, patience);
        portal->toCreate = toCreate;
        ASSERT_TRUE(ours->take(keyN, 1));
        ASSERT_TRUE(isLost(1));
        EXPECT_THAT(ours->lost, ElementsAre(Lost(1, hotKeyPortalGoneErr)));
    }
}

TEST_F(PortalHotKeyServiceTest, AUserWhoTakesLongIsWaitedFor) {
    constexpr milliseconds patience(3000);
    start(Answer::give, patience);
    portal->toBind = Answer::silence;
    ASSERT_TRUE(ours->take(keyN, 1));
    ASSERT_TRUE(becomes([&] { return portal->bindings == 1; }));
    becomes([] { return false; }, patience + milliseconds(300));
    EXPECT_THAT(ours->given, IsEmpty());
    EXPECT_THAT(ours->lost, IsEmpty());
    portal->respondToBind();
    EXPECT_TRUE(isGiven(1));
}

TEST_F(PortalHotKeyServiceTest, AnAnswerToWhatIsNoLongerWantedDoesNotCount) {
    start();
    portal->toBind = Answer::silence;
    const auto hotKey = ours->take(keyN, 1);
    ASSERT_TRUE(becomes([&] { return portal->bindings == 1; }));
    EXPECT_EQ(ours->service.unregisterHotKey(*hotKey), noErr);
    settle();
    EXPECT_THAT(portal->closed, Contains(portal->session));
    portal->respondToBind();
    portal->activate("CTRL+ALT+n");
    settle();
    EXPECT_THAT(ours->given, IsEmpty());
    EXPECT_THAT(ours->pressed, IsEmpty());
}

TEST_F(PortalHotKeyServiceTest, WhatIsNoLongerWantedBeforeThereIsASessionIsTakenBack) {
    start();
    portal->toCreate = Answer::silence;
    const auto hotKey = ours->take(keyN, 1);
    ASSERT_TRUE(becomes([&] { return portal->sessions == 1; }));
    EXPECT_EQ(ours->service.unregisterHotKey(*hotKey), noErr);
    EXPECT_TRUE(becomes([&] { return portal->closed.size() == 2; }));
    EXPECT_THAT(portal->closed, UnorderedElementsAre(portal->request, portal->session));
}

TEST_F(PortalHotKeyServiceTest, AnErrorForWhatIsNoLongerAskedDoesNotCount) {
    start();
    takeOne();
    portal->toCreate = Answer::error;
    ASSERT_TRUE(ours->take(keyM, 2));
    serveOurs();
    ASSERT_TRUE(ours->take(keyB, 3));
    serveOurs();
    ASSERT_TRUE(isLost(3));
    settle();
    EXPECT_EQ(portal->sessions, 3);
    EXPECT_THAT(ours->lost, UnorderedElementsAre(Lost(1, hotKeyPortalErr), Lost(2, hotKeyPortalErr),
                                                 Lost(3, hotKeyPortalErr)));
}

TEST_F(PortalHotKeyServiceTest, AResponseToAFormerQuestionDoesNotCount) {
    start();
    portal->toBind = Answer::silence;
    ASSERT_TRUE(ours->take(keyN, 1));
    ASSERT_TRUE(becomes([&] { return portal->bindings == 1; }));
    const auto former = portal->request;
    const auto respondToFormer = [&] {
        const auto latest = std::exchange(portal->request, former);
        portal->respondToBind();
        settle();
        portal->request = latest;
    };

    portal->toCreate = Answer::silence;
    ASSERT_TRUE(ours->take(keyM, 2));
    ASSERT_TRUE(becomes([&] { return portal->sessions == 2; }));
    respondToFormer();
    portal->respondToCreate();
    ASSERT_TRUE(becomes([&] { return portal->bindings == 2; }));
    respondToFormer();
    EXPECT_THAT(ours->given, IsEmpty());
    EXPECT_THAT(ours->lost, IsEmpty());
    portal->respondToBind();
    EXPECT_TRUE(isGiven(2));
}

TEST_F(PortalHotKeyServiceTest, AnAnswerThatCrossesAChangeDoesNotCount) {
    start();
    portal->toBind = Answer::silence;
    ASSERT_TRUE(ours->take(keyN, 1));
    ASSERT_TRUE(becomes([&] { return portal->bindings == 1; }));
    leaveUnread([&] { portal->respondToBind(); });
    ASSERT_TRUE(ours->take(keyM, 2));
    ASSERT_TRUE(becomes([&] { return portal->bindings == 2; }));
    portal->toBind = Answer::cancel;
    leaveUnread([&] { portal->respondToBind(); });
    portal->toBind = Answer::give;
    ASSERT_TRUE(ours->take(keyB, 3));
    ASSERT_TRUE(isGiven(3));
    settle();
    EXPECT_THAT(ours->given, SizeIs(3));
    EXPECT_THAT(ours->lost, IsEmpty());
}

TEST_F(PortalHotKeyServiceTest, WhatBecomesOfAnotherSessionDoesNotCount) {
    start();
    takeOne();
    const auto session = std::exchange(portal->session, portal->session + "2");
    portal->activate("CTRL+ALT+n");
    portal->changeShortcuts({{"CTRL+ALT+n", ""}});
    portal->closeSession();
    settle();
    EXPECT_THAT(ours->pressed, IsEmpty());
    EXPECT_THAT(ours->lost, IsEmpty());
    portal->activate(session, "CTRL+ALT+n");
    EXPECT_TRUE(becomes([&] { return !ours->pressed.empty(); }));
}

TEST_F(PortalHotKeyServiceTest, ThePortalMayNameRequestsAndSessionsAsItLikes) {
    start();
    portal->pathSuffix = "_1";
    portal->sessionType = 'o';
    takeOne();
    EXPECT_THAT(ours->given, ElementsAre(Given(1, "Key CTRL+ALT+n")));
    portal->activate("CTRL+ALT+n");
    EXPECT_TRUE(becomes([&] { return !ours->pressed.empty(); }));
}

TEST_F(PortalHotKeyServiceTest, ADesktopThatGetsThePortalLaterIsAskedAgain) {
    start(Answer::error);
    ASSERT_TRUE(becomes([&] { return ours->absences == 1; }));
    portal.reset();
    portal.emplace();
    ASSERT_TRUE(becomes([&] { return ours->take(keyN, 1).has_value(); }));
    EXPECT_TRUE(isGiven(1));
}

TEST_F(PortalHotKeyServiceTest, AGiftMayBeGivenBackAtOnce) {
    start();
    const auto first = ours->take(keyN, 1);
    const auto second = ours->take(keyM, 2);
    ours->service.onGift([&](const auto&, const auto&) {
        ours->service.unregisterHotKey(*first);
        ours->service.unregisterHotKey(*second);
    });
    EXPECT_TRUE(becomes([&] { return !portal->closed.empty(); }));
    EXPECT_THAT(portal->closed, ElementsAre(portal->session));
}

TEST_F(PortalHotKeyServiceTest, AnotherProgramCannotSendThePortalAway) {
    start();
    takeOne();
    outputOf({"busctl", "--user", "emit", "--destination=" + portal->program,
              "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged", "sss",
              "org.freedesktop.portal.Desktop", ":1.1", ""});
    settle();
    EXPECT_THAT(ours->lost, IsEmpty());
}

TEST_F(PortalHotKeyServiceTest, AnotherProgramCannotPressOurKeys) {
    start();
    takeOne();
    outputOf({"busctl", "--user", "emit", "--destination=" + portal->program,
              "/org/freedesktop/portal/desktop", "org.freedesktop.portal.GlobalShortcuts",
              "Activated", "osta{sv}", portal->session, "CTRL+ALT+n", "1", "0"});
    settle();
    EXPECT_THAT(ours->pressed, IsEmpty());
}

TEST_F(PortalHotKeyServiceTest, ABusThatGoesAwayIsALossAndLeavesTheLoopAtRest) {
    start();
    takeOne();
    portal.reset();
    ASSERT_TRUE(isLost(1));
    bus.end();
    becomes([] { return false; }, milliseconds(200));
    EXPECT_TRUE(ours->take(keyM, 2).has_value());
    ASSERT_TRUE(isLost(3));
    EXPECT_THAT(ours->lost, Contains(Lost(2, hotKeyPortalGoneErr)));
    pollfd waiting{.fd = ours->service.descriptor(), .events = POLLIN, .revents = 0};
    EXPECT_EQ(::poll(&waiting, 1, 0), 0) << "an event loop would never rest";
}

TEST_F(PortalHotKeyServiceTest, AHungBusHoldsNothingUp) {
    bus.hang();
    const auto begin = std::chrono::steady_clock::now();
    ours = std::make_unique<Hearing>();
    EXPECT_TRUE(ours->take(keyN, 1));
    ours->service.processEvents();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, milliseconds(50));
    EXPECT_THAT(ours->given, IsEmpty());
}

TEST(PortalHotKeyServiceWithoutABus, ARegistrationIsLost) {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere", 1);
    Hearing ours;
    ASSERT_TRUE(ours.take(keyN, 1));
    EXPECT_TRUE(eventually([&] {
        ours.serve();
        return !ours.lost.empty();
    }));
    EXPECT_THAT(ours.lost, ElementsAre(Lost(1, hotKeyPortalGoneErr)));
}

} // namespace
} // namespace blankwell
