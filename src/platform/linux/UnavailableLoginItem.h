#pragma once

#include "platform/LoginItem.h"

#include <cerrno>

namespace blankwell {

/// The login item of a program that cannot reach the user's session: in a sandbox, where the
/// folder that the session reads is another one.
class UnavailableLoginItem : public LoginItem {
public:
    [[nodiscard]] std::expected<bool, SystemError> isOn() const override { return failure(); }

    [[nodiscard]] std::expected<void, SystemError> turnOn() override { return failure(); }

    [[nodiscard]] std::expected<void, SystemError> turnOff() override { return failure(); }

private:
    static std::unexpected<SystemError> failure() {
        return std::unexpected(
            SystemError{SystemError::Domain::posix, ENOTSUP,
                        "What starts at login cannot be seen or changed from inside a sandbox."});
    }
};

} // namespace blankwell
