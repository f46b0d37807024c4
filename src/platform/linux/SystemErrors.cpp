#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>

#include <system_error>

namespace blankwell {

SystemError posixError(int number, std::string_view what) {
    return {
        .domain = SystemError::Domain::posix,
        .code = number,
        .description = fmt::format("{}: {}", what, std::generic_category().message(number)),
    };
}

} // namespace blankwell
