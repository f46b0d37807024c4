#include "app/SystemSettingsPages.h"

#include "views/ExtensionStatusModel.h"

#include <algorithm>

namespace blankwell {

bool SystemSettingsPages::open(std::string_view url) {
    if (std::ranges::find(extensionSettingsURLs, url) != extensionSettingsURLs.end()) {
        return showExtensionPage_();
    }
    return desktop_.open(url);
}

} // namespace blankwell
