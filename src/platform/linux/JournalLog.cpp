#include "platform/linux/JournalLog.h"

#include "platform/Identifiers.h"

#include <systemd/sd-journal.h>

#include <array>

namespace blankwell {
namespace {

iovec fieldOf(std::string& text) {
    return {.iov_base = text.data(), .iov_len = text.size()};
}

} // namespace

JournalLog::JournalLog(std::string_view program)
    : identifierField_(fmt::format("SYSLOG_IDENTIFIER={}", program)) {}

void JournalLog::write(LogLevel level, std::string_view category, std::string_view message) {
    auto text = fmt::format("MESSAGE={}", message);
    auto priority = fmt::format("PRIORITY={}", syslogPriority(level));
    auto subsystem = fmt::format("SUBSYSTEM={}", bundleIdentifier);
    auto component = fmt::format("CATEGORY={}", category);
    const std::array fields{fieldOf(text), fieldOf(priority), fieldOf(subsystem),
                            fieldOf(component), fieldOf(identifierField_)};
    // In parentheses it is the function and not the macro of that name, which would add this very
    // line of source to every entry.
    if ((sd_journal_sendv)(fields.data(), static_cast<int>(fields.size())) < 0) {
        refused_.write(level, category, message);
    }
}

} // namespace blankwell
