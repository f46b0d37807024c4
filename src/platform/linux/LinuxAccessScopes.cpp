#include "platform/linux/LinuxAccessScopes.h"

namespace blankwell {
namespace {

/// Calls `work` with `url` as it is standardized, without a copy where it already is.
template <typename Work>
auto withStandardized(const FileUrl& url, Work work) {
    return url.isStandardized() ? work(url) : work(url.standardized());
}

} // namespace

void LinuxAccessScopes::admit(const FileUrl& url) {
    withStandardized(url, [this](const FileUrl& folder) { openings_.try_emplace(folder, 0); });
}

bool LinuxAccessScopes::start(const FileUrl& url) {
    return withStandardized(url, [this](const FileUrl& folder) {
        const auto found = openings_.find(folder);
        if (found == openings_.end()) {
            return false;
        }
        ++found->second;
        return true;
    });
}

void LinuxAccessScopes::stop(const FileUrl& url) {
    withStandardized(url, [this](const FileUrl& folder) {
        const auto found = openings_.find(folder);
        if (found != openings_.end() && found->second > 0) {
            --found->second;
        }
    });
}

bool LinuxAccessScopes::isOpen(const FileUrl& target) const {
    return !openFoldersCovering(target).empty();
}

std::vector<FileUrl> LinuxAccessScopes::openFoldersCovering(const FileUrl& target) const {
    std::vector<FileUrl> folders;
    for (const auto& [folder, openings] : openings_) {
        if (openings > 0 && covers(folder, target)) {
            folders.push_back(folder);
        }
    }
    return folders;
}

} // namespace blankwell
