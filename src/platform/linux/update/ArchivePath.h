#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// The path of an archive's entry, relative and in its plainest form: no "." or empty components.
/// Nothing where it is absolute, climbs, is deeper or longer than a bundle ever is, or is empty.
[[nodiscard]] std::optional<std::string> plainArchivePath(std::string_view path);

/// Whether a symbolic link at `path` (as `plainArchivePath` gives it) that holds `target` leads to
/// somewhere inside the first folder of `path`, whatever links it leads through: it is relative,
/// and climbs at its beginning only, where the way is known to be without links.
[[nodiscard]] bool leadsInside(std::string_view path, std::string_view target);

} // namespace blankwell
