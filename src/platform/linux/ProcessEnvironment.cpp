#include "platform/linux/ProcessEnvironment.h"

#include <cstdlib>

namespace blankwell {

std::optional<std::string> ProcessEnvironment::variable(std::string_view name) const {
    const char* const value = std::getenv(std::string(name).c_str());
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

} // namespace blankwell
