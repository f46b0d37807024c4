#pragma once

#include "base/FileUrl.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

namespace blankwell {

/// An empty folder on the disk, gone with everything in it at the end of this value's life.
class TemporaryFolder {
public:
    TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path().string()) {}

    /// Made inside `parent`, which decides the file system.
    explicit TemporaryFolder(const std::string& parent) : url_(make(parent)) {}

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(url_.path(), ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const FileUrl& url() const { return url_; }

    /// The place called `name` in it.
    [[nodiscard]] FileUrl at(std::string_view name) const { return url_.appending(name); }

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

    /// The contents of the file `name`, or "(none)".
    [[nodiscard]] std::string contents(std::string_view name) const {
        std::ifstream file(at(name).path(), std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(none)";
    }

private:
    static std::string make(const std::string& parent) {
        auto pattern = parent + "/blankwell-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), pattern);
        }
        return pattern;
    }

    FileUrl url_;
};

} // namespace blankwell
