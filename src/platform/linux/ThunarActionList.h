#pragma once

#include "platform/Registrations.h"

#include <expected>
#include <span>
#include <string>
#include <string_view>

namespace blankwell {

/// `document`, a list of Thunar's custom actions or an empty text, with exactly `actions` of all
/// whose ids begin with `prefix`, after the others. All that is not theirs stays as it is, byte for
/// byte. The error says what is wrong with the document.
[[nodiscard]] std::expected<std::string, std::string>
withThunarActions(std::string_view document, std::string_view prefix,
                  std::span<const CustomAction> actions);

} // namespace blankwell
