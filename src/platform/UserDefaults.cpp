#include "platform/UserDefaults.h"

#include "platform/Identifiers.h"

namespace blankwell {

std::vector<std::string> UserDefaults::keys(std::string_view prefix) const {
    std::vector<std::string> found;
    for (auto& entry : entries(prefix)) {
        found.push_back(std::move(entry.key));
    }
    return found;
}

UserDefaults& sharedDefaults(PreferenceDomains& domains) {
    auto* const suite = domains.suite(appGroupIdentifier);
    return suite != nullptr ? *suite : domains.standard();
}

} // namespace blankwell
