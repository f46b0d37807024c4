#pragma once

#include "platform/SystemError.h"

#include <chrono>
#include <expected>
#include <optional>
#include <string>

namespace blankwell {

class UserDefaults;

/// When the application looks for updates by itself: never until the user has agreed, and then once
/// a day at most, however often it is started.
///
/// Kept in a preference domain under the update framework's own keys: "SUEnableAutomaticChecks",
/// "SULastCheckTime" (seconds since 1970, as text) and "SUSkippedVersion". After an error
/// all is as it was.
class UpdateSchedule {
public:
    using Clock = std::chrono::system_clock;

    static constexpr std::chrono::hours interval{24};

    /// `defaults` must outlive this object.
    explicit UpdateSchedule(UserDefaults& defaults) : defaults_(defaults) {}

    /// Whether the user has agreed to checks that nobody asks for.
    [[nodiscard]] bool checksAutomatically() const;

    std::expected<void, SystemError> setChecksAutomatically(bool checks);

    /// How long after `now` the next check is due; nothing where none is. A last check that lies in
    /// the future is of a clock that was wrong, and does not count.
    [[nodiscard]] std::optional<std::chrono::seconds> untilNextCheck(Clock::time_point now) const;

    /// Remembers that a check was begun at `now`.
    std::expected<void, SystemError> checked(Clock::time_point now);

    /// The version that the user does not want to hear of again; empty where there is none.
    [[nodiscard]] std::string skippedVersion() const;

    std::expected<void, SystemError> skip(const std::string& version);

private:
    UserDefaults& defaults_;
};

} // namespace blankwell
