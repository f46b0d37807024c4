#include "platform/linux/ProcessEnvironment.h"

#include <cstdlib>

namespace blankwell {

std::optional<std::string> ProcessEnvironment::variable(const char* name) const {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

} // namespace blankwell
