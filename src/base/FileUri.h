#pragma once

#include "base/FileUrl.h"

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// The `file://` URI of `url`, in the one spelling that every file manager recognises: some compare
/// URIs as text with those that Qt makes, so exactly what Qt's fully encoded form leaves alone
/// stays as it is, brackets among them. A name that is not UTF-8 is encoded byte by byte.
[[nodiscard]] std::string fileUri(const FileUrl& url);

/// The place that `uri` names, if it is a `file:///` URI without query and fragment; nothing for
/// any other scheme or host, for a broken encoding, and for a zero byte, which no path can hold.
[[nodiscard]] std::optional<FileUrl> fileOfUri(std::string_view uri);

} // namespace blankwell
