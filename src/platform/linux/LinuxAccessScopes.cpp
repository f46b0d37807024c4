#include "platform/linux/LinuxAccessScopes.h"

namespace blankwell {

void LinuxAccessScopes::admit(const FileUrl& url) {
    admitted_.insert(url.standardized());
}

bool LinuxAccessScopes::start(const FileUrl& url) {
    const auto folder = url.standardized();
    if (!admitted_.contains(folder)) {
        return false;
    }
    ++open_[folder];
    return true;
}

void LinuxAccessScopes::stop(const FileUrl& url) {
    const auto found = open_.find(url.standardized());
    if (found != open_.end() && --found->second == 0) {
        open_.erase(found);
    }
}

bool LinuxAccessScopes::isOpen(const FileUrl& target) const {
    return !openFoldersCovering(target).empty();
}

std::vector<FileUrl> LinuxAccessScopes::openFoldersCovering(const FileUrl& target) const {
    std::vector<FileUrl> folders;
    for (const auto& [folder, starts] : open_) {
        if (covers(folder, target)) {
            folders.push_back(folder);
        }
    }
    return folders;
}

} // namespace blankwell
