#pragma once

#include "filetypes/FileTypeDefinition.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// The title of the submenu in menus of file managers.
inline constexpr std::string_view createFileMenuTitle = "Create File";

/// The menu "Create File" of a file manager: the types in groups of one category each, none empty.
using CreateFileMenu = std::vector<std::vector<FileTypeDefinition>>;

/// The menu of `enabledTypes`, which are in the user's order, grouped as in the status menu.
[[nodiscard]] CreateFileMenu createFileMenu(std::span<const FileTypeDefinition> enabledTypes);

/// All types of `menu`, from top to bottom.
[[nodiscard]] std::vector<FileTypeDefinition> typesOf(const CreateFileMenu& menu);

/// The icon of a file of `type`, by a name that every icon theme has.
[[nodiscard]] std::string_view themeIconName(const FileTypeDefinition& type);

} // namespace blankwell
