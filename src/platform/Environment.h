#pragma once

#include <optional>
#include <string>

namespace blankwell {

/// The variables that the process was started with.
class Environment {
public:
    virtual ~Environment() = default;

    [[nodiscard]] virtual std::optional<std::string> variable(const char* name) const = 0;
};

} // namespace blankwell
