#include "platform/linux/ConsoleAlert.h"

#include "platform/linux/TerminalText.h"

namespace blankwell {

void ConsoleAlert::runModal(const AlertContent& content) {
    wasShown_ = true;
    std::string lines;
    for (const auto& text : {content.messageText, content.informativeText}) {
        if (!text.empty()) {
            lines += escapedControls(text, "\n\t") + '\n';
        }
    }
    writeText(descriptor_, lines);
}

} // namespace blankwell
