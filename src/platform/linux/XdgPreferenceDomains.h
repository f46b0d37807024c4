#pragma once

#include "platform/UserDefaults.h"
#include "platform/linux/PlistDomain.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// The folder that holds the preference domains: `configHome`, the value of XDG_CONFIG_HOME, or
/// ".config" in `home` where that is unset or no absolute path (XDG Base Directory Specification).
[[nodiscard]] std::string preferencesDirectory(std::optional<std::string_view> configHome,
                                               std::string_view home);

/// The preference domains of one user, a property list each in one folder. Touches nothing before a
/// domain is read.
class XdgPreferenceDomains : public PreferenceDomains {
public:
    /// The domains in `directory`, an absolute path; `standardName` is the application's own.
    XdgPreferenceDomains(std::string_view directory, std::string_view standardName);

    /// nullptr for a name that can name no file in a folder, and for the application's own domain.
    [[nodiscard]] UserDefaults* suite(std::string_view name) override;

    [[nodiscard]] UserDefaults& standard() override { return standard_; }

private:
    std::string directory_;
    std::string standardName_;
    PlistDomain standard_;
    std::map<std::string, PlistDomain, std::less<>> suites_;
};

} // namespace blankwell
