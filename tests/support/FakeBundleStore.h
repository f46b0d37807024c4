#pragma once

#include "platform/BundleStore.h"

#include <fmt/core.h>

#include <cerrno>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace blankwell {

/// Bundles that are no more than remembered.
class FakeBundleStore : public BundleStore {
public:
    bool stands(const FileUrl& url) const override { return identities_.contains(url); }

    std::optional<std::string> identity(const FileUrl& url) const override {
        const auto found = identities_.find(url);
        return found == identities_.end() ? std::nullopt : std::optional(found->second);
    }

    std::expected<FileUrl, SystemError> copyInto(const FileUrl& folder,
                                                 const FileUrl& bundle) override {
        auto place = folder.appending(bundle.lastPathComponent());
        if (place == bundle) {
            return place;
        }
        if (failWith) {
            return std::unexpected(*failWith);
        }
        if (covers(bundle, folder)) {
            return failure(EINVAL, "A bundle is not copied into itself.");
        }
        if (strangers.contains(place)) {
            return failure(EEXIST, "Something else stands there.");
        }
        add(place);
        return place;
    }

    /// A bundle that stands at `url` from now on.
    void add(const FileUrl& url) { identities_[url] = fmt::format("bundle {}", ++made_); }

    void remove(const FileUrl& url) { identities_.erase(url); }

    void move(const FileUrl& from, const FileUrl& to) {
        identities_[to] = identities_.at(from);
        identities_.erase(from);
    }

    /// What is no bundle of ours.
    std::set<FileUrl> strangers;
    std::optional<SystemError> failWith;

private:
    static std::unexpected<SystemError> failure(int number, const char* description) {
        return std::unexpected(SystemError{SystemError::Domain::posix, number, description});
    }

    std::map<FileUrl, std::string> identities_;
    int made_ = 0;
};

} // namespace blankwell
