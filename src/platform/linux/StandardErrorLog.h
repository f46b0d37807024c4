#pragma once

#include "platform/Log.h"

#include <string>

#include <unistd.h>

namespace blankwell {

/// The number by which syslog and the journal know `level` (RFC 5424, section 6.2.1).
///
/// The default level is "notice" and not "informational": its lines are few, and each tells of
/// something that the user made or asked for.
[[nodiscard]] constexpr int syslogPriority(LogLevel level) {
    return level == LogLevel::error ? 3 : 5;
}

/// A log of one line per message on standard error: `<priority>subsystem[category] text`, the
/// prefix that a service manager's capture of the stream understands (`sd-daemon(3)`).
///
/// Line feeds and other control characters in a message stand as escapes, so that a message is
/// always one line and never moves a terminal's cursor. A line goes out in one write.
class StandardErrorLog : public Log {
public:
    /// Writes to `descriptor`, which stays the caller's and must outlive this object.
    explicit StandardErrorLog(int descriptor = STDERR_FILENO) : descriptor_(descriptor) {}

    void write(LogLevel level, std::string_view category, std::string_view message) override;

private:
    int descriptor_;
};

/// Whether a journal takes messages at `socket` from this process now. Where none does, messages
/// sent to the journal vanish without an error.
[[nodiscard]] bool journalListens(const std::string& socket = "/run/systemd/journal/socket");

} // namespace blankwell
