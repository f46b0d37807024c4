#pragma once

#include "base/FileUrl.h"
#include "base/Subscription.h"
#include "platform/FileManagers.h"
#include "platform/Log.h"
#include "platform/Trash.h"
#include "shell/AppUninstallError.h"
#include "shell/UninstallFlow.h"

#include <expected>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class Alert;
class Application;
class ApplicationPresence;
class Bundle;
class FileSystem;
class InstallationTraces;
class MainQueue;
class Timer;

/// Moves the application to the Trash, with the file manager out of the way, and removes what it
/// kept. Files that the user created are never touched.
///
/// Nothing is removed before the bundle is in the Trash; a failure is told once, and the
/// application goes on without hot keys until it is started again. Belongs to the main thread.
class AppUninstaller : public UninstallFlow {
public:
    /// What an uninstallation uses. All must outlive the object.
    struct Services {
        /// Ends what the application does in the session: hot keys and the panel. An error ends the
        /// uninstallation with it.
        std::function<std::expected<void, SystemError>()> stop;
        Alert& alert;
        const Bundle& bundle;
        const FileSystem& fileSystem;
        FileManagers& fileManagers;
        Trash& trash;
        InstallationTraces& traces;
        Application& application;
        ApplicationPresence& presence;
        MainQueue& mainQueue;
        Timer& timer;
        Log& log;
    };

    explicit AppUninstaller(const Services& services);

    /// Asks first. While one uninstallation is under way, another wish changes nothing.
    void uninstall() override;

    /// Whether one was begun and has not failed. What follows a success is the application's end.
    [[nodiscard]] bool isUnderWay() const { return isUnderWay_; }

private:
    /// Where the bundle is after an attempt to move it to the Trash; or why it is not, for the
    /// user.
    using Attempt = std::expected<FileUrl, std::string>;

    [[nodiscard]] bool isConfirmed() const;
    void run();
    void quitFileManagers();
    void waitForFileManagers(int pauses);
    void trashWithFileServices();
    void trashWithWorkspace();
    void trashWithFileManager();
    [[nodiscard]] Attempt outcome(const TrashLocation& location) const;
    /// Whether the application is removed now. A failure is noted as that of `service`.
    bool settles(const Attempt& attempt, std::string_view service);
    void succeed(const FileUrl& trashLocation);
    void fail(const AppUninstallError& error);
    void tell(std::string_view reason) const;

    Services services_;
    FileUrl bundle_;
    Logger logger_;
    bool isUnderWay_ = false;
    std::vector<std::unique_ptr<RunningFileManager>> quitting_;
    /// The pause until they are looked at again.
    Subscription pause_;
    /// What the attempts so far failed with, a line for the user each.
    std::vector<std::string> failures_;
};

} // namespace blankwell
