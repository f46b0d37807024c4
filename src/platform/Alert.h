#pragma once

#include <string>

namespace blankwell {

/// What an alert says.
struct AlertContent {
    enum class Style { warning, informational, critical };

    Style style = Style::warning;
    std::string messageText;
    std::string informativeText;

    friend bool operator==(const AlertContent&, const AlertContent&) = default;
};

/// Tells the user something that must not be missed.
class Alert {
public:
    virtual ~Alert() = default;

    /// Shows `content` and waits until the user has taken note.
    virtual void runModal(const AlertContent& content) = 0;
};

} // namespace blankwell
