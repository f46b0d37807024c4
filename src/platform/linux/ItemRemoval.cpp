#include "platform/linux/ItemRemoval.h"

#include "platform/linux/FileName.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

namespace blankwell {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

constexpr int readFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

/// Opens the folder `name` in `folder`, neither through a link nor into what is mounted there.
FileDescriptor openInside(int folder, const std::string& name) {
    open_how how{};
    how.flags = readFolder | O_NOFOLLOW;
    how.resolve = RESOLVE_NO_XDEV;
    // glibc has no function for it.
    return FileDescriptor(
        static_cast<int>(::syscall(SYS_openat2, folder, name.c_str(), &how, sizeof how)));
}

} // namespace

ItemRemoval::ItemRemoval(const std::string& path) : folder_(::open(path.c_str(), readFolder)) {}

std::vector<std::string> ItemRemoval::names() const {
    FileDescriptor own(::openat(folder_.get(), ".", readFolder));
    if (own.get() < 0) {
        return {};
    }
    const std::unique_ptr<DIR, CloseFolder> listing(::fdopendir(own.get()));
    if (!listing) {
        return {};
    }
    static_cast<void>(own.release()); // the listing closes it
    std::vector<std::string> names;
    while (const auto* entry = ::readdir(listing.get())) {
        if (isFileName(entry->d_name)) {
            names.emplace_back(entry->d_name);
        }
    }
    return names;
}

void ItemRemoval::removeFile(const std::string& name) const {
    ::unlinkat(folder_.get(), name.c_str(), 0);
}

void ItemRemoval::removeTree(const std::string& name) const {
    if (::unlinkat(folder_.get(), name.c_str(), 0) == 0 || errno != EISDIR) {
        return;
    }
    const ItemRemoval inside(openInside(folder_.get(), name));
    for (const auto& item : inside.names()) {
        inside.removeTree(item);
    }
    ::unlinkat(folder_.get(), name.c_str(), AT_REMOVEDIR);
}

} // namespace blankwell
