#include "app/cli/ConsoleLog.h"

#include "app/services/ModuleLoader.h"
#include "platform/linux/StandardErrorLog.h"

namespace blankwell::cli {

ConsoleLog::ConsoleLog(ModuleLoader& loader, StandardError standardError)
    : loader_(loader), standardError_(standardError) {}

ConsoleLog::~ConsoleLog() = default;

void ConsoleLog::write(LogLevel level, std::string_view category, std::string_view message) {
    if (standardError_ == StandardError::verbose) {
        StandardErrorLog().write(level, category, message);
    }
    if (!lookedForJournal_) {
        lookedForJournal_ = true;
        if (journalListens()) {
            journal_ = loader_.services().makeJournal();
        }
    }
    if (journal_) {
        journal_->write(level, category, message);
    }
}

} // namespace blankwell::cli
