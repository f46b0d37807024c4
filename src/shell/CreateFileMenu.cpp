#include "shell/CreateFileMenu.h"

#include <algorithm>
#include <array>
#include <utility>

namespace blankwell {
namespace {

struct TypeIcon {
    std::string_view typeID;
    std::string_view icon;
};

constexpr std::array icons{
    TypeIcon{"rtf", "x-office-document"},
    TypeIcon{"csv", "x-office-spreadsheet"},
    TypeIcon{"html", "text-html"},
    TypeIcon{"js", "text-x-script"},
    TypeIcon{"sh", "text-x-script"},
    TypeIcon{"py", "text-x-script"},
    TypeIcon{"swift", "text-x-script"},
    TypeIcon{"docx", "x-office-document"},
    TypeIcon{"xlsx", "x-office-spreadsheet"},
    TypeIcon{"pptx", "x-office-presentation"},
};

} // namespace

CreateFileMenu createFileMenu(std::span<const FileTypeDefinition> enabledTypes) {
    CreateFileMenu menu;
    for (const auto category : allFileTypeCategories) {
        std::vector<FileTypeDefinition> group;
        std::ranges::copy_if(
            enabledTypes, std::back_inserter(group),
            [&](const FileTypeDefinition& type) { return type.category == category; });
        if (!group.empty()) {
            menu.push_back(std::move(group));
        }
    }
    return menu;
}

std::vector<FileTypeDefinition> typesOf(const CreateFileMenu& menu) {
    std::vector<FileTypeDefinition> types;
    for (const auto& group : menu) {
        types.insert(types.end(), group.begin(), group.end());
    }
    return types;
}

std::string_view themeIconName(const FileTypeDefinition& type) {
    const auto* const found = std::ranges::find(icons, type.id, &TypeIcon::typeID);
    return found == icons.end() ? "text-x-generic" : found->icon;
}

} // namespace blankwell
