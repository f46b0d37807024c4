#pragma once

#include <functional>
#include <string>

namespace blankwell {

/// What `run` returns in a process of its own; "(exit N)" where that process did not come to its
/// end.
[[nodiscard]] std::string inChild(const std::function<std::string()>& run);

/// As `inChild`, as a user and in a group without any privilege. Needs root.
[[nodiscard]] std::string asUnprivileged(const std::function<std::string()>& run);

/// As `inChild`, with mounts of its own: what is mounted there nobody else sees, and it is gone
/// with the process. Needs root.
[[nodiscard]] std::string withOwnMounts(const std::function<std::string()>& run);

/// Throws unless a file system of the kind `kind` could be mounted at `folder`.
void mountNew(const std::string& kind, const std::string& folder);

/// Takes the mount at `folder` away; throws unless it could.
void unmount(const std::string& folder);

/// Gives up root for the rest of the process; throws unless it could.
void dropPrivileges();

} // namespace blankwell
