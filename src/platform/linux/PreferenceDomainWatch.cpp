#include "platform/linux/PreferenceDomainWatch.h"

#include "platform/linux/PrivateFolder.h"
#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <span>
#include <utility>

namespace blankwell {
namespace {

constexpr std::uint32_t changes = IN_MOVED_TO | IN_MOVED_FROM | IN_CLOSE_WRITE | IN_DELETE |
                                  IN_CREATE | IN_DELETE_SELF | IN_ONLYDIR;

struct Deallocator {
    void operator()(char* memory) const { std::free(memory); }
};

/// The path of the file that the link `path` points to; `path` if it is no link or points nowhere.
std::string resolved(const std::string& path) {
    const std::unique_ptr<char, Deallocator> target(::realpath(path.c_str(), nullptr));
    return target ? std::string(target.get()) : path;
}

} // namespace

std::expected<PreferenceDomainWatch, SystemError>
PreferenceDomainWatch::begin(std::string_view directory, std::string_view name) {
    const auto path = fmt::format("{}/{}.plist", directory, name);
    PreferenceDomainWatch watch(FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)));
    if (const auto watching = watch.addFolders(std::string(directory), path); !watching) {
        return std::unexpected(
            posixError(watching.error(), fmt::format("Could not watch the settings in {}", path)));
    }
    return watch;
}

std::expected<void, int> PreferenceDomainWatch::addFolders(const std::string& directory,
                                                           const std::string& path) {
    if (!queue_) {
        return std::unexpected(errno);
    }
    if (const auto folder = makePrivateFolder(directory); !folder) {
        return folder;
    }
    const auto direct = add(path);
    return direct ? add(resolved(path)) : direct;
}

std::expected<void, int> PreferenceDomainWatch::add(const std::string& path) {
    const auto slash = path.find_last_of('/');
    const int folder =
        ::inotify_add_watch(queue_.get(), path.substr(0, slash + 1).c_str(), changes);
    if (folder < 0) {
        return std::unexpected(errno);
    }
    files_.push_back({.folder = folder, .name = path.substr(slash + 1)});
    return {};
}

bool PreferenceDomainWatch::drain() {
    alignas(inotify_event) std::array<char, 16384> buffer;
    bool changed = false;
    while (true) {
        const auto length = ::read(queue_.get(), buffer.data(), buffer.size());
        if (length < 0 && errno == EINTR) {
            continue;
        }
        if (length <= 0) {
            return changed;
        }
        for (auto* at = buffer.data(); at < buffer.data() + length;) {
            const auto& event = *reinterpret_cast<const inotify_event*>(at);
            changed = concernsTheDomain(event) || changed;
            at += sizeof(inotify_event) + event.len;
        }
    }
}

bool PreferenceDomainWatch::concernsTheDomain(const inotify_event& event) const {
    if ((event.mask & (IN_Q_OVERFLOW | IN_DELETE_SELF | IN_UNMOUNT)) != 0) {
        return true;
    }
    return event.len > 0 && std::ranges::any_of(files_, [&](const WatchedFile& file) {
               return file.folder == event.wd && file.name == event.name;
           });
}

} // namespace blankwell
