#pragma once

#include <string>
#include <utility>

namespace blankwell {

/// Codes of `SystemError::Domain::cocoa`: what the file and property-list services report.
/// Values as in Foundation's `FoundationErrors.h`.
enum class CocoaCode : int {
    fileNoSuchFile = 4,
    fileReadUnknown = 256,
    fileReadNoPermission = 257,
    fileReadCorruptFile = 259,
    fileWriteUnknown = 512,
    fileWriteNoPermission = 513,
    fileWriteFileExists = 516,
    fileWriteOutOfSpace = 640,
    fileWriteVolumeReadOnly = 642,
};

/// A failure that the platform reports: a number to decide by, and a sentence for the user.
struct SystemError {
    enum class Domain {
        /// `code` is a `CocoaCode`.
        cocoa,
        /// `code` is an `errno` value.
        posix,
    };

    Domain domain;
    int code;
    /// Complete and user-facing, shown and logged as it is.
    std::string description;

    [[nodiscard]] bool is(CocoaCode other) const {
        return domain == Domain::cocoa && code == static_cast<int>(other);
    }

    friend bool operator==(const SystemError&, const SystemError&) = default;
};

/// A `SystemError` of the Cocoa domain.
[[nodiscard]] inline SystemError cocoaError(CocoaCode code, std::string description) {
    return {SystemError::Domain::cocoa, static_cast<int>(code), std::move(description)};
}

} // namespace blankwell
