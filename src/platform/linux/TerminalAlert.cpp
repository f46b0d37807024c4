#include "platform/linux/TerminalAlert.h"

#include "platform/linux/TerminalText.h"

#include <fmt/core.h>

#include <cerrno>
#include <string>

namespace blankwell {
namespace {

/// The line that comes next, without its end; what there is of it where the input ends.
std::string readLine(int descriptor) {
    std::string line;
    char character = 0;
    for (;;) {
        const auto count = ::read(descriptor, &character, 1);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0 || character == '\n') {
            return line;
        }
        line += character;
    }
}

} // namespace

bool TerminalAlert::canAsk(int input, int output) {
    return ::isatty(input) == 1 && ::isatty(output) == 1;
}

std::size_t TerminalAlert::runModal(const AlertContent& content) {
    const bool isQuestion = content.buttons.size() > 1;
    hasTold_ = hasTold_ || !isQuestion;
    if (isQuestion && questions_ == Questions::answered) {
        return 0;
    }
    const auto last = ConsoleAlert(output_).runModal(content);
    if (!isQuestion) {
        return last;
    }
    writeText(output_, fmt::format("\n{}? [y/N] ", content.buttons.front()));
    return isAnsweredYes() ? 0 : last;
}

bool TerminalAlert::isAnsweredYes() const {
    const auto line = readLine(input_);
    return line == "y" || line == "Y" || line == "yes" || line == "Yes" || line == "YES";
}

} // namespace blankwell
