#include "desktop/TestKeyboard.h"

#include "platform/linux/MacKeyCodes.h"
#include "settings/QuickCreateShortcut.h"

// The header is C and has a member that is called as a keyword of C++.
#define explicit explicitly
#include <xcb/xkb.h>
#undef explicit
#include <xcb/xtest.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <thread>
#include <utility>

namespace blankwell {
namespace {

X11Connection connect() {
    X11Connection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) {
        throw std::runtime_error("no X server");
    }
    return connection;
}

/// Waits for the answer to a question that says nothing.
void exchange(xcb_connection_t* connection) {
    const X11Memory<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

std::uint8_t keyOf(std::uint32_t keyCode) {
    return static_cast<std::uint8_t>(x11KeyCode(keyCode).value());
}

const xcb_screen_t& screenOf(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0; --number) {
        xcb_screen_next(&screens);
    }
    return *screens.data;
}

constexpr auto modifierKeys = std::to_array<std::pair<std::uint32_t, std::uint32_t>>({
    {carbon::cmdKey, TestKeyboard::command},
    {carbon::shiftKey, TestKeyboard::shift},
    {carbon::optionKey, TestKeyboard::option},
    {carbon::controlKey, TestKeyboard::control},
});

} // namespace

TestKeyboard::TestKeyboard() : connection_(connect()) {
    settle();
}

void TestKeyboard::hit(std::uint32_t keyCode) {
    down(keyCode);
    up(keyCode);
    settle();
}

void TestKeyboard::hit(std::uint32_t keyCode, std::uint32_t carbonModifiers) {
    for (const auto& [bit, key] : modifierKeys) {
        if ((carbonModifiers & bit) != 0) {
            down(key);
        }
    }
    down(keyCode);
    up(keyCode);
    for (const auto& [bit, key] : modifierKeys) {
        if ((carbonModifiers & bit) != 0) {
            up(key);
        }
    }
    settle();
}

std::uint8_t TestKeyboard::switchToLayout(std::uint8_t layout) {
    auto* const connection = connection_.get();
    constexpr std::uint16_t keyboard = XCB_XKB_ID_USE_CORE_KBD;
    const X11Memory<xcb_xkb_use_extension_reply_t> used(
        xcb_xkb_use_extension_reply(connection, xcb_xkb_use_extension(connection, 1, 0), nullptr));
    xcb_xkb_latch_lock_state(connection, keyboard, 0, 0, 1, layout, 0, 0, 0);
    const X11Memory<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(connection, xcb_xkb_get_state(connection, keyboard), nullptr));
    return state->group;
}

void TestKeyboard::settle() {
    // The server sends what it has for all programs before it looks at the next requests. So when
    // it answers the second question, everybody has what was there before the first.
    exchange(connection_.get());
    exchange(connection_.get());
    // A person cannot hit a key again in the same tick of the server's clock.
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

void TestKeyboard::fake(std::uint8_t type, std::uint32_t keyCode) {
    xcb_test_fake_input(connection_.get(), type, keyOf(keyCode), XCB_CURRENT_TIME, XCB_WINDOW_NONE,
                        0, 0, 0);
    xcb_flush(connection_.get());
}

TypedProgram::TypedProgram(int screen) : connection_(connect()) {
    auto* const connection = connection_.get();
    const auto& place = screenOf(connection, screen);
    const auto window = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, place.root, 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, place.root_visual, XCB_CW_EVENT_MASK, &events);
    xcb_map_window(connection, window);
    xcb_set_input_focus(connection, XCB_INPUT_FOCUS_NONE, window, XCB_CURRENT_TIME);
    exchange(connection);
}

bool TypedProgram::got(std::uint32_t keyCode) {
    exchange(connection_.get());
    bool found = false;
    while (const X11Memory<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        if (event->response_type == XCB_KEY_PRESS) {
            const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(*event);
            found = found || press.detail == keyOf(keyCode);
            lastState_ = press.state;
        }
    }
    return found;
}

RivalProgram::RivalProgram() : connection_(connect()), root_(screenOf(connection_.get(), 0).root) {}

bool RivalProgram::grab(std::uint32_t keyCode, std::uint32_t modifiers) {
    const auto cookie =
        xcb_grab_key_checked(connection_.get(), 0, root_, static_cast<std::uint16_t>(modifiers),
                             keyOf(keyCode), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return !X11Memory<xcb_generic_error_t>(xcb_request_check(connection_.get(), cookie));
}

void RivalProgram::ungrab(std::uint32_t keyCode, std::uint32_t modifiers) {
    xcb_ungrab_key(connection_.get(), keyOf(keyCode), root_, static_cast<std::uint16_t>(modifiers));
    exchange(connection_.get());
}

} // namespace blankwell
