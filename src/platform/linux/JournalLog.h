#pragma once

#include "platform/Log.h"
#include "platform/linux/StandardErrorLog.h"

#include <string>

namespace blankwell {

/// The systemd journal, each message an entry with the fields `SUBSYSTEM` and `CATEGORY` beside the
/// usual ones: `journalctl SUBSYSTEM=app.blankwell.BlankwellPlus CATEGORY=…` reads a component.
///
/// Messages may hold any bytes. One that the journal refuses goes to standard error instead.
/// Without a journal nothing arrives anywhere and nothing fails: ask `journalListens()` before
/// choosing this log.
class JournalLog : public Log {
public:
    /// `program` is what the entries name as their sender (`SYSLOG_IDENTIFIER`).
    explicit JournalLog(std::string_view program);

    void write(LogLevel level, std::string_view category, std::string_view message) override;

private:
    std::string identifierField_;
    StandardErrorLog refused_;
};

} // namespace blankwell
