#pragma once

#include "platform/UpdateFailure.h"

#include <chrono>
#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>

namespace blankwell {

/// One request for something on the web: HTTPS only, five redirections at most, no cookies, no
/// credentials, nothing decoded.
class CurlTransfer {
public:
    /// What a response says before its contents come.
    struct Response {
        long status = 0;
        /// Where in the whole the contents begin; nothing where the server does not say.
        std::optional<std::uint64_t> rangeBegin;
    };

    /// What becomes of the contents. A failure ends the transfer and is its result.
    using Accept = std::function<std::expected<void, UpdateFailure>(const Response& response)>;
    using Receive = std::function<std::expected<void, UpdateFailure>(std::span<const char> bytes)>;

    struct Request {
        const std::string& url;
        /// The file of the certificates to trust; empty: the system's.
        const std::string& certificates;
        /// How long all of it may take.
        std::chrono::seconds timeLimit;
        /// How long it may go on with hardly a byte coming in.
        std::chrono::seconds stallLimit;
        /// Of the whole only what begins here is asked for.
        std::uint64_t begin = 0;
        /// Called once, with the last response; always before `receive`.
        Accept accept;
        Receive receive;
        /// Called often while the transfer lasts.
        std::function<void()> pulse = [] {};
    };

    /// Waits until the contents have come, the transfer failed, or `stop` is requested.
    [[nodiscard]] static std::expected<void, UpdateFailure> run(Request request,
                                                                const std::stop_token& stop);
};

} // namespace blankwell
