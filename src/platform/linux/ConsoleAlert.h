#pragma once

#include "platform/Alert.h"

#include <unistd.h>

namespace blankwell {

/// Alerts of a program without windows: the message text and below it the informative text, as
/// lines on standard error. Control characters in them stand as escapes. There is nobody to press a
/// button, so the last one counts as pressed: a question is never taken for answered with yes.
class ConsoleAlert : public Alert {
public:
    /// Writes to `descriptor`, which stays the caller's and must outlive this object.
    explicit ConsoleAlert(int descriptor = STDERR_FILENO) : descriptor_(descriptor) {}

    std::size_t runModal(const AlertContent& content) override;

    /// Whether there was any alert, even if the stream took nothing of it: the program's work did
    /// not go as the user wanted.
    [[nodiscard]] bool wasShown() const { return wasShown_; }

private:
    int descriptor_;
    bool wasShown_ = false;
};

} // namespace blankwell
