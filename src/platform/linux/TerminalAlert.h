#pragma once

#include "platform/linux/ConsoleAlert.h"

#include <unistd.h>

namespace blankwell {

/// Alerts in a terminal. The texts are written as `ConsoleAlert` does. Where there are two buttons
/// or more, the user is asked for the first one: a line "y" or "yes" presses it, and anything else
/// the last, also the end of the input.
class TerminalAlert : public Alert {
public:
    enum class Questions {
        asked,
        /// The user has said yes beforehand: questions are not even shown.
        answered,
    };

    /// Reads and writes descriptors that stay the caller's and must outlive this object.
    explicit TerminalAlert(Questions questions, int input = STDIN_FILENO,
                           int output = STDERR_FILENO)
        : questions_(questions), input_(input), output_(output) {}

    /// Whether a person sits at both ends, who can be asked.
    [[nodiscard]] static bool canAsk(int input = STDIN_FILENO, int output = STDERR_FILENO);

    std::size_t runModal(const AlertContent& content) override;

    /// Whether there was any alert that only told something.
    [[nodiscard]] bool hasTold() const { return hasTold_; }

private:
    [[nodiscard]] bool isAnsweredYes() const;

    Questions questions_;
    int input_;
    int output_;
    bool hasTold_ = false;
};

} // namespace blankwell
