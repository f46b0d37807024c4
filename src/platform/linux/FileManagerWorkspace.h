#pragma once

#include "platform/Log.h"
#include "platform/SystemError.h"
#include "platform/Workspace.h"
#include "platform/linux/SessionBus.h"

#include <expected>
#include <optional>
#include <string_view>

namespace blankwell {

/// Shows items in the user's file manager, over the session bus.
///
/// A file manager that runs is asked, first of all the one that owns the common name of file
/// managers. Where none runs, the user's default program for folders is started by its own command:
/// the bus would start whichever installed one it finds first, and one started by its own bus name
/// loses the request that came with it. Only without a default the choice is left to the bus.
///
/// Nothing waits for a file manager: `reveal` hands the request over within 300 ms, even if the bus
/// hangs, and what becomes of it is not known. A failure to hand it over is logged. Keep this
/// object after `reveal`, since the bus drops the request of one that is gone when a program has
/// started.
class FileManagerWorkspace : public Workspace {
public:
    /// `log` must outlive this object.
    explicit FileManagerWorkspace(Log& log);

    void reveal(const FileUrl& url) override;

    /// Starts the program by its desktop entry's command. Programs outside of a sandbox are not
    /// seen from within it.
    [[nodiscard]] bool open(std::string_view url) override;

private:
    std::expected<void, SystemError> show(const FileUrl& url, const Deadline& deadline);
    std::expected<void, SystemError> connect(const Deadline& deadline);
    std::expected<void, SystemError> send(const std::string& name, const FileUrl& url,
                                          SessionBus::AutoStart autoStart,
                                          const Deadline& deadline);
    std::expected<void, SystemError> activate(const FileUrl& url, const Deadline& deadline);

    Logger log_;
    std::optional<SessionBus> bus_;
};

} // namespace blankwell
