#include "views/ExtensionStatusModel.h"

#include "platform/Workspace.h"

#include <algorithm>

namespace blankwell {

void ExtensionStatusModel::openExtensionSettings() {
    static_cast<void>(std::ranges::any_of(
        extensionSettingsURLs, [this](std::string_view url) { return workspace_.open(url); }));
}

} // namespace blankwell
