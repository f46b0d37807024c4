#include "platform/linux/update/BundleUse.h"

#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace blankwell {
namespace {

FileDescriptor openFolder(const FileUrl& url) {
    return FileDescriptor(
        ::open(url.path().c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

} // namespace

BundleUse::BundleUse(FileUrl bundle) : bundle_(std::move(bundle)), folder_(openFolder(bundle_)) {
    if (folder_) {
        // Who cleans up holds it alone for a moment only.
        ::flock(folder_.get(), LOCK_SH);
    }
}

bool BundleUse::isInPlace() const {
    struct stat marked{};
    struct stat present{};
    return folder_ && ::fstat(folder_.get(), &marked) == 0 &&
           ::lstat(bundle_.path().c_str(), &present) == 0 && marked.st_dev == present.st_dev &&
           marked.st_ino == present.st_ino;
}

bool BundleUse::isUsed(const FileUrl& bundle) {
    const auto folder = openFolder(bundle);
    return !folder || ::flock(folder.get(), LOCK_EX | LOCK_NB) != 0;
}

} // namespace blankwell
