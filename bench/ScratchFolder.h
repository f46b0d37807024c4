#pragma once

#include "base/FileUrl.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace blankwell {

/// A new folder to measure in, deleted at the end of its life.
class ScratchFolder {
public:
    /// Made inside `parent`, which decides the file system.
    explicit ScratchFolder(const std::string& parent = "/var/tmp")
        : path_(parent + "/blankwell-bench-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no folder to measure in at " + parent);
        }
    }

    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

    [[nodiscard]] FileUrl url() const { return FileUrl(path_); }

    [[nodiscard]] std::string at(std::string_view name) const {
        return path_ + "/" + std::string(name);
    }

private:
    std::string path_;
};

} // namespace blankwell
