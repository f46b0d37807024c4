#pragma once

#include <string_view>

namespace blankwell {

/// Which other programs this system has.
class InstalledPrograms {
public:
    virtual ~InstalledPrograms() = default;

    /// Whether `program` can be started by its name.
    [[nodiscard]] virtual bool has(std::string_view program) const = 0;

    /// Whether Nautilus takes extensions in Python, which a package of its own lets it do.
    [[nodiscard]] virtual bool nautilusTakesPython() const = 0;
};

} // namespace blankwell
