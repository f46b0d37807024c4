#pragma once

namespace blankwell {

class Environment;

/// What the session's programs speak with its display.
enum class DisplayProtocol { none, x11, wayland };

/// What the session's environment says. A Wayland session is one although it has an X server for
/// old programs too: there that server sees the keys of its own windows only, and key grabs succeed
/// and do nothing.
[[nodiscard]] DisplayProtocol displayProtocol(const Environment& environment);

} // namespace blankwell
