#pragma once

#include "platform/Application.h"

namespace blankwell {

/// A program without windows: never in front, with nothing to bring there or to close.
class NoApplication : public Application {
public:
    [[nodiscard]] bool isActive() const override { return false; }

    void activate() override {}

    void closeWindows(std::string_view /*title*/) override {}
};

} // namespace blankwell
