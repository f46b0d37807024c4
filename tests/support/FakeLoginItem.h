#pragma once

#include "platform/LoginItem.h"

#include <optional>

namespace blankwell {

/// A login item that is off at first.
class FakeLoginItem : public LoginItem {
public:
    std::expected<bool, SystemError> isOn() const override {
        return failWith ? std::unexpected(*failWith) : std::expected<bool, SystemError>(on);
    }

    std::expected<void, SystemError> turnOn() override { return turn(true); }

    std::expected<void, SystemError> turnOff() override { return turn(false); }

    std::optional<SystemError> failWith;
    bool on = false;

private:
    std::expected<void, SystemError> turn(bool toOn) {
        if (failWith) {
            return std::unexpected(*failWith);
        }
        on = toOn;
        return {};
    }
};

} // namespace blankwell
