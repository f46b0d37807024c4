#include "filetypes/FileCreationError.h"

#include "base/Overloaded.h"

#include <fmt/core.h>

namespace blankwell {

std::string FileCreationError::description() const {
    return std::visit(
        Overloaded{
            [](const TemplateMissing& error) {
                return fmt::format("Could not find bundled template \"{}\".", error.resourceName);
            },
            [](const WriteFailed& error) { return error.underlying.description; },
            [](const InvalidFileName&) -> std::string { return "Please enter a valid file name."; },
        },
        reason);
}

} // namespace blankwell
