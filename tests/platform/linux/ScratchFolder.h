#pragma once

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace blankwell {

/// A temporary folder that every user may enter, and what happens to folders in it, by their paths.
class ScratchFolder {
public:
    /// Where the disk is, for what must survive a restart.
    static constexpr std::string_view onDisk = "/var/tmp";
    /// A tmpfs.
    static constexpr std::string_view inMemory = "/dev/shm";

    explicit ScratchFolder(std::string_view parent) : folder_(std::string(parent)) {
        openToAll(path());
    }

    [[nodiscard]] const std::string& path() const { return folder_.url().path(); }

    [[nodiscard]] std::string at(std::string_view relative) const {
        return path() + "/" + std::string(relative);
    }

    /// Makes the folders of `relative`, writable for all, and returns the path of the last.
    std::string makeFolder(std::string_view relative) const {
        std::filesystem::create_directories(at(relative));
        for (auto folder = std::filesystem::path(at(relative)); folder != path();
             folder = folder.parent_path()) {
            openToAll(folder);
        }
        return at(relative);
    }

    std::string makeFile(std::string_view relative) const {
        return folder_.addFile(relative, "contents").path();
    }

    void rename(std::string_view from, std::string_view to) const {
        std::filesystem::rename(at(from), at(to));
    }

    void remove(std::string_view relative) const { std::filesystem::remove_all(at(relative)); }

    void link(std::string_view relative, std::string_view target) const {
        remove(relative);
        std::filesystem::create_directory_symlink(target, at(relative));
    }

private:
    static void openToAll(const std::filesystem::path& folder) {
        std::filesystem::permissions(folder, std::filesystem::perms::all);
    }

    TemporaryFolder folder_;
};

} // namespace blankwell
