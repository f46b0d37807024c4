#pragma once

#include "platform/HotKeyService.h"

#include <memory>

namespace blankwell {

/// The hot keys of the desktop that the application runs on. Where it has none, registrations fail
/// with a status.
[[nodiscard]] std::unique_ptr<HotKeyService> makeHotKeyService();

} // namespace blankwell
