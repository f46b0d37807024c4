#include "platform/linux/GlobalShortcutsPortal.h"

#include "platform/linux/HotKeyStatuses.h"

#include <fmt/core.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <utility>

namespace blankwell {
namespace {

constexpr auto portalName = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto shortcutsInterface = "org.freedesktop.portal.GlobalShortcuts";
constexpr auto requestInterface = "org.freedesktop.portal.Request";
constexpr auto sessionInterface = "org.freedesktop.portal.Session";

/// The same in every session: KDE remembers the user's choice of keys by it.
constexpr auto sessionToken = "BlankwellPlus";

/// In the place of the window that the portal's dialogs belong to.
constexpr auto noWindow = "";

std::string text(const char* value) {
    return value == nullptr ? "" : value;
}

/// Whether a call failed, by the `errno` value of its error, since nobody answered.
bool isGone(const SystemError& error) {
    constexpr std::array gone = {ETIMEDOUT, ECONNRESET, ENOTCONN};
    return std::ranges::find(gone, error.code) != gone.end();
}

HotKeyStatus statusOf(const SystemError& error) {
    return isGone(error) ? hotKeyPortalGoneErr : hotKeyPortalErr;
}

std::string sender(const BusMessage& message) {
    return text(sd_bus_message_get_sender(message.get()));
}

} // namespace

GlobalShortcutsPortal::GlobalShortcutsPortal(Listener listener,
                                             std::chrono::milliseconds patienceForPortal)
    : listener_(std::move(listener)),
      patience_(patienceForPortal),
      bus_([this](BusMessage& signal) { hearSignal(signal); }) {
    bus_.addMatch(fmt::format("type='signal',sender='org.freedesktop.DBus',"
                              "member='NameOwnerChanged',arg0='{}'",
                              portalName));
    for (const auto* const interface : {requestInterface, sessionInterface, shortcutsInterface}) {
        bus_.addMatch(
            fmt::format("type='signal',sender='{}',interface='{}'", portalName, interface));
    }
    ask();
}

void GlobalShortcutsPortal::want(std::vector<PortalShortcut> shortcuts) {
    const auto* const failed = std::get_if<Failed>(&state_);
    const bool isSame = shortcuts == wanted_;
    if (isSame && failed == nullptr) {
        return;
    }
    if (isSame && failed->status == hotKeyDeniedErr) {
        listener_.failed(failed->status);
        return;
    }
    wanted_ = std::move(shortcuts);
    if (std::holds_alternative<Asking>(state_)) {
        return;
    }
    release();
    state_ = Idle{};
    if (wanted_.empty()) {
        return;
    }
    switch (presence_) {
    case Presence::unknown:
        ask();
        break;
    case Presence::present:
        createSession();
        break;
    case Presence::absent:
        fail(hotKeysUnavailableErr);
        break;
    }
}

void GlobalShortcutsPortal::processEvents() {
    bus_.processEvents();
    const auto* const creating = std::get_if<Creating>(&state_);
    const bool isTooLate = creating != nullptr && creating->deadline.hasPassed();
    const bool isLost = !bus_.isConnected() && !std::holds_alternative<Failed>(state_);
    if (isTooLate || isLost) {
        fail(hotKeyPortalGoneErr);
    }
}

void GlobalShortcutsPortal::ask() {
    state_ = Asking{};
    auto message = bus_.request({.destination = portalName,
                                 .path = portalPath,
                                 .interface = "org.freedesktop.DBus.Properties",
                                 .member = "Get"});
    if (!message) {
        fail(hotKeyPortalGoneErr);
        return;
    }
    message->append(shortcutsInterface).append("version");
    callPortal(*message, [this](auto answer) { hearPresence(std::move(answer)); });
}

void GlobalShortcutsPortal::hearPresence(WatchedBus::Answer answer) {
    if (!answer && isGone(answer.error())) {
        fail(hotKeyPortalGoneErr);
        return;
    }
    if (!answer) {
        presence_ = Presence::absent;
        listener_.absent();
        fail(hotKeysUnavailableErr);
        return;
    }
    if (!readVersion(*answer)) {
        fail(hotKeyPortalErr);
        return;
    }
    presence_ = Presence::present;
    owner_ = sender(*answer);
    state_ = Idle{};
    if (!wanted_.empty()) {
        createSession();
    }
}

void GlobalShortcutsPortal::createSession() {
    auto message = request("CreateSession");
    if (!message) {
        fail(hotKeyPortalGoneErr);
        return;
    }
    const auto token = nextToken();
    // KDE's portal of Plasma 5.27 makes shortcuts only of those that the session is created with.
    appendSessionOptions(
        *message, {{"handle_token", token}, {"session_handle_token", sessionToken}}, wanted_);
    state_ = Creating{.request = objectOf("request", token),
                      .session = objectOf("session", sessionToken),
                      .deadline = Deadline(patience_)};
    bus_.wakeUpAfter(patience_);
    callForRequest<Creating>(*message);
}

void GlobalShortcutsPortal::bind(const std::string& session) {
    auto message = request("BindShortcuts");
    if (!message) {
        fail(hotKeyPortalGoneErr);
        return;
    }
    const auto token = nextToken();
    appendPath(*message, session);
    appendShortcuts(*message, wanted_);
    message->append(noWindow);
    appendOptions(*message, {{"handle_token", token}});
    state_ = Binding{.request = objectOf("request", token), .session = session};
    callForRequest<Binding>(*message);
}

void GlobalShortcutsPortal::release() {
    ++attempt_;
    if (const auto* const creating = std::get_if<Creating>(&state_)) {
        close(creating->request, requestInterface);
    } else if (const auto* const binding = std::get_if<Binding>(&state_)) {
        close(binding->request, requestInterface);
    }
    if (const auto* const open = session()) {
        close(*open, sessionInterface);
    }
}

void GlobalShortcutsPortal::fail(HotKeyStatus status) {
    release();
    state_ = Failed{status};
    if (!wanted_.empty()) {
        listener_.failed(status);
    }
}

void GlobalShortcutsPortal::callPortal(const BusMessage& message,
                                       WatchedBus::AnswerHandler handler) {
    bus_.call(message, patience_,
              [this, attempt = attempt_, handler = std::move(handler)](auto answer) mutable {
                  if (attempt == attempt_) {
                      handler(std::move(answer));
                  }
              });
}

/// Asks what the portal begins to answer with the path of a request.
template <typename State>
void GlobalShortcutsPortal::callForRequest(const BusMessage& message) {
    callPortal(message, [this](auto answer) {
        const auto request = answer ? readPath(*answer) : std::nullopt;
        if (!request) {
            fail(answer ? hotKeyPortalErr : statusOf(answer.error()));
        } else if (auto* const state = std::get_if<State>(&state_)) {
            state->request = *request;
        }
    });
}

std::expected<BusMessage, SystemError> GlobalShortcutsPortal::request(const char* member) const {
    return bus_.request({.destination = portalName,
                         .path = portalPath,
                         .interface = shortcutsInterface,
                         .member = member});
}

void GlobalShortcutsPortal::close(const std::string& path, const char* interface) {
    // Only to the portal that runs: a later one knows nothing of it.
    if (const auto message = bus_.request(
            {.destination = owner_, .path = path, .interface = interface, .member = "Close"})) {
        bus_.send(*message);
    }
}

std::string GlobalShortcutsPortal::nextToken() {
    return fmt::format("blankwell{}", ++lastToken_);
}

/// The portal makes the paths of its objects from the caller's name and token.
std::string GlobalShortcutsPortal::objectOf(const char* kind, const std::string& token) const {
    auto name = bus_.uniqueName();
    name.erase(0, name.starts_with(':') ? 1 : 0);
    std::ranges::replace(name, '.', '_');
    return fmt::format("{}/{}/{}/{}", portalPath, kind, name, token);
}

/// The session that the portal keeps for this program, or may keep; null where there is none.
const std::string* GlobalShortcutsPortal::session() const {
    if (const auto* const creating = std::get_if<Creating>(&state_)) {
        return &creating->session;
    }
    if (const auto* const binding = std::get_if<Binding>(&state_)) {
        return &binding->session;
    }
    const auto* const bound = std::get_if<Bound>(&state_);
    return bound == nullptr ? nullptr : &bound->session;
}

void GlobalShortcutsPortal::hearSignal(BusMessage& signal) {
    const auto interface = text(sd_bus_message_get_interface(signal.get()));
    const auto member = text(sd_bus_message_get_member(signal.get()));
    const auto path = text(sd_bus_message_get_path(signal.get()));
    if (sender(signal) == "org.freedesktop.DBus" && member == "NameOwnerChanged") {
        hearOwner(signal);
        return;
    }
    if (owner_.empty() || sender(signal) != owner_) {
        return;
    }
    if (interface == requestInterface && member == "Response") {
        hearResponse(signal, path);
    } else if (interface == sessionInterface && member == "Closed") {
        hearClosed(path);
    } else if (interface == shortcutsInterface) {
        hearShortcuts(signal, member);
    }
}

void GlobalShortcutsPortal::hearOwner(BusMessage& signal) {
    const auto name = readString(signal);
    const auto previous = readString(signal);
    const auto owner = readString(signal);
    if (name != portalName || !previous || !owner || *owner == owner_) {
        return;
    }
    const bool hadOwner = !owner_.empty();
    owner_ = *owner;
    presence_ = Presence::unknown;
    if (hadOwner) {
        fail(hotKeyPortalGoneErr);
    }
    if (!owner_.empty() && !wanted_.empty() && std::holds_alternative<Failed>(state_)) {
        ask();
    }
}

void GlobalShortcutsPortal::hearResponse(BusMessage& signal, const std::string& request) {
    const auto* const creating = std::get_if<Creating>(&state_);
    const auto* const binding = std::get_if<Binding>(&state_);
    const bool isToCreating = creating != nullptr && creating->request == request;
    const bool isToBinding = binding != nullptr && binding->request == request;
    if (!isToCreating && !isToBinding) {
        return;
    }
    const auto outcome = readOutcome(signal);
    if (outcome != PortalOutcome::success) {
        fail(outcome == PortalOutcome::cancelled ? hotKeyDeniedErr : hotKeyPortalErr);
    } else if (isToCreating) {
        hearSession(signal);
    } else {
        hearBound(signal);
    }
}

void GlobalShortcutsPortal::hearSession(BusMessage& response) {
    if (const auto session = readSession(response)) {
        bind(*session);
    } else {
        fail(hotKeyPortalErr);
    }
}

void GlobalShortcutsPortal::hearBound(BusMessage& response) {
    const auto given = readShortcutsInResults(response);
    if (!given) {
        fail(hotKeyPortalErr);
        return;
    }
    state_ = Bound{*session()};
    listener_.given(*given);
}

void GlobalShortcutsPortal::hearClosed(const std::string& path) {
    if (const auto* const open = session(); open != nullptr && *open == path) {
        fail(hotKeyDeniedErr);
    }
}

void GlobalShortcutsPortal::hearShortcuts(BusMessage& signal, const std::string& member) {
    const auto* const bound = std::get_if<Bound>(&state_);
    if (bound == nullptr || readPath(signal) != bound->session) {
        return;
    }
    if (member == "Activated") {
        if (const auto id = readString(signal)) {
            listener_.activated(*id);
        }
    } else if (member == "ShortcutsChanged") {
        if (const auto given = readShortcuts(signal)) {
            listener_.given(*given);
        }
    }
}

} // namespace blankwell
