#include "platform/linux/update/BundleUnpacker.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemErrors.h"
#include "platform/linux/update/ArchivePath.h"

#include <fmt/core.h>

#include <cerrno>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;
using Result = std::expected<void, UpdateFailure>;

struct FreeArchive {
    void operator()(archive* reader) const { archive_read_free(reader); }
};

using Reader = std::unique_ptr<archive, FreeArchive>;

std::unexpected<UpdateFailure> unsafe(std::string what) {
    return std::unexpected(UpdateFailure{
        Reason::unsafeArchive, fmt::format("The update's archive is not safe: {}.", what)});
}

std::unexpected<UpdateFailure> damaged(archive* reader) {
    const char* const detail = archive_error_string(reader);
    return std::unexpected(UpdateFailure{
        Reason::unsafeArchive, fmt::format("The update's archive is damaged: {}.",
                                           detail == nullptr ? "it cannot be read" : detail)});
}

std::unexpected<UpdateFailure> diskFailure(int number) {
    return std::unexpected(UpdateFailure{
        Reason::disk, posixError(number, "The update could not be unpacked").description});
}

std::unexpected<UpdateFailure> failedToMake(const std::string& path, int number) {
    return number == EEXIST || number == ENOTDIR
               ? unsafe(fmt::format("it holds \"{}\" twice", path))
               : diskFailure(number);
}

std::expected<Reader, UpdateFailure> open(std::span<const std::byte> archive) {
    Reader reader(archive_read_new());
    archive_read_support_filter_zstd(reader.get());
    archive_read_support_filter_gzip(reader.get());
    archive_read_support_filter_xz(reader.get());
    archive_read_support_format_tar(reader.get());
    if (archive_read_open_memory(reader.get(), archive.data(), archive.size()) != ARCHIVE_OK) {
        return damaged(reader.get());
    }
    return reader;
}

/// One archive on its way to the disk.
class Unpacking {
public:
    Unpacking(archive* reader, BundleUnpacker::Limits limits, const std::stop_token& stop)
        : reader_(reader), limits_(limits), stop_(stop) {}

    std::expected<FileUrl, UpdateFailure> run(const FileUrl& folder) {
        folder_.reset(::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!folder_) {
            return diskFailure(errno);
        }
        auto done = makeEntries();
        if (done) {
            done = makeLinks();
        }
        if (!done) {
            return std::unexpected(std::move(done.error()));
        }
        if (!bundle_.ends_with(".app")) {
            return unsafe("it holds no bundle");
        }
        return folder.appending(bundle_);
    }

private:
    struct Link {
        std::string path;
        std::string target;
    };

    Result makeEntries() {
        archive_entry* entry = nullptr;
        for (std::size_t count = 1;; ++count) {
            const int status = archive_read_next_header(reader_, &entry);
            if (status == ARCHIVE_EOF) {
                return {};
            }
            if (status != ARCHIVE_OK) {
                return damaged(reader_);
            }
            if (count > limits_.entries) {
                return unsafe("it holds too many files");
            }
            if (auto made = make(entry); !made) {
                return made;
            }
        }
    }

    Result make(archive_entry* entry) {
        const char* const name = archive_entry_pathname(entry);
        const auto path = plainArchivePath(name == nullptr ? "" : name);
        if (!path) {
            return unsafe(
                fmt::format("the path \"{}\" leads out of it", name == nullptr ? "" : name));
        }
        if (auto checked = check(entry, *path); !checked) {
            return checked;
        }
        switch (archive_entry_filetype(entry)) {
        case AE_IFDIR:
            return makeFolder(*path);
        case AE_IFREG:
            return makeFile(entry, *path);
        default:
            return planLink(entry, *path); // made in the end, so that nothing goes through one
        }
    }

    Result check(archive_entry* entry, const std::string& path) {
        const auto top = path.substr(0, path.find('/'));
        if (bundle_.empty()) {
            bundle_ = top;
        }
        if (top != bundle_) {
            return unsafe(fmt::format("it holds \"{}\" beside the bundle", top));
        }
        const auto type = archive_entry_filetype(entry);
        const bool isKnown = type == AE_IFDIR || type == AE_IFREG || type == AE_IFLNK;
        if (!isKnown || archive_entry_hardlink(entry) != nullptr) {
            return unsafe(fmt::format("\"{}\" is neither a file nor a folder", path));
        }
        if ((archive_entry_mode(entry) & (S_ISUID | S_ISGID)) != 0) {
            return unsafe(fmt::format("\"{}\" asks for the rights of others", path));
        }
        if (path == bundle_ && type != AE_IFDIR) {
            return unsafe("it holds no bundle");
        }
        return {};
    }

    Result makeFolder(const std::string& path) {
        if (folders_.contains(path)) {
            return {};
        }
        if (const auto end = path.rfind('/'); end != std::string::npos) {
            if (auto made = makeFolder(path.substr(0, end)); !made) {
                return made;
            }
        }
        if (::mkdirat(folder_.get(), path.c_str(), 0755) != 0) {
            return failedToMake(path, errno);
        }
        folders_.insert(path);
        return {};
    }

    Result makeFile(archive_entry* entry, const std::string& path) {
        if (auto made = makeParent(path); !made) {
            return made;
        }
        if (archive_entry_size(entry) < 0 ||
            static_cast<std::uint64_t>(archive_entry_size(entry)) > limits_.size - size_) {
            return unsafe("it is too large");
        }
        const bool canBeRun = (archive_entry_mode(entry) & S_IXUSR) != 0;
        const FileDescriptor file(::openat(folder_.get(), path.c_str(),
                                           O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                           canBeRun ? 0755 : 0644));
        return file ? copyContents(file.get()) : failedToMake(path, errno);
    }

    Result makeParent(const std::string& path) {
        return makeFolder(path.substr(0, path.rfind('/')));
    }

    Result copyContents(int file) {
        const void* data = nullptr;
        std::size_t count = 0;
        la_int64_t offset = 0;
        la_int64_t end = 0;
        for (;;) {
            if (stop_.stop_requested()) {
                return std::unexpected(
                    UpdateFailure{Reason::cancelled, "The update was cancelled."});
            }
            const int status = archive_read_data_block(reader_, &data, &count, &offset);
            if (status == ARCHIVE_EOF) {
                break;
            }
            if (status != ARCHIVE_OK) {
                return damaged(reader_);
            }
            if (auto written = write(file, {static_cast<const char*>(data), count}, offset);
                !written) {
                return written;
            }
            end = offset + static_cast<la_int64_t>(count);
        }
        size_ += static_cast<std::uint64_t>(end);
        // A hole at the end has no block.
        return ::ftruncate(file, std::max(end, offset)) == 0 ? Result() : diskFailure(errno);
    }

    Result write(int file, std::span<const char> bytes, la_int64_t offset) const {
        if (offset < 0 ||
            static_cast<std::uint64_t>(offset) + bytes.size() > limits_.size - size_) {
            return unsafe("it is too large");
        }
        while (!bytes.empty()) {
            const auto written = ::pwrite(file, bytes.data(), bytes.size(), offset);
            if (written < 0 && errno != EINTR) {
                return diskFailure(errno);
            }
            const auto count = written < 0 ? 0 : written;
            bytes = bytes.subspan(static_cast<std::size_t>(count));
            offset += count;
        }
        return {};
    }

    Result planLink(archive_entry* entry, std::string path) {
        const char* const target = archive_entry_symlink(entry);
        if (target == nullptr || !leadsInside(path, target)) {
            return unsafe(fmt::format("the link \"{}\" leads out of it", path));
        }
        auto made = makeParent(path);
        if (made) {
            links_.push_back({std::move(path), target});
        }
        return made;
    }

    Result makeLinks() {
        for (const auto& link : links_) {
            if (::symlinkat(link.target.c_str(), folder_.get(), link.path.c_str()) != 0) {
                return failedToMake(link.path, errno);
            }
        }
        return {};
    }

    archive* reader_;
    BundleUnpacker::Limits limits_;
    const std::stop_token& stop_;
    FileDescriptor folder_;
    std::string bundle_;
    std::set<std::string> folders_;
    std::vector<Link> links_;
    std::uint64_t size_ = 0;
};

} // namespace

std::expected<FileUrl, UpdateFailure> BundleUnpacker::unpack(std::span<const std::byte> archive,
                                                             const FileUrl& folder,
                                                             const std::stop_token& stop) const {
    const auto reader = open(archive);
    return reader ? Unpacking(reader->get(), limits_, stop).run(folder)
                  : std::unexpected(reader.error());
}

} // namespace blankwell
