#include "platform/linux/FolderTitles.h"

namespace blankwell {
namespace {

constexpr std::string_view thunarSuffix = " - Thunar";

std::optional<FileUrl> existing(std::string_view path, const IsFolder& isFolder) {
    const FileUrl folder{std::string(path)};
    return path.starts_with('/') && isFolder(folder) ? std::optional(folder) : std::nullopt;
}

} // namespace

std::optional<FileUrl> folderInThunarTitle(std::string_view title, const IsFolder& isFolder) {
    const auto whole = existing(title, isFolder);
    const auto shortened =
        title.ends_with(thunarSuffix) ? existing(nameInThunarTitle(title), isFolder) : std::nullopt;
    // Where both are there, the title does not say which of them is shown.
    if (whole && shortened) {
        return std::nullopt;
    }
    return whole ? whole : shortened;
}

std::string_view nameInThunarTitle(std::string_view title) {
    return title.ends_with(thunarSuffix) ? title.substr(0, title.size() - thunarSuffix.size())
                                         : title;
}

std::optional<FileUrl> folderInNemoTitle(std::string_view title, const IsFolder& isFolder) {
    // No name holds a slash, so the first one begins the path.
    const auto start = title.find('/');
    if (start == std::string_view::npos || !title.substr(0, start).ends_with(" - ")) {
        return std::nullopt;
    }
    return existing(title.substr(start), isFolder);
}

std::string_view captionOfDolphinTitle(std::string_view title) {
    return title.substr(0, title.rfind(" — "));
}

} // namespace blankwell
