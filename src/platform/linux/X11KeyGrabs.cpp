#include "platform/linux/X11KeyGrabs.h"

#include "platform/linux/HotKeyStatuses.h"
#include "platform/linux/X11Connection.h"

namespace blankwell {
namespace {

/// Calls `body` for each subset of the bits `locks`, the empty one too.
void forEachSubset(std::uint16_t locks, const auto& body) {
    auto subset = locks;
    body(subset);
    while (subset != 0) {
        subset = static_cast<std::uint16_t>((subset - 1U) & locks);
        body(subset);
    }
}

std::uint16_t joined(std::uint16_t left, std::uint16_t right) {
    return static_cast<std::uint16_t>(left | right);
}

HotKeyStatus statusOf(const xcb_generic_error_t& error) {
    switch (error.error_code) {
    case XCB_ACCESS:
        return eventHotKeyExistsErr;
    case XCB_VALUE:
        return eventHotKeyInvalidErr;
    default:
        return hotKeyRefusedErr;
    }
}

} // namespace

X11KeyGrabs::X11KeyGrabs(xcb_connection_t* connection) : connection_(connection) {
    for (auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection)); screens.rem > 0;
         xcb_screen_next(&screens)) {
        roots_.push_back(screens.data->root);
    }
}

HotKeyStatus X11KeyGrabs::take(const X11KeyCombination& combination, std::uint16_t locks) {
    // All are asked for before the first answer is awaited, so that it takes one exchange.
    std::vector<xcb_void_cookie_t> cookies;
    for (const auto root : roots_) {
        forEachSubset(locks, [&](std::uint16_t locked) {
            // Without the events of the owner: with them, the key's release would go to our own
            // window where that has the focus by then.
            constexpr std::uint8_t ownerEvents = 0;
            cookies.push_back(xcb_grab_key_checked(
                connection_, ownerEvents, root, joined(combination.modifiers, locked),
                combination.key, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        });
    }
    auto status = noErr;
    for (const auto cookie : cookies) {
        if (const X11Memory<xcb_generic_error_t> error{xcb_request_check(connection_, cookie)}) {
            status = statusOf(*error);
        }
    }
    // To a lost connection no request is wrong.
    if (xcb_connection_has_error(connection_) != 0) {
        return hotKeyDisplayErr;
    }
    if (status != noErr) {
        release(combination, locks);
    }
    return status;
}

void X11KeyGrabs::release(const X11KeyCombination& combination, std::uint16_t locks) {
    for (const auto root : roots_) {
        forEachSubset(locks, [&](std::uint16_t locked) {
            xcb_ungrab_key(connection_, combination.key, root,
                           joined(combination.modifiers, locked));
        });
    }
    xcb_flush(connection_);
}

void X11KeyGrabs::releaseAll() {
    for (const auto root : roots_) {
        xcb_ungrab_key(connection_, XCB_GRAB_ANY, root, XCB_MOD_MASK_ANY);
    }
    xcb_flush(connection_);
}

} // namespace blankwell
