#include "platform/linux/LinuxBundleStore.h"

#include "platform/Identifiers.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/FolderIdentity.h"
#include "platform/linux/PrivateFolder.h"
#include "platform/linux/SystemErrors.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace blankwell {
namespace {

std::unexpected<SystemError> failure(int number, std::string_view what, const FileUrl& url) {
    return std::unexpected(fileError(number, fmt::format("Could not {} \"{}\"", what, url.path())));
}

/// A copy on its way; what lies at its place goes when this does.
class Staging {
public:
    explicit Staging(FileUrl url) : url_(std::move(url)) { clear(); }

    ~Staging() { clear(); }

    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;

    [[nodiscard]] const FileUrl& url() const { return url_; }

private:
    void clear() const {
        std::error_code ignored;
        std::filesystem::remove_all(url_.path(), ignored);
    }

    FileUrl url_;
};

std::expected<void, SystemError> copy(const FileUrl& bundle, const FileUrl& copy) {
    std::error_code error;
    std::filesystem::copy(bundle.path(), copy.path(),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::copy_symlinks,
                          error);
    if (error) {
        return failure(error.value(), "copy", bundle);
    }
    const FileDescriptor folder(::open(copy.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder || ::syncfs(folder.get()) != 0) {
        return failure(errno, "write", copy);
    }
    return {};
}

bool somethingStands(const FileUrl& url) {
    std::error_code error;
    return std::filesystem::symlink_status(url.path(), error).type() !=
           std::filesystem::file_type::not_found;
}

} // namespace

bool LinuxBundleStore::stands(const FileUrl& url) const {
    const BundleDirectory bundle(url.appending("Contents/Linux"));
    return bundle.infoString("CFBundleIdentifier") == bundleIdentifier;
}

std::optional<std::string> LinuxBundleStore::identity(const FileUrl& url) const {
    const auto folder = identifyFolder(url.path());
    if (!folder || !folder->birthTime) {
        return std::nullopt;
    }
    return fmt::format("{}-{}.{:09}", folder->inode, folder->birthTime->seconds,
                       folder->birthTime->nanoseconds);
}

std::expected<FileUrl, SystemError> LinuxBundleStore::copyInto(const FileUrl& folder,
                                                               const FileUrl& bundle) {
    auto place = folder.appending(bundle.lastPathComponent());
    std::error_code error;
    if (std::filesystem::equivalent(place.path(), bundle.path(), error) && !error) {
        return place;
    }
    if (covers(bundle, folder)) {
        return failure(EINVAL, "copy a bundle into itself:", bundle);
    }
    const bool isTaken = somethingStands(place);
    if (isTaken && !stands(place)) {
        return failure(EEXIST, "replace", place);
    }
    if (const auto made = makePrivateFolder(folder.path()); !made) {
        return failure(made.error(), "make the folder", folder);
    }
    const Staging staging(folder.appending(fmt::format(".{}.new", bundle.lastPathComponent())));
    if (const auto copied = copy(bundle, staging.url()); !copied) {
        return std::unexpected(copied.error());
    }
    const unsigned flags = isTaken ? RENAME_EXCHANGE : RENAME_NOREPLACE;
    if (::renameat2(AT_FDCWD, staging.url().path().c_str(), AT_FDCWD, place.path().c_str(),
                    flags) != 0) {
        return failure(errno, "put in place", place);
    }
    return place;
}

} // namespace blankwell
