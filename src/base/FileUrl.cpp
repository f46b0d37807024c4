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

bool isStandardized(std::string_view path) {
    std::size_t start = 0;
    while (start < path.size()) {
        const auto end = std::min(path.find('/', start), path.size());
        const auto component = path.substr(start, end - start);
        const bool leadsAbsolutePath = start == 0 && component.empty();
        if ((component.empty() && !leadsAbsolutePath) || component == "." || component == "..") {
            return false;
        }
        start = end + 1;
    }
    return true;
}

} // namespace

FileUrl::FileUrl(std::string path) : path_(withoutTrailingSlashes(std::move(path))) {}

FileUrl FileUrl::standardized() const {
    if (isStandardized(path_)) {
        return *this;
    }
    const bool isAbsolute = path_.starts_with('/');
    std::vector<std::string_view> kept;
    const std::string_view path = path_;
    for (std::size_t start = 0; start < path.size();) {
        const auto end = std::min(path.find('/', start), path.size());
        const auto component = path.substr(start, end - start);
        start = end + 1;
        if (component.empty() || component == ".") {
            continue;
        }
        if (component != "..") {
            kept.push_back(component);
        } else if (!kept.empty() && kept.back() != "..") {
            kept.pop_back();
        } else if (!isAbsolute) {
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
    return FileUrl(std::move(result));
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
    return FileUrl(std::move(path));
}

FileUrl FileUrl::deletingLastPathComponent() const {
    const auto slash = path_.rfind('/');
    if (slash == std::string::npos) {
        return FileUrl("");
    }
    return FileUrl(path_.substr(0, std::max<std::size_t>(slash, 1)));
}

bool covers(const FileUrl& root, const FileUrl& target) {
    const auto rootPath = root.standardized().path();
    const auto targetPath = target.standardized().path();
    if (rootPath == targetPath) {
        return true;
    }
    return targetPath.size() > rootPath.size() && targetPath.starts_with(rootPath) &&
           targetPath[rootPath.size()] == '/' && !rootPath.ends_with('/');
}

} // namespace blankwell
