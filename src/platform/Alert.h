#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace blankwell {

/// What an alert says.
struct AlertContent {
    enum class Style { warning, informational, critical };

    Style style = Style::warning;
    std::string messageText;
    std::string informativeText;
    /// The buttons' titles. Return presses the first; Escape and closing the alert press the last.
    /// Where there are none, the alert has one that takes note.
    std::vector<std::string> buttons = {};

    friend bool operator==(const AlertContent&, const AlertContent&) = default;
};

/// Tells the user something that must not be missed, or asks what must not be guessed.
class Alert {
public:
    virtual ~Alert() = default;

    /// Shows `content` and waits until the user has taken note. The index of the pressed button.
    virtual std::size_t runModal(const AlertContent& content) = 0;
};

} // namespace blankwell
