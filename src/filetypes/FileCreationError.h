#pragma once

#include "platform/Alert.h"
#include "platform/SystemError.h"

#include <string>
#include <variant>

namespace blankwell {

/// Why a file was not created.
struct FileCreationError {
    /// The application lacks the template of an office type.
    struct TemplateMissing {
        /// The file name that was looked for.
        std::string resourceName;

        friend bool operator==(const TemplateMissing&, const TemplateMissing&) = default;
    };

    /// The system refused, for the reason it gave.
    struct WriteFailed {
        SystemError underlying;

        friend bool operator==(const WriteFailed&, const WriteFailed&) = default;
    };

    /// A name that the user gave cannot name a file. The creator chooses its names itself and never
    /// fails with this.
    struct InvalidFileName {
        friend bool operator==(const InvalidFileName&, const InvalidFileName&) = default;
    };

    std::variant<TemplateMissing, WriteFailed, InvalidFileName> reason;

    /// The text for the user.
    [[nodiscard]] std::string description() const;

    friend bool operator==(const FileCreationError&, const FileCreationError&) = default;
};

/// What tells the user that a file was not created; `reason` is a text for the user.
[[nodiscard]] AlertContent creationFailedAlert(std::string reason);

} // namespace blankwell
