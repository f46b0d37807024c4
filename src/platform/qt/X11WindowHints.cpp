#include "platform/qt/X11WindowHints.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace blankwell {
namespace {

struct Deallocator {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Answer = std::unique_ptr<Reply, Deallocator>;

/// Qt's connection, which Qt also flushes; nullptr off X11.
xcb_connection_t* connection() {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t internAtom(xcb_connection_t* display, std::string_view name) {
    const auto cookie =
        xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Answer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(display, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// The names that are spoken of, asked for once.
struct Atoms {
    explicit Atoms(xcb_connection_t* display)
        : state(internAtom(display, "_NET_WM_STATE")),
          desktop(internAtom(display, "_NET_WM_DESKTOP")),
          activeWindow(internAtom(display, "_NET_ACTIVE_WINDOW")),
          states{internAtom(display, "_NET_WM_STATE_ABOVE"),
                 internAtom(display, "_NET_WM_STATE_SKIP_TASKBAR"),
                 internAtom(display, "_NET_WM_STATE_SKIP_PAGER")} {}

    static const Atoms& of(xcb_connection_t* display) {
        static const Atoms atoms(display);
        return atoms;
    }

    [[nodiscard]] xcb_atom_t atom(WindowState windowState) const {
        return states.at(static_cast<std::size_t>(windowState));
    }

    xcb_atom_t state;
    xcb_atom_t desktop;
    xcb_atom_t activeWindow;
    std::array<xcb_atom_t, 3> states;
};

xcb_window_t idOf(const QWindow& window) {
    return static_cast<xcb_window_t>(window.winId());
}

/// Asks the window manager, by a message to the root window.
void askWindowManager(xcb_connection_t* display, const QWindow& window, xcb_atom_t type,
                      const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = idOf(window);
    event.type = type;
    std::ranges::copy(data, event.data.data32);
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
    xcb_send_event(display, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(display);
}

std::vector<xcb_atom_t> atomsIn(xcb_connection_t* display, xcb_window_t window,
                                xcb_atom_t property) {
    constexpr std::uint32_t enough = 64;
    const auto cookie = xcb_get_property(display, 0, window, property, XCB_ATOM_ATOM, 0, enough);
    const Answer<xcb_get_property_reply_t> reply(xcb_get_property_reply(display, cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* const first = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

void writeStates(xcb_connection_t* display, xcb_window_t window, const Atoms& atoms,
                 std::initializer_list<WindowState> states, WindowStatePresence presence) {
    auto all = atomsIn(display, window, atoms.state);
    for (const auto state : states) {
        std::erase(all, atoms.atom(state));
        if (presence == WindowStatePresence::present) {
            all.push_back(atoms.atom(state));
        }
    }
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, window, atoms.state, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(all.size()), all.data());
}

} // namespace

void setWindowStates(const QWindow& window, std::initializer_list<WindowState> states,
                     WindowStatePresence presence) {
    auto* const display = connection();
    if (display == nullptr) {
        return;
    }
    const auto& atoms = Atoms::of(display);
    if (!window.isVisible()) {
        writeStates(display, idOf(window), atoms, states, presence);
        return;
    }
    constexpr std::uint32_t application = 1;
    for (const auto state : states) {
        const std::uint32_t action = presence == WindowStatePresence::present ? 1 : 0;
        askWindowManager(display, window, atoms.state,
                         {action, atoms.atom(state), 0, application, 0});
    }
}

void putOnAllDesktops(const QWindow& window) {
    auto* const display = connection();
    if (display == nullptr) {
        return;
    }
    constexpr std::uint32_t allDesktops = 0xFFFFFFFF;
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, idOf(window), Atoms::of(display).desktop,
                        XCB_ATOM_CARDINAL, 32, 1, &allDesktops);
}

bool activateForUser(const QWindow& window) {
    auto* const display = connection();
    if (display == nullptr) {
        return false;
    }
    // The wish of an application may be refused as stealing the focus, that of a pager is a user's.
    constexpr std::uint32_t pager = 2;
    askWindowManager(display, window, Atoms::of(display).activeWindow, {pager, 0, 0, 0, 0});
    return true;
}

} // namespace blankwell
