#pragma once

#include "platform/SystemError.h"
#include "platform/linux/FileDescriptor.h"

#include <expected>
#include <string>
#include <string_view>
#include <vector>

struct inotify_event;

namespace blankwell {

/// Tells when the file of a preference domain was replaced, written or removed, by this process or
/// another. For any event loop.
///
/// Watches the folder, because the file is replaced as a whole by each write; and the folder of
/// what the file points to, if it is a link when the watch begins. Ends when the folder is removed.
class PreferenceDomainWatch {
public:
    /// Watches the domain `name` in `directory`, which is made if it is missing (0700).
    [[nodiscard]] static std::expected<PreferenceDomainWatch, SystemError>
    begin(std::string_view directory, std::string_view name);

    /// Readable when there is something to `drain()`. Belongs to this object.
    [[nodiscard]] int descriptor() const { return queue_.get(); }

    /// Takes all waiting events and tells whether the domain may have changed. Never waits.
    [[nodiscard]] bool drain();

private:
    /// A file in one of the watched folders.
    struct WatchedFile {
        int folder;
        std::string name;
    };

    explicit PreferenceDomainWatch(FileDescriptor queue) : queue_(std::move(queue)) {}

    std::expected<void, int> addFolders(const std::string& directory, const std::string& path);
    std::expected<void, int> add(const std::string& path);
    [[nodiscard]] bool concernsTheDomain(const inotify_event& event) const;

    FileDescriptor queue_;
    std::vector<WatchedFile> files_;
};

} // namespace blankwell
