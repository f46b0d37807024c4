#pragma once

#include "platform/SystemError.h"

#include <expected>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// Why the application cannot be relied on to do what it was asked.
struct HandOverFailure {
    enum class Request {
        /// It does not have the request and will not get it: whoever does it otherwise does it
        /// once.
        notTaken,
        /// It may have the request, now or later: whoever does it otherwise may do it twice.
        unknown,
    };

    Request request;
    /// Complete and user-facing.
    std::string description;

    friend bool operator==(const HandOverFailure&, const HandOverFailure&) = default;
};

/// The one application of the session, as other programs ask it for something. Where it does not
/// run, it is started if the session knows how.
///
/// Each call waits until the application has taken note, or until it is clear that it does not: a
/// few seconds at most, and longer only while it starts. What becomes of a request that was taken,
/// the application tells the user itself.
class SessionApplication {
public:
    using Taken = std::expected<void, HandOverFailure>;

    virtual ~SessionApplication() = default;

    /// The user wants to see the application.
    [[nodiscard]] virtual Taken activate() = 0;

    /// These URLs are to be opened, each once.
    [[nodiscard]] virtual Taken open(const std::vector<std::string>& urls) = 0;

    /// The action of this name is to be performed.
    [[nodiscard]] virtual Taken activateAction(std::string_view action) = 0;

    /// Where it runs, asks it to end in its orderly way and waits until its process has ended, for
    /// a bounded time. Starts nothing. Error: it still runs.
    [[nodiscard]] virtual std::expected<void, SystemError> quit() = 0;
};

} // namespace blankwell
