#pragma once

#include "platform/Log.h"

#include <ostream>
#include <vector>

namespace blankwell {

/// A log that keeps its lines.
class FakeLog : public Log {
public:
    struct Line {
        LogLevel level;
        std::string category;
        std::string message;

        friend bool operator==(const Line&, const Line&) = default;

        friend std::ostream& operator<<(std::ostream& stream, const Line& line) {
            return stream << (line.level == LogLevel::error ? "error " : "notice ") << line.category
                          << ": " << line.message;
        }
    };

    void write(LogLevel level, std::string_view category, std::string_view message) override {
        lines.push_back({level, std::string(category), std::string(message)});
    }

    std::vector<Line> lines;
};

} // namespace blankwell
