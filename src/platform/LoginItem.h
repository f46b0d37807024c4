#pragma once

#include "platform/SystemError.h"

#include <expected>

namespace blankwell {

/// Whether the application starts by itself when the user logs in.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    /// As the next login will find it. The error says why that cannot be told.
    [[nodiscard]] virtual std::expected<bool, SystemError> isOn() const = 0;

    /// Lets it start at login. Nothing has changed where that fails.
    [[nodiscard]] virtual std::expected<void, SystemError> turnOn() = 0;

    /// Keeps it from starting at login. Nothing has changed where that fails.
    [[nodiscard]] virtual std::expected<void, SystemError> turnOff() = 0;
};

} // namespace blankwell
