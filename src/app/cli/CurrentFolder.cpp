#include "app/cli/CurrentFolder.h"

#include "platform/Environment.h"

#include <filesystem>
#include <system_error>

namespace blankwell::cli {

std::optional<FileUrl> currentFolder(const Environment& environment) {
    std::error_code error;
    const auto way = environment.variable("PWD");
    if (way && way->starts_with('/') && std::filesystem::equivalent(*way, ".", error) && !error) {
        return FileUrl(*way).standardized();
    }
    const auto path = std::filesystem::current_path(error);
    return error ? std::nullopt : std::optional(FileUrl(path.string()));
}

} // namespace blankwell::cli
