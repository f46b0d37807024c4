#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace blankwell {

/// Frees what xcb allocated: a reply, an event, an error.
struct X11Free {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Value>
using X11Memory = std::unique_ptr<Value, X11Free>;

struct X11Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// A connection to an X server. Never null, but can be one that failed.
using X11Connection = std::unique_ptr<xcb_connection_t, X11Disconnect>;

} // namespace blankwell
