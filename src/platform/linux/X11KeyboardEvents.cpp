#include "platform/linux/X11KeyboardEvents.h"

#include "platform/linux/X11Connection.h"

// The header is C and has a member that is called as a keyword of C++.
#define explicit explicitly
#include <xcb/xkb.h>
#undef explicit

namespace blankwell {
namespace {

constexpr std::uint16_t wantedEvents =
    XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;

bool useExtension(xcb_connection_t* connection) {
    const auto cookie =
        xcb_xkb_use_extension(connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const X11Memory<xcb_xkb_use_extension_reply_t> reply(
        xcb_xkb_use_extension_reply(connection, cookie, nullptr));
    return reply && reply->supported != 0;
}

/// An event of the extension, as far as all of them are alike.
const xcb_xkb_map_notify_event_t& extensionEvent(const xcb_generic_event_t& event) {
    return reinterpret_cast<const xcb_xkb_map_notify_event_t&>(event);
}

} // namespace

X11KeyboardEvents::X11KeyboardEvents(xcb_connection_t* connection) {
    const auto* const extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    if (extension == nullptr || extension->present == 0 || !useExtension(connection)) {
        return;
    }
    constexpr std::uint16_t everyPart = 0xFF;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, wantedEvents, 0, wantedEvents,
                          everyPart, everyPart, nullptr);
    xcb_flush(connection);
    extensionType_ = extension->first_event;
}

bool X11KeyboardEvents::announcesNewMap(const xcb_generic_event_t& event) const {
    if (event.response_type == XCB_MAPPING_NOTIFY) {
        return true;
    }
    if (event.response_type != extensionType_) {
        return false;
    }
    const auto kind = extensionEvent(event).xkbType;
    return kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY;
}

} // namespace blankwell
