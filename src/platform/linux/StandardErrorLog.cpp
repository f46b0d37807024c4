#include "platform/linux/StandardErrorLog.h"

#include "platform/Identifiers.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/TerminalText.h"

#include <sys/socket.h>
#include <sys/un.h>

namespace blankwell {

void StandardErrorLog::write(LogLevel level, std::string_view category, std::string_view message) {
    const auto text = fmt::format("{}[{}] {}", bundleIdentifier, category, message);
    writeText(descriptor_, fmt::format("<{}>{}\n", syslogPriority(level), escapedControls(text)));
}

bool journalListens(const std::string& socket) {
    sockaddr_un address{.sun_family = AF_UNIX};
    if (socket.size() >= sizeof(address.sun_path)) {
        return false;
    }
    socket.copy(address.sun_path, socket.size());
    const FileDescriptor descriptor(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    // Connecting a datagram socket sends nothing; it only finds out whether somebody is there.
    return descriptor && ::connect(descriptor.get(), reinterpret_cast<const sockaddr*>(&address),
                                   sizeof(address)) == 0;
}

} // namespace blankwell
