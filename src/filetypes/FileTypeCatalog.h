#pragma once

#include "filetypes/FileTypeDefinition.h"

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// The fixed list of the kinds of blank file that the system can create. Everything else names a
/// type by its `id` and comes here for the rest.
///
/// Made on first use and kept for the life of the process; references stay valid.
class FileTypeCatalog {
public:
    /// The sixteen definitions in their default order.
    [[nodiscard]] static std::span<const FileTypeDefinition> builtInTypes();

    /// The type with exactly this id, or nullptr.
    [[nodiscard]] static const FileTypeDefinition* definition(std::string_view id);

    /// All ids: every type is enabled until the user says otherwise.
    [[nodiscard]] static const std::set<std::string>& defaultEnabledIDs();

    /// All ids in the order of the list.
    [[nodiscard]] static const std::vector<std::string>& defaultOrder();
};

} // namespace blankwell
