#pragma once

#include "platform/Log.h"

#include <memory>

namespace blankwell {
class ModuleLoader;
} // namespace blankwell

namespace blankwell::cli {

/// The log of a program that people run in a terminal: the journal where one listens, and standard
/// error where the user asked for it. Standard error is for what the user must know otherwise, so
/// without a journal lines that nobody asked for go nowhere.
class ConsoleLog : public Log {
public:
    enum class StandardError { silent, verbose };

    /// `loader` must outlive this object.
    ConsoleLog(ModuleLoader& loader, StandardError standardError);
    ~ConsoleLog() override;

    void write(LogLevel level, std::string_view category, std::string_view message) override;

private:
    ModuleLoader& loader_;
    StandardError standardError_;
    std::unique_ptr<Log> journal_;
    bool lookedForJournal_ = false;
};

} // namespace blankwell::cli
