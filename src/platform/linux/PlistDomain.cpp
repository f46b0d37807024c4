#include "platform/linux/PlistDomain.h"

#include "platform/linux/FileLock.h"
#include "platform/linux/FileReplacement.h"
#include "platform/linux/PrivateFolder.h"
#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>

#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <utility>

namespace blankwell {
namespace {

/// What `path` points to if it is a link, else nothing.
std::expected<std::optional<std::string>, int> linkTarget(const std::string& path) {
    std::array<char, PATH_MAX> buffer{};
    const auto length = ::readlink(path.c_str(), buffer.data(), buffer.size());
    if (length < 0) {
        const bool isNoLink = errno == EINVAL || errno == ENOENT;
        return isNoLink ? std::expected<std::optional<std::string>, int>(std::nullopt)
                        : std::unexpected(errno);
    }
    const std::string target(buffer.data(), static_cast<std::size_t>(length));
    return target.starts_with('/') ? target : path.substr(0, path.find_last_of('/') + 1) + target;
}

/// The path that writing to `path` leads to, whether there is a file yet or not.
std::expected<std::string, int> resolved(std::string path) {
    constexpr int mostLinks = 40; // as the kernel
    for (int links = 0; links <= mostLinks; ++links) {
        auto target = linkTarget(path);
        if (!target) {
            return std::unexpected(target.error());
        }
        if (!*target) {
            return path;
        }
        path = **std::move(target);
    }
    return std::unexpected(ELOOP);
}

/// Gives the file `path` a second name that no file has yet.
std::expected<void, int> keepAside(const std::string& path) {
    for (int number = 1;; ++number) {
        if (::link(path.c_str(), fmt::format("{}.damaged-{}", path, number).c_str()) == 0) {
            return {};
        }
        if (errno != EEXIST) {
            return std::unexpected(errno);
        }
    }
}

} // namespace

PlistDomain::PlistDomain(std::string_view directory, std::string_view name)
    : directory_(directory), path_(fmt::format("{}/{}.plist", directory, name)) {}

std::optional<PropertyValue> PlistDomain::value(std::string_view key) const {
    const auto* const found = refresh() ? list_.find(key) : nullptr;
    return found == nullptr ? std::nullopt : std::optional(*found);
}

std::vector<PropertyEntry> PlistDomain::entries(std::string_view prefix) const {
    return refresh() ? list_.entries(prefix) : std::vector<PropertyEntry>();
}

std::expected<void, SystemError> PlistDomain::set(std::string_view key, PropertyValue value) {
    return change(key, std::move(value));
}

std::expected<void, SystemError> PlistDomain::remove(std::string_view key) {
    return change(key, std::nullopt);
}

/// Brings `list_` up to date. On an error it is empty: the file is there but cannot be read.
std::expected<void, int> PlistDomain::refresh() const {
    if (snapshot_ && snapshot_->isCurrent(path_)) {
        return {};
    }
    snapshot_.reset();
    list_ = {};
    isDamaged_ = false;
    auto snapshot = FileSnapshot::open(path_);
    if (!snapshot) {
        return snapshot.error() == ENOENT ? std::expected<void, int>()
                                          : std::unexpected(snapshot.error());
    }
    const auto document = snapshot->contents(PropertyList::largestSize + 1);
    if (!document) {
        return std::unexpected(document.error());
    }
    auto list = PropertyList::parse(*document);
    isDamaged_ = !list;
    list_ = std::move(list).value_or(PropertyList());
    snapshot_ = *std::move(snapshot);
    return {};
}

bool PlistDomain::grants(std::string_view key, const Wish& wish) const {
    if (!wish) {
        return !list_.contains(key);
    }
    const auto* const found = list_.find(key);
    return found != nullptr && *found == *wish;
}

std::expected<void, SystemError> PlistDomain::change(std::string_view key, const Wish& wish) {
    if (const auto fresh = refresh(); !fresh) {
        return std::unexpected(readError(fresh.error()));
    }
    if (grants(key, wish)) {
        return {};
    }
    if (const auto folder = makePrivateFolder(directory_); !folder) {
        return std::unexpected(saveError(folder.error()));
    }
    const auto target = resolved(path_);
    if (!target) {
        return std::unexpected(saveError(target.error()));
    }
    const auto lock = FileLock::acquire(*target + ".lock");
    if (!lock) {
        return std::unexpected(saveError(lock.error()));
    }
    return changeLocked(key, wish, *target);
}

std::expected<void, SystemError> PlistDomain::changeLocked(std::string_view key, const Wish& wish,
                                                           const std::string& target) {
    if (const auto fresh = refresh(); !fresh) {
        return std::unexpected(readError(fresh.error()));
    }
    auto changed = list_;
    if (wish) {
        changed.set(key, *wish);
    } else {
        changed.remove(key);
    }
    const auto document = changed.xml();
    if (!document) {
        return std::unexpected(saveError(document.error().code));
    }
    if (const auto replaced = replace(target, *document); !replaced) {
        return std::unexpected(saveError(replaced.error()));
    }
    return {};
}

std::expected<void, int> PlistDomain::replace(const std::string& target,
                                              std::string_view document) const {
    auto replacement = FileReplacement::prepare(target, document);
    if (!replacement) {
        return std::unexpected(replacement.error());
    }
    if (isDamaged_) {
        if (const auto kept = keepAside(target); !kept) {
            return kept;
        }
    }
    return replacement->commit();
}

SystemError PlistDomain::readError(int number) const {
    return posixError(number, fmt::format("Could not read the settings in {}", path_));
}

SystemError PlistDomain::saveError(int number) const {
    return posixError(number, fmt::format("Could not save the settings in {}", path_));
}

} // namespace blankwell
