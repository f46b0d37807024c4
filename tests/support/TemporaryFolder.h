#pragma once

#include "base/FileUrl.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace blankwell {

/// An empty folder on the disk, gone with everything in it at the end of this value's life.
class TemporaryFolder {
public:
    TemporaryFolder() = default;

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(url_.path(), ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const FileUrl& url() const { return url_; }

    /// Makes the file `name`, and the folders that `name` leads through.
    FileUrl addFile(std::string_view name, std::string_view contents = "") const {
        const auto file = url_.appending(name);
        std::filesystem::create_directories(file.deletingLastPathComponent().path());
        std::ofstream(file.path(), std::ios::binary) << contents;
        return file;
    }

    /// Makes the folder `name`, and those that it leads through.
    FileUrl addFolder(std::string_view name) const {
        const auto folder = url_.appending(name);
        std::filesystem::create_directories(folder.path());
        return folder;
    }

private:
    static std::string make() {
        auto pattern = (std::filesystem::temp_directory_path() / "blankwell-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), pattern);
        }
        return pattern;
    }

    FileUrl url_{make()};
};

} // namespace blankwell
