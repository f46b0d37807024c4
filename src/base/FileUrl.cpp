#include "base/FileUrl.h"

#include <utility>
#include <vector>

namespace blankwell {
namespace {

std::string withoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && path.back() == '/') {
        path.pop_back();
    }
    return path;
}

/// Whether a component of dots, or none, follows the slash at `slash`.
bool isFollowedByDots(std::string_view path, std::size_t slash) {
    auto end = slash + 1;
    while (end < path.size() && end - slash <= 2 && path[end] == '.') {
        ++end;
    }
    return end == path.size() || path[end] == '/';
}

bool hasNothingToStandardize(std::string_view path) {
    if (path.size() <= 1) {
        return path != ".";
    }
    if (!path.starts_with('/')) {
        return false; // seldom, and not worth a second rule
    }
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] == '/' && isFollowedByDots(path, i)) {
            return false;
        }
    }
    return true;
}

std::string standardizedPath(std::string_view path) {
    const bool isAbsolute = path.starts_with('/');
    std::vector<std::string_view> kept;
    for (std::size_t start = 0; start < path.size();) {
        const auto end = std::min(path.find('/', start), path.size());
        const auto component = path.substr(start, end - start);
        start = end + 1;
        if (component.empty() || component == ".") {
            continue;
        }
        if (component == ".." && !kept.empty() && kept.back() != "..") {
            kept.pop_back();
        } else if (component != ".." || !isAbsolute) {
            kept.push_back(component);
        }
    }
    std::string result = isAbsolute ? "/" : "";
    for (const auto component : kept) {
        if (!result.empty() && result.back() != '/') {
            result += '/';
        }
        result += component;
    }
    return result;
}

/// Whether `component` stands in a standardized path as it is.
bool isPlainName(std::string_view component) {
    return !component.empty() && component != "." && component != ".." && !component.contains('/');
}

/// `covers` for standardized paths.
bool isAtOrBelow(std::string_view root, std::string_view target) {
    return target.starts_with(root) &&
           (target.size() == root.size() || (target[root.size()] == '/' && !root.ends_with('/')));
}

} // namespace

FileUrl::FileUrl(std::string path) : path_(withoutTrailingSlashes(std::move(path))) {}

FileUrl FileUrl::standardized() const& {
    return FileUrl(*this).standardized();
}

FileUrl FileUrl::standardized() && {
    if (!isStandardized()) {
        path_ = standardizedPath(path_);
    }
    isKnownStandardized_ = true;
    return std::move(*this);
}

bool FileUrl::isStandardized() const {
    return isKnownStandardized_ || hasNothingToStandardize(path_);
}

std::string_view FileUrl::lastPathComponent() const {
    const std::string_view path = path_;
    return path.size() <= 1 ? path : path.substr(path.rfind('/') + 1);
}

FileUrl FileUrl::appending(std::string_view component) const {
    std::string path;
    path.reserve(path_.size() + 1 + component.size());
    path += path_;
    if (!path.ends_with('/')) {
        path += '/';
    }
    path += component;
    FileUrl url(std::move(path));
    url.isKnownStandardized_ = isKnownStandardized_ && isPlainName(component);
    return url;
}

FileUrl FileUrl::deletingLastPathComponent() const {
    const auto slash = path_.rfind('/');
    if (slash == std::string::npos) {
        return FileUrl("");
    }
    FileUrl folder(path_.substr(0, std::max<std::size_t>(slash, 1)));
    folder.isKnownStandardized_ = isKnownStandardized_;
    return folder;
}

bool covers(const FileUrl& root, const FileUrl& target) {
    if (root.isStandardized() && target.isStandardized()) {
        return isAtOrBelow(root.path(), target.path());
    }
    return isAtOrBelow(root.standardized().path(), target.standardized().path());
}

} // namespace blankwell
