#include "platform/UserDefaults.h"

#include "platform/Identifiers.h"

namespace blankwell {

UserDefaults& sharedDefaults(PreferenceDomains& domains) {
    auto* const suite = domains.suite(appGroupIdentifier);
    return suite != nullptr ? *suite : domains.standard();
}

} // namespace blankwell
