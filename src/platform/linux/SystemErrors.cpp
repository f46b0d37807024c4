#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>

#include <cerrno>
#include <optional>
#include <system_error>

namespace blankwell {
namespace {

std::optional<CocoaCode> cocoaCode(int number) {
    switch (number) {
    case ENOENT:
        return CocoaCode::fileNoSuchFile;
    case EACCES:
    case EPERM:
        return CocoaCode::fileWriteNoPermission;
    case EEXIST:
        return CocoaCode::fileWriteFileExists;
    case ENOSPC:
    case EDQUOT:
        return CocoaCode::fileWriteOutOfSpace;
    case EROFS:
        return CocoaCode::fileWriteVolumeReadOnly;
    default:
        return std::nullopt;
    }
}

} // namespace

SystemError posixError(int number, std::string_view what) {
    return {
        .domain = SystemError::Domain::posix,
        .code = number,
        .description = fmt::format("{}: {}.", what, std::generic_category().message(number)),
    };
}

SystemError fileError(int number, std::string_view what) {
    auto error = posixError(number, what);
    if (const auto code = cocoaCode(number)) {
        error.domain = SystemError::Domain::cocoa;
        error.code = static_cast<int>(*code);
    }
    return error;
}

} // namespace blankwell
