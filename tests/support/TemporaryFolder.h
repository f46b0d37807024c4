#pragma once

#include "base/FileUrl.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace blankwell {

/// A new folder on the disk, removed with all that is in it at the end of its life.
class TemporaryFolder {
public:
    /// Made inside `parent`, which decides the file system.
    explicit TemporaryFolder(const std::string& parent = std::filesystem::temp_directory_path()) {
        auto pattern = parent + "/blankwell-test-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder in " + parent);
        }
        path_ = pattern;
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

    [[nodiscard]] FileUrl url() const { return FileUrl(path_.string()); }

    /// The place called `name` in it.
    [[nodiscard]] FileUrl at(std::string_view name) const { return url().appending(name); }

    void addFile(std::string_view name, std::string_view contents = "") const {
        std::ofstream(path_ / name, std::ios::binary) << contents;
    }

    void addFolder(std::string_view name) const {
        std::filesystem::create_directories(path_ / name);
    }

    /// The contents of a file, or "(none)".
    [[nodiscard]] std::string contents(std::string_view name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(none)";
    }

private:
    std::filesystem::path path_;
};

} // namespace blankwell
