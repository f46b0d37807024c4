#pragma once

#include "base/FileUrl.h"

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// What the application ships with: its resources and its Info.plist.
class Bundle {
public:
    virtual ~Bundle() = default;

    /// Where the bundle stands; the folder of the program where that is in none.
    [[nodiscard]] virtual FileUrl url() const = 0;

    /// The resource file `name`.`extension`, or nothing when the bundle has none.
    [[nodiscard]] virtual std::optional<FileUrl> resource(std::string_view name,
                                                          std::string_view extension) const = 0;

    /// The Info.plist's entry `key` as it stands; nothing where it is missing or not a string.
    [[nodiscard]] virtual std::optional<std::string> infoString(std::string_view key) const = 0;
};

} // namespace blankwell
