#include "updates/UpdateChoice.h"

#include "updates/VersionOrder.h"

#include <algorithm>

namespace blankwell {
namespace {

constexpr std::string_view ownSystem = "linux";

bool isSecure(std::string_view url) {
    constexpr std::string_view scheme = "https://";
    return url.size() > scheme.size() &&
           std::ranges::equal(url.substr(0, scheme.size()), scheme,
                              [](char character, char expected) {
                                  return character == expected || (character | 0x20) == expected;
                              });
}

bool isComplete(const AppcastItem& item) {
    return !item.version.empty() && isSecure(item.url) && item.length.value_or(0) > 0 &&
           !item.signature.empty();
}

bool fits(const AppcastItem& item, const UpdateTarget& target) {
    if (!item.operatingSystem.empty() && item.operatingSystem != ownSystem) {
        return false;
    }
    if (target.systemVersion.empty()) {
        return true;
    }
    const bool isTooOld = !item.minimumSystemVersion.empty() &&
                          isNewer(item.minimumSystemVersion, target.systemVersion);
    const bool isTooNew = !item.maximumSystemVersion.empty() &&
                          isNewer(target.systemVersion, item.maximumSystemVersion);
    return !isTooOld && !isTooNew;
}

bool isOffered(const AppcastItem& item, const UpdateTarget& target) {
    return isComplete(item) && item.channel.empty() && fits(item, target) &&
           isNewer(item.version, target.version);
}

} // namespace

std::optional<AppcastItem> chooseUpdate(const Appcast& feed, const UpdateTarget& target) {
    const AppcastItem* best = nullptr;
    for (const auto& item : feed) {
        if (isOffered(item, target) && (best == nullptr || isNewer(item.version, best->version))) {
            best = &item;
        }
    }
    return best == nullptr ? std::nullopt : std::optional(*best);
}

bool isCritical(const AppcastItem& item, std::string_view version) {
    return item.isCritical &&
           (item.criticalBefore.empty() || isNewer(item.criticalBefore, version));
}

} // namespace blankwell
