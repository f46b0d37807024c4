#pragma once

#include "platform/InstalledPrograms.h"

namespace blankwell {

class Environment;

/// Programs in the folders of `PATH`.
class PathPrograms : public InstalledPrograms {
public:
    /// `environment` must outlive this object.
    explicit PathPrograms(const Environment& environment) : environment_(environment) {}

    [[nodiscard]] bool has(std::string_view program) const override;
    [[nodiscard]] bool nautilusTakesPython() const override;
    [[nodiscard]] bool hasExtension(std::string_view program) const override;

private:
    const Environment& environment_;
};

} // namespace blankwell
