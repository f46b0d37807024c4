#pragma once

#include "platform/SessionApplication.h"

#include <cerrno>
#include <optional>
#include <utility>

namespace blankwell {

/// An application that takes what it is asked, unless told to fail: by not running, or by not
/// answering.
class FakeSessionApplication : public SessionApplication {
public:
    Taken activate() override { return take("activate"); }

    Taken open(const std::vector<std::string>& urls) override {
        std::string request = "open";
        for (const auto& url : urls) {
            request += " " + url;
        }
        return take(std::move(request));
    }

    Taken activateAction(std::string_view action) override {
        return take("action " + std::string(action));
    }

    std::expected<void, SystemError> quit() override {
        if (!failWith) {
            taken.emplace_back("quit");
        } else if (failWith->request == HandOverFailure::Request::unknown) {
            return std::unexpected(
                SystemError{SystemError::Domain::posix, ETIMEDOUT, failWith->description});
        }
        return {};
    }

    std::optional<HandOverFailure> failWith;
    /// What it was asked and has taken.
    std::vector<std::string> taken;

private:
    Taken take(std::string request) {
        if (failWith) {
            return std::unexpected(*failWith);
        }
        taken.push_back(std::move(request));
        return {};
    }
};

} // namespace blankwell
