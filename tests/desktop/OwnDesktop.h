#pragma once

#include <vector>

namespace blankwell {

/// Whether this process runs on a desktop of its own.
[[nodiscard]] bool isOnOwnDesktop();

/// Becomes the same program with `arguments` on a desktop of its own: a private X server with a
/// window manager, a private session bus and a home that is thrown away. All of it ends with the
/// program. Returns only on a failure, which standard error tells of.
void runOnOwnDesktop(const std::vector<char*>& arguments);

} // namespace blankwell
