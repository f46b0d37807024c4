#include "platform/linux/ConsoleAlert.h"

#include "platform/linux/TerminalText.h"

namespace blankwell {

std::size_t ConsoleAlert::runModal(const AlertContent& content) {
    wasShown_ = true;
    std::string lines;
    for (const auto& text : {content.messageText, content.informativeText}) {
        if (!text.empty()) {
            lines += escapedControls(text, "\n\t") + '\n';
        }
    }
    writeText(descriptor_, lines);
    return content.buttons.empty() ? 0 : content.buttons.size() - 1;
}

} // namespace blankwell
