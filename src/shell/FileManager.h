#pragma once

#include "platform/FileManager.h"

#include <array>
#include <optional>
#include <string_view>

namespace blankwell {

inline constexpr std::array allFileManagers{
    FileManager::nautilus, FileManager::dolphin, FileManager::thunar,
    FileManager::nemo,     FileManager::caja,    FileManager::pcmanfmQt,
};

/// What is known of a file manager beforehand.
struct FileManagerInfo {
    FileManager manager;
    /// In commands and settings: the name of its program.
    std::string_view id;
    /// As its users know it.
    std::string_view name;
    /// It reads its menu at its start only.
    bool mustRestart;
    /// There is an extension of the application's own for it.
    bool canHaveExtension;
};

[[nodiscard]] const FileManagerInfo& infoOf(FileManager manager);

/// The file manager with exactly this id.
[[nodiscard]] std::optional<FileManager> fileManager(std::string_view id);

} // namespace blankwell
