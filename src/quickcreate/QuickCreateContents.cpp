#include "quickcreate/QuickCreateContents.h"

#include "quickcreate/DesktopCreationController.h"

#include <fmt/format.h>

#include <utility>

namespace blankwell {
namespace {

std::string placeOf(const DesktopCreationController& controller) {
    const auto mode = controller.destinationMode.get();
    // Which folder is in front is known only when a file is created.
    return mode == CreationDestinationMode::desktop ? controller.desktopFolderURL().path()
                                                    : std::string(title(mode));
}

} // namespace

DestinationLabel destinationLabel(CreationDestinationMode mode) {
    switch (mode) {
    case CreationDestinationMode::desktop:
        return {.title = "Desktop", .symbol = "desktopcomputer"};
    case CreationDestinationMode::frontFinderFolder:
        return {.title = "Finder Folder", .symbol = "folder"};
    }
    return {};
}

std::vector<QuickCreateSection> quickCreateSections(const DesktopCreationController& controller) {
    std::vector<QuickCreateSection> sections;
    for (const auto category : allFileTypeCategories) {
        if (auto types = controller.types(category); !types.empty()) {
            sections.push_back({.title = rawValue(category), .types = std::move(types)});
        }
    }
    return sections;
}

std::optional<FileTypeDefinition> firstType(const std::vector<QuickCreateSection>& sections) {
    return sections.empty() ? std::nullopt : std::optional(sections.front().types.front());
}

QuickCreateFooter quickCreateFooter(const DesktopCreationController& controller) {
    const auto label = destinationLabel(controller.destinationMode.get());
    return {
        .symbol = std::string(label.symbol),
        .firstLine = controller.statusMessage.get().value_or(std::string(label.title)),
        .secondLine = placeOf(controller),
    };
}

std::string tileName(const FileTypeDefinition& type) {
    return fmt::format("{}, .{}", type.displayName, type.fileExtension);
}

} // namespace blankwell
