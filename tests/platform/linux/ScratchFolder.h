#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace blankwell {

/// A new folder that every user may enter, deleted with all it holds at the end of its life.
class ScratchFolder {
public:
    /// Where the disk is, for what must survive a restart.
    static constexpr std::string_view onDisk = "/var/tmp";
    /// A tmpfs.
    static constexpr std::string_view inMemory = "/dev/shm";

    explicit ScratchFolder(std::string_view parent)
        : path_(std::string(parent) + "/blankwell-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no scratch folder in " + std::string(parent));
        }
        openToAll(path_);
    }

    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

    [[nodiscard]] std::string at(std::string_view relative) const {
        return path_ + "/" + std::string(relative);
    }

    /// Makes the folders of `relative`, writable for all, and returns the path of the last.
    std::string makeFolder(std::string_view relative) const {
        std::filesystem::create_directories(at(relative));
        for (auto folder = std::filesystem::path(at(relative)); folder != path_;
             folder = folder.parent_path()) {
            openToAll(folder);
        }
        return at(relative);
    }

    std::string makeFile(std::string_view relative) const {
        std::ofstream(at(relative)) << "contents";
        return at(relative);
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

    std::string path_;
};

} // namespace blankwell
