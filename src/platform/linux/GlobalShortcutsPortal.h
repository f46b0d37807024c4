#pragma once

#include "platform/HotKeyService.h"
#include "platform/linux/Deadline.h"
#include "platform/linux/PortalMessages.h"
#include "platform/linux/WatchedBus.h"

#include <chrono>
#include <cstdint>
#include <expected>
#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace blankwell {

/// The shortcuts of this program at the desktop's portal, the interface GlobalShortcuts of
/// `org.freedesktop.portal.Desktop`.
///
/// The portal binds a set of shortcuts once in each of its sessions, so another set takes another
/// session. A portal that is started anew is asked again for what is wanted. Nothing waits: what
/// comes of the questions is heard while an event loop that watches `descriptor()` calls
/// `processEvents()`.
class GlobalShortcutsPortal {
public:
    /// What is heard of the wanted shortcuts. Called from `processEvents()`, and may call `want()`.
    struct Listener {
        /// The shortcut was triggered.
        std::function<void(const std::string& id)> activated;
        /// The desktop holds these shortcuts and no others.
        std::function<void(const GivenShortcuts&)> given;
        /// There is none of the shortcuts. The status is one of HotKeyStatuses.h.
        std::function<void(HotKeyStatus)> failed;
        /// The desktop does not have the portal, whether shortcuts are wanted or not.
        std::function<void()> absent;
    };

    /// How long the portal may take for what no user is asked, with its start.
    static constexpr std::chrono::milliseconds patience = std::chrono::seconds(25);

    /// Begins to ask whether the desktop has the portal; that starts the portal.
    explicit GlobalShortcutsPortal(Listener listener,
                                   std::chrono::milliseconds patienceForPortal = patience);

    GlobalShortcutsPortal(const GlobalShortcutsPortal&) = delete;
    GlobalShortcutsPortal& operator=(const GlobalShortcutsPortal&) = delete;

    enum class Presence : std::uint8_t { unknown, present, absent };

    /// Whether this desktop gives shortcuts, as far as it has answered.
    [[nodiscard]] Presence presence() const { return presence_; }

    /// Asks for `shortcuts` in the place of what was wanted before. Asks nothing where the desktop
    /// holds them already, nor where it refused the same ones: then they fail again.
    void want(std::vector<PortalShortcut> shortcuts);

    /// As `WatchedBus` has it.
    void wakeUp() const { bus_.wakeUp(); }

    [[nodiscard]] int descriptor() const { return bus_.descriptor(); }

    void processEvents();

private:
    /// Nothing is wanted.
    struct Idle {};

    /// Waits to hear whether there is a portal.
    struct Asking {};

    /// Waits for a session.
    struct Creating {
        std::string request;
        std::string session;
        Deadline deadline;
    };

    /// Waits for the portal, and it perhaps for the user.
    struct Binding {
        std::string request;
        std::string session;
    };

    struct Bound {
        std::string session;
    };

    struct Failed {
        HotKeyStatus status = noErr;
    };

    void ask();
    void createSession();
    void bind(const std::string& session);
    void release();
    void fail(HotKeyStatus status);

    [[nodiscard]] std::expected<BusMessage, SystemError> request(const char* member) const;
    void callPortal(const BusMessage& message, WatchedBus::AnswerHandler handler);
    template <typename State>
    void callForRequest(const BusMessage& message);
    void close(const std::string& path, const char* interface);
    [[nodiscard]] std::string nextToken();
    [[nodiscard]] std::string objectOf(const char* kind, const std::string& token) const;
    [[nodiscard]] const std::string* session() const;

    void hearPresence(WatchedBus::Answer answer);
    void hearSignal(BusMessage& signal);
    void hearOwner(BusMessage& signal);
    void hearResponse(BusMessage& signal, const std::string& request);
    void hearSession(BusMessage& response);
    void hearBound(BusMessage& response);
    void hearClosed(const std::string& path);
    void hearShortcuts(BusMessage& signal, const std::string& member);

    Listener listener_;
    std::chrono::milliseconds patience_;
    Presence presence_ = Presence::unknown;
    std::vector<PortalShortcut> wanted_;
    std::variant<Idle, Asking, Creating, Binding, Bound, Failed> state_;
    /// The portal's name for this run; signals of others do not count.
    std::string owner_;
    /// Tells answers to questions that are no longer asked.
    std::uint64_t attempt_ = 0;
    std::uint64_t lastToken_ = 0;
    WatchedBus bus_;
};

} // namespace blankwell
