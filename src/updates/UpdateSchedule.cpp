#include "updates/UpdateSchedule.h"

#include "platform/UserDefaults.h"

#include <algorithm>
#include <charconv>

namespace blankwell {
namespace {

constexpr auto automaticKey = "SUEnableAutomaticChecks";
constexpr auto lastCheckKey = "SULastCheckTime";
constexpr auto skippedKey = "SUSkippedVersion";

using Seconds = std::chrono::sys_seconds;

std::optional<Seconds> parsedTime(const std::string& text) {
    std::int64_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    constexpr auto largest = std::int64_t{1} << 40U; // far from where the clock's counter ends
    if (error != std::errc() || end != text.data() + text.size() || count < 0 || count > largest) {
        return std::nullopt;
    }
    return Seconds(std::chrono::seconds(count));
}

} // namespace

bool UpdateSchedule::checksAutomatically() const {
    return defaults_.read<bool>(automaticKey).value_or(false);
}

std::expected<void, SystemError> UpdateSchedule::setChecksAutomatically(bool checks) {
    return defaults_.set(automaticKey, checks);
}

std::optional<std::chrono::seconds> UpdateSchedule::untilNextCheck(Clock::time_point now) const {
    if (!checksAutomatically()) {
        return std::nullopt;
    }
    const auto present = std::chrono::floor<std::chrono::seconds>(now);
    const auto stored = defaults_.read<std::string>(lastCheckKey);
    const auto last = stored ? parsedTime(*stored) : std::nullopt;
    if (!last || *last > present) {
        return std::chrono::seconds::zero();
    }
    return std::max(std::chrono::seconds::zero(), *last + interval - present);
}

std::expected<void, SystemError> UpdateSchedule::checked(Clock::time_point now) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now).time_since_epoch().count();
    return defaults_.set(lastCheckKey, std::to_string(seconds));
}

std::string UpdateSchedule::skippedVersion() const {
    return defaults_.read<std::string>(skippedKey).value_or("");
}

std::expected<void, SystemError> UpdateSchedule::skip(const std::string& version) {
    return defaults_.set(skippedKey, version);
}

} // namespace blankwell
