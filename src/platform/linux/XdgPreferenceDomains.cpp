#include "platform/linux/XdgPreferenceDomains.h"

#include "platform/linux/FileName.h"

#include <fmt/core.h>

#include <climits>

namespace blankwell {
namespace {

/// With this much less than the file system's limit there is room for the names beside the domain's
/// file, of which ".plist.damaged-N" is the longest.
constexpr std::size_t longestName = NAME_MAX - std::string_view(".plist.damaged-99999").size();

bool canNameADomain(std::string_view name) {
    return isFileName(name) && name.size() <= longestName;
}

} // namespace

std::string preferencesDirectory(std::optional<std::string_view> configHome,
                                 std::string_view home) {
    const bool isUsable = configHome && configHome->starts_with('/');
    return isUsable ? std::string(*configHome) : fmt::format("{}/.config", home);
}

XdgPreferenceDomains::XdgPreferenceDomains(std::string_view directory,
                                           std::string_view standardName)
    : directory_(directory), standardName_(standardName), standard_(directory, standardName) {}

UserDefaults* XdgPreferenceDomains::suite(std::string_view name) {
    if (name == standardName_ || !canNameADomain(name)) {
        return nullptr;
    }
    if (const auto opened = suites_.find(name); opened != suites_.end()) {
        return &opened->second;
    }
    return &suites_.try_emplace(std::string(name), directory_, name).first->second;
}

} // namespace blankwell
