#include "shell/FileManager.h"

#include <algorithm>
#include <cstddef>

namespace blankwell {
namespace {

constexpr std::array infos{
    FileManagerInfo{FileManager::nautilus, "nautilus", "Files (Nautilus)", true, true},
    FileManagerInfo{FileManager::dolphin, "dolphin", "Dolphin", false, false},
    FileManagerInfo{FileManager::thunar, "thunar", "Thunar", true, false},
    FileManagerInfo{FileManager::nemo, "nemo", "Nemo", false, true},
    FileManagerInfo{FileManager::caja, "caja", "Caja", false, true},
    FileManagerInfo{FileManager::pcmanfmQt, "pcmanfm-qt", "PCManFM-Qt", true, false},
};

} // namespace

const FileManagerInfo& infoOf(FileManager manager) {
    return *std::ranges::find(infos, manager, &FileManagerInfo::manager);
}

std::optional<FileManager> fileManager(std::string_view id) {
    const auto* const found = std::ranges::find(infos, id, &FileManagerInfo::id);
    return found == infos.end() ? std::nullopt : std::optional(found->manager);
}

} // namespace blankwell
