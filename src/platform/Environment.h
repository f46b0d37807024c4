#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// The variables that the process was started with.
class Environment {
public:
    virtual ~Environment() = default;

    [[nodiscard]] virtual std::optional<std::string> variable(std::string_view name) const = 0;
};

} // namespace blankwell
