#pragma once

#include <fmt/core.h>

#include <string>
#include <string_view>
#include <utility>

namespace blankwell {

/// How much a log line matters.
enum class LogLevel {
    /// The default level: what happened.
    notice,
    /// What failed.
    error,
};

/// The system's log, under the application's bundle identifier as subsystem.
class Log {
public:
    virtual ~Log() = default;

    /// Writes one line of the component `category`. Never fails for the caller.
    virtual void write(LogLevel level, std::string_view category, std::string_view message) = 0;
};

/// One component's lines in the log.
class Logger {
public:
    /// `log` must outlive this object.
    Logger(Log& log, std::string category) : log_(log), category_(std::move(category)) {}

    template <typename... Values>
    void notice(fmt::format_string<Values...> format, Values&&... values) const {
        log_.write(LogLevel::notice, category_,
                   fmt::format(format, std::forward<Values>(values)...));
    }

    template <typename... Values>
    void error(fmt::format_string<Values...> format, Values&&... values) const {
        log_.write(LogLevel::error, category_,
                   fmt::format(format, std::forward<Values>(values)...));
    }

private:
    Log& log_;
    std::string category_;
};

} // namespace blankwell
