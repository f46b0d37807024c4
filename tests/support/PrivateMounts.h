#pragma once

#include "base/FileUrl.h"

#include <sched.h>
#include <sys/mount.h>

namespace blankwell {

/// Mounts a tmpfs at `folder` that only this process and its children see, so call it in a child.
/// `options` as for mount(8), such as "size=64k". Needs to be root.
[[nodiscard]] inline bool mountTmpfs(const FileUrl& folder, const char* options,
                                     unsigned long flags = 0) {
    return ::unshare(CLONE_NEWNS) == 0 &&
           ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("tmpfs", folder.path().c_str(), "tmpfs", flags, options) == 0;
}

} // namespace blankwell
