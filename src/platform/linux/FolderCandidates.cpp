#include "platform/linux/FolderCandidates.h"

#include <algorithm>
#include <filesystem>

namespace blankwell {
namespace {

namespace fs = std::filesystem;

using Folders = std::vector<FileUrl>;

/// How many entries of one folder are looked at; more than a user keeps in view.
constexpr std::size_t mostEntries = 2048;

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

Folders visibleFolders(const FileUrl& parent) {
    Folders folders;
    std::error_code error;
    fs::directory_iterator entry(parent.path(), error);
    for (std::size_t seen = 0; !error && entry != fs::directory_iterator() && seen < mostEntries;
         ++seen, entry.increment(error)) {
        const bool isHidden = entry->path().filename().native().starts_with('.');
        if (std::error_code ignored; !isHidden && entry->is_directory(ignored)) {
            folders.emplace_back(entry->path().native());
        }
    }
    std::ranges::sort(folders);
    return folders;
}

void append(Folders& folders, const Folders& more) {
    folders.insert(folders.end(), more.begin(), more.end());
}

Folders withoutRepetitions(const Folders& folders) {
    Folders result;
    for (const auto& folder : folders) {
        if (std::ranges::find(result, folder) == result.end()) {
            result.push_back(folder);
        }
    }
    return result;
}

/// `known` in one list: what stands for itself.
Folders places(const KnownFolders& known) {
    Folders result{known.home};
    append(result, known.favourites);
    result.emplace_back("/");
    for (const auto& parent : known.volumes) {
        append(result, visibleFolders(parent));
    }
    return result;
}

Folders parentsOfNamed(const KnownFolders& known) {
    auto parents = places(known);
    append(parents, visibleFolders(known.home));
    for (const auto& favourite : known.favourites) {
        append(parents, visibleFolders(favourite));
    }
    return withoutRepetitions(parents);
}

} // namespace

std::vector<FileUrl> folderCandidates(std::string_view name, const KnownFolders& known) {
    Folders candidates;
    if (!name.empty() && !name.contains('/')) {
        for (const auto& parent : parentsOfNamed(known)) {
            if (auto named = parent.appending(name); isFolder(named.path())) {
                candidates.push_back(std::move(named));
            }
        }
    }
    append(candidates, places(known));
    return withoutRepetitions(candidates);
}

} // namespace blankwell
