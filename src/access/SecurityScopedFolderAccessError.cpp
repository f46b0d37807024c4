#include "access/SecurityScopedFolderAccessError.h"

#include "base/Overloaded.h"

#include <fmt/core.h>

namespace blankwell {

std::string SecurityScopedFolderAccessError::description() const {
    return std::visit(
        Overloaded{
            [](const AccessCancelled& error) {
                return fmt::format(
                    "Blankwell+ needs access to {} before it can create files there.",
                    error.folder.lastPathComponent());
            },
            [](const WrongFolder& error) {
                return fmt::format("Please choose {} (or a folder that contains it), not {}.",
                                   error.asked.lastPathComponent(),
                                   error.chosen.lastPathComponent());
            },
            [](const BookmarkCreationFailed& error) { return error.underlying.description(); },
            [](const BookmarkResolutionFailed& error) { return error.underlying.description; },
            [](const NoSavedAccess& error) {
                return fmt::format("Blankwell+ does not have saved access to {}.",
                                   error.target.lastPathComponent());
            },
            [](const HomeFolderUnavailable&) -> std::string {
                return "Blankwell+ could not locate your home folder.";
            },
        },
        reason);
}

} // namespace blankwell
