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

    /// Whether the file manager `program` has the application's own extension, which the system
    /// brings.
    [[nodiscard]] virtual bool hasExtension(std::string_view program) const = 0;
};

} // namespace blankwell
