#pragma once

#include "platform/HotKeyService.h"

namespace blankwell {

// Why a hot key cannot be had on this desktop, where Carbon has no number for it. The numbers are
// our own and appear in the log.

/// The desktop gives no keys away to programs.
inline constexpr HotKeyStatus hotKeysUnavailableErr = 1001;
/// There is no X server, or the connection to it is lost.
inline constexpr HotKeyStatus hotKeyDisplayErr = 1002;
/// The display server acts on the combination itself, so that no program sees it.
inline constexpr HotKeyStatus hotKeyReservedErr = 1003;
/// The keyboard has no key for one of the modifiers.
inline constexpr HotKeyStatus hotKeyNoModifierErr = 1004;
/// The display server refused for a reason that it has no business to have.
inline constexpr HotKeyStatus hotKeyRefusedErr = 1005;
/// The user, or the desktop in the user's name, declined or took the hot key back.
inline constexpr HotKeyStatus hotKeyDeniedErr = 1006;
/// The desktop's portal failed, or answered what cannot be understood.
inline constexpr HotKeyStatus hotKeyPortalErr = 1007;
/// The desktop's portal, or the session bus, does not answer or is gone.
inline constexpr HotKeyStatus hotKeyPortalGoneErr = 1008;
/// The desktop knows the hot key and has no key for it until the user gives it one.
inline constexpr HotKeyStatus hotKeyNoKeyErr = 1009;

} // namespace blankwell
