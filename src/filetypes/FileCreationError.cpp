#include "filetypes/FileCreationError.h"

#include "base/Overloaded.h"

#include <fmt/core.h>

#include <utility>

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

AlertContent creationFailedAlert(std::string reason) {
    return {
        .style = AlertContent::Style::warning,
        .messageText = "Could not create file",
        .informativeText = std::move(reason),
    };
}

} // namespace blankwell
