#pragma once

#include <string>
#include <string_view>

namespace blankwell {

/// A place in the file system, named by its path: the value that every part exchanges for files and
/// folders.
///
/// The path is a string of bytes as the file system takes it (no encoding is assumed) and carries
/// no trailing slash, except the root `/`. Two URLs are equal when their paths are; nothing here
/// looks at the disk or follows links.
class FileUrl {
public:
    explicit FileUrl(std::string path);

    [[nodiscard]] const std::string& path() const { return path_; }

    /// The same place with runs of `/` made one and `.` and `..` taken out by their text alone.
    [[nodiscard]] FileUrl standardized() const&;
    [[nodiscard]] FileUrl standardized() &&;

    /// Whether `standardized()` would change nothing.
    [[nodiscard]] bool isStandardized() const;

    /// What follows the last `/`; of the root, the slash itself.
    [[nodiscard]] std::string_view lastPathComponent() const;

    /// The place called `component` inside this folder.
    [[nodiscard]] FileUrl appending(std::string_view component) const;

    /// The folder that holds this place; the root holds itself.
    [[nodiscard]] FileUrl deletingLastPathComponent() const;

    friend bool operator==(const FileUrl& left, const FileUrl& right) {
        return left.path_ == right.path_;
    }

    friend std::strong_ordering operator<=>(const FileUrl& left, const FileUrl& right) {
        return left.path_ <=> right.path_;
    }

private:
    std::string path_;
    /// The path is known to be standardized already, which is asked for again and again on the way
    /// of a URL through the program.
    bool isKnownStandardized_ = false;
};

/// Whether access to `root` is access to `target`: the standardized paths are equal, or the
/// target's begins with the root's followed by `/`.
///
/// Literal, case-sensitive, links not followed. The root folder `/` covers only itself, since what
/// would have to begin a target is two slashes.
[[nodiscard]] bool covers(const FileUrl& root, const FileUrl& target);

} // namespace blankwell
