#include "platform/linux/X11WindowList.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <future>
#include <memory>
#include <span>
#include <string_view>
#include <thread>
#include <utility>

namespace blankwell {
namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// The atoms by the place of their names in `atomNames`.
enum Atom : std::size_t {
    clientListStacking,
    currentDesktop,
    netWmName,
    role,
    objectPath,
    location,
    processId,
    windowType,
    typeNormal,
    typeDesktop,
    state,
    stateHidden,
    desktop,
    atomCount,
};

constexpr std::array<std::string_view, atomCount> atomNames = {
    "_NET_CLIENT_LIST_STACKING",
    "_NET_CURRENT_DESKTOP",
    "_NET_WM_NAME",
    "WM_WINDOW_ROLE",
    "_GTK_WINDOW_OBJECT_PATH",
    "_BLANKWELL_PLUS_LOCATION",
    "_NET_WM_PID",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_STATE",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_DESKTOP",
};

using Atoms = std::array<xcb_atom_t, atomCount>;

/// The value of a property; empty where it is not set.
class Property {
public:
    Property(xcb_connection_t* connection, xcb_get_property_cookie_t cookie)
        : reply_(xcb_get_property_reply(connection, cookie, nullptr)) {}

    [[nodiscard]] bool isSet() const { return reply_ && reply_->type != XCB_ATOM_NONE; }

    [[nodiscard]] std::string_view text() const {
        return reply_ && reply_->format == 8 ? bytes() : std::string_view();
    }

    /// The values of a property of cardinals, atoms or windows; borrowed.
    [[nodiscard]] std::span<const std::uint32_t> numbers() const {
        if (!reply_ || reply_->format != 32) {
            return {};
        }
        return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply_.get())),
                bytes().size() / sizeof(std::uint32_t)};
    }

    [[nodiscard]] std::optional<std::uint32_t> number() const {
        const auto values = numbers();
        return values.empty() ? std::nullopt : std::optional(values.front());
    }

private:
    [[nodiscard]] std::string_view bytes() const {
        return {static_cast<const char*>(xcb_get_property_value(reply_.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply_.get()))};
    }

    std::unique_ptr<xcb_get_property_reply_t, Free> reply_;
};

xcb_get_property_cookie_t ask(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t atom) {
    // In units of four bytes: long enough for a title that holds the longest path.
    constexpr std::uint32_t longest = 4096;
    return xcb_get_property(connection, 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
}

std::optional<Atoms> internAtoms(xcb_connection_t* connection) {
    std::array<xcb_intern_atom_cookie_t, atomCount> cookies{};
    std::ranges::transform(atomNames, cookies.begin(), [&](std::string_view name) {
        return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    });
    Atoms atoms{};
    for (std::size_t i = 0; i < atomCount; ++i) {
        const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
            xcb_intern_atom_reply(connection, cookies.at(i), nullptr));
        if (!reply) {
            return std::nullopt;
        }
        atoms.at(i) = reply->atom;
    }
    return atoms;
}

/// The questions about one window, asked together and answered together.
class WindowQuestions {
public:
    WindowQuestions(xcb_connection_t* connection, const Atoms& atoms, xcb_window_t window)
        : connection_(connection),
          atoms_(atoms), //
          class_(ask(connection, window, XCB_ATOM_WM_CLASS)),
          title_(ask(connection, window, atoms[netWmName])),
          role_(ask(connection, window, atoms[role])),
          objectPath_(ask(connection, window, atoms[objectPath])),
          location_(ask(connection, window, atoms[location])),
          processId_(ask(connection, window, atoms[processId])),
          type_(ask(connection, window, atoms[windowType])),
          transientFor_(ask(connection, window, XCB_ATOM_WM_TRANSIENT_FOR)),
          state_(ask(connection, window, atoms[state])),
          workspace_(ask(connection, window, atoms[desktop])) {}

    [[nodiscard]] DesktopWindow answers() const {
        const auto stateAnswer = answer(state_);
        const auto states = stateAnswer.numbers();
        return {
            .windowClass = classPart(answer(class_)),
            .title = std::string(answer(title_).text()),
            .role = std::string(answer(role_).text()),
            .objectPath = std::string(answer(objectPath_).text()),
            .location = std::string(answer(location_).text()),
            .processId = answer(processId_).number().value_or(0),
            .kind = kind(answer(type_).number(), answer(transientFor_).number()),
            .isHidden = std::ranges::find(states, atoms_[stateHidden]) != states.end(),
            .workspace = answer(workspace_).number().value_or(DesktopWindow::everyWorkspace),
        };
    }

private:
    [[nodiscard]] Property answer(xcb_get_property_cookie_t cookie) const {
        return {connection_, cookie};
    }

    /// `WM_CLASS` is the instance and the class, each ended by a zero byte.
    static std::string classPart(const Property& property) {
        const auto text = property.text();
        const auto instanceEnd = text.find('\0');
        if (instanceEnd == std::string_view::npos) {
            return "";
        }
        const auto rest = text.substr(instanceEnd + 1);
        return std::string(rest.substr(0, rest.find('\0')));
    }

    /// The hints say: a window without a type is a dialog if it belongs to another, else normal.
    [[nodiscard]] DesktopWindow::Kind kind(std::optional<std::uint32_t> type,
                                           std::optional<std::uint32_t> transientFor) const {
        if (!type) {
            return transientFor ? DesktopWindow::Kind::other : DesktopWindow::Kind::normal;
        }
        if (*type == atoms_[typeDesktop]) {
            return DesktopWindow::Kind::desktop;
        }
        return *type == atoms_[typeNormal] ? DesktopWindow::Kind::normal
                                           : DesktopWindow::Kind::other;
    }

    xcb_connection_t* connection_;
    const Atoms& atoms_;
    xcb_get_property_cookie_t class_;
    xcb_get_property_cookie_t title_;
    xcb_get_property_cookie_t role_;
    xcb_get_property_cookie_t objectPath_;
    xcb_get_property_cookie_t location_;
    xcb_get_property_cookie_t processId_;
    xcb_get_property_cookie_t type_;
    xcb_get_property_cookie_t transientFor_;
    xcb_get_property_cookie_t state_;
    xcb_get_property_cookie_t workspace_;
};

std::optional<xcb_window_t> rootWindow(xcb_connection_t* connection, int screen) {
    if (xcb_connection_has_error(connection) != 0) {
        return std::nullopt;
    }
    auto roots = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screen > 0 && roots.rem > 1; --screen) {
        xcb_screen_next(&roots);
    }
    return roots.rem > 0 ? std::optional(roots.data->root) : std::nullopt;
}

/// Waits for the server as long as that takes.
std::optional<WindowStack> askServer() {
    int screen = 0;
    const Connection owner(xcb_connect(nullptr, &screen));
    auto* const connection = owner.get();
    const auto root = rootWindow(connection, screen);
    const auto atoms = root ? internAtoms(connection) : std::nullopt;
    if (!atoms) {
        return std::nullopt;
    }
    const auto listCookie = ask(connection, *root, (*atoms)[clientListStacking]);
    const auto workspaceCookie = ask(connection, *root, (*atoms)[currentDesktop]);
    const Property list(connection, listCookie);
    WindowStack stack{.workspace = Property(connection, workspaceCookie).number()};
    if (!list.isSet()) {
        return std::nullopt;
    }
    std::vector<WindowQuestions> questions;
    for (const auto window : list.numbers()) {
        questions.emplace_back(connection, *atoms, window);
    }
    for (const auto& question : questions) {
        stack.windows.push_back(question.answers());
    }
    return stack;
}

} // namespace

std::optional<WindowStack> x11WindowStack(const Deadline& deadline) {
    static std::atomic<bool> isAsked = false;
    if (isAsked.exchange(true)) {
        return std::nullopt;
    }
    std::packaged_task<std::optional<WindowStack>()> question([] {
        auto stack = askServer();
        isAsked = false;
        return stack;
    });
    auto answer = question.get_future();
    // xcb cannot be told how long to wait: a server that hangs keeps the thread.
    std::thread(std::move(question)).detach();
    const bool isAnswered = answer.wait_for(deadline.remaining()) == std::future_status::ready;
    return isAnswered ? answer.get() : std::nullopt;
}

} // namespace blankwell
