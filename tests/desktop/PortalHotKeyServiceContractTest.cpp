#include "contract/HotKeyServiceContract.h"
#include "desktop/Desktop.h"
#include "desktop/PortalBackend.h"
#include "desktop/PrivateBus.h"
#include "desktop/Program.h"
#include "platform/linux/HotKeyStatuses.h"
#include "platform/linux/PortalHotKeyService.h"
#include "platform/linux/PortalTrigger.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <poll.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::Pair;

/// The portal's own program, which the environment leads to a part of the desktop that the test
/// plays.
class PortalProgram {
public:
    explicit PortalProgram(PortalBackend& backend) : backend_(backend) {
        folder_.addFile("scripted.portal",
                        "[portal]\nDBusName=" + std::string(PortalBackend::busName) +
                            "\nInterfaces=org.freedesktop.impl.portal.GlobalShortcuts\n"
                            "UseIn=scripted\n");
        ::setenv("XDG_DESKTOP_PORTAL_DIR", folder_.url().path().c_str(), 1);
        ::setenv("XDG_CURRENT_DESKTOP", "scripted", 1);
        start();
    }

    void start() {
        program_.emplace(Arguments{"/usr/libexec/xdg-desktop-portal"});
        EXPECT_TRUE(eventually([&] {
            backend_.process();
            return isOnBus("org.freedesktop.portal.Desktop");
        }));
    }

    void end() { program_.reset(); }

private:
    PortalBackend& backend_;
    TemporaryFolder folder_;
    std::optional<Program> program_;
};

class PortalHotKeyWorld {
public:
    HotKeyService& service() { return service_; }

    PortalHotKeyService& portalService() { return service_; }

    void press(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
        settle();
        backend_.press(portalTrigger({keyCode, carbonModifiers}).value());
        settle();
    }

    /// Serves both sides until nothing has come for a while.
    void settle() {
        int quiet = 0;
        EXPECT_TRUE(becomes([&] { return ++quiet > 20; }, [&] { quiet = 0; }));
    }

    /// Serves both sides until `condition` holds.
    bool
    becomes(const std::function<bool()>& condition, const std::function<void()>& onEvent = [] {}) {
        return eventually([&] {
            backend_.process();
            pollfd waiting{.fd = service_.descriptor(), .events = POLLIN, .revents = 0};
            if (::poll(&waiting, 1, 1) == 1) {
                service_.processEvents();
                onEvent();
            }
            return condition();
        });
    }

    PortalBackend& backend() { return backend_; }

    PortalProgram& portal() { return portal_; }

private:
    PrivateBus bus_;
    PortalBackend backend_;
    PortalProgram portal_{backend_};
    PortalHotKeyService service_{[](const KeyCombination&) { return "Does something"; }};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Portal, HotKeyServiceContract, PortalHotKeyWorld);

struct PortalProgramTest : testing::Test {
    PortalProgramTest() {
        world.portalService().onGift(
            [this](const auto& id, const auto& key) { given.emplace_back(id.id, key); });
        world.portalService().onLoss(
            [this](const auto& id, HotKeyStatus status) { lost.emplace_back(id.id, status); });
    }

    bool take(std::uint32_t keyCode, std::uint32_t id) {
        return world.service().registerHotKey(keyCode, controlOption, {7, id}).has_value();
    }

    bool isGiven(std::size_t count) {
        return world.becomes([&] { return given.size() >= count; });
    }

    bool isLost(std::size_t count) {
        return world.becomes([&] { return lost.size() >= count; });
    }

    static constexpr std::uint32_t keyN = 45;
    static constexpr std::uint32_t controlOption = carbon::controlKey | carbon::optionKey;

    PortalHotKeyWorld world;
    std::vector<std::pair<std::uint32_t, std::string>> given;
    std::vector<std::pair<std::uint32_t, HotKeyStatus>> lost;
};

TEST_F(PortalProgramTest, TheDesktopHearsTheTriggerAndTheUserWhatItDoes) {
    ASSERT_TRUE(take(keyN, 1));
    ASSERT_TRUE(isGiven(1));
    EXPECT_THAT(given, ElementsAre(Pair(1, "Key CTRL+ALT+n")));
    EXPECT_EQ(world.backend().bound, (BoundShortcuts{{"CTRL+ALT+n",
                                                      {{"description", "Does something"},
                                                       {"preferred_trigger", "CTRL+ALT+n"}}}}));
}

TEST_F(PortalProgramTest, AUserWhoDeclinesIsALoss) {
    world.backend().declines = true;
    ASSERT_TRUE(take(keyN, 1));
    ASSERT_TRUE(isLost(1));
    EXPECT_THAT(lost, ElementsAre(Pair(1, hotKeyDeniedErr)));
}

TEST_F(PortalProgramTest, ASessionThatTheDesktopClosesIsALoss) {
    ASSERT_TRUE(take(keyN, 1));
    ASSERT_TRUE(isGiven(1));
    world.backend().closeSession();
    ASSERT_TRUE(isLost(1));
    EXPECT_THAT(lost, ElementsAre(Pair(1, hotKeyDeniedErr)));
}

TEST_F(PortalProgramTest, AnotherSetClosesTheSessionOfTheOldOne) {
    const auto hotKey = world.service().registerHotKey(keyN, controlOption, {7, 1});
    ASSERT_TRUE(hotKey);
    ASSERT_TRUE(isGiven(1));
    EXPECT_EQ(world.service().unregisterHotKey(*hotKey), noErr);
    EXPECT_TRUE(world.becomes([&] { return world.backend().bound.empty(); }));
}

TEST_F(PortalProgramTest, APortalThatStartsAnewIsAskedAgain) {
    ASSERT_TRUE(take(keyN, 1));
    ASSERT_TRUE(isGiven(1));
    world.portal().end();
    ASSERT_TRUE(isLost(1));
    EXPECT_THAT(lost, ElementsAre(Pair(1, hotKeyPortalGoneErr)));
    world.portal().start();
    EXPECT_TRUE(isGiven(2));
}

} // namespace
} // namespace blankwell
