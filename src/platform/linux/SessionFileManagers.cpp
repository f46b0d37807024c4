#include "platform/linux/SessionFileManagers.h"

#include "platform/linux/Deadline.h"
#include "platform/linux/DetachedProgram.h"
#include "platform/linux/SessionBus.h"
#include "platform/linux/X11WindowList.h"

#include <fmt/core.h>

#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

namespace blankwell {
namespace {

constexpr std::chrono::milliseconds patienceForFolders{1000};
constexpr std::chrono::milliseconds patienceForQuitting{300};

/// Where a program starts: at home, or at the root where the user has no home that is there.
FileUrl startingFolder(const FileUrl& home) {
    std::error_code error;
    return std::filesystem::is_directory(home.path(), error) ? home : FileUrl("/");
}

/// Quits the program whatever windows it has, without a question.
bool quitDolphin(std::uint32_t process) {
    const Deadline deadline(patienceForQuitting);
    auto bus = SessionBus::connect(deadline);
    if (!bus) {
        return false;
    }
    const auto request = bus->request({.destination = fmt::format("org.kde.dolphin-{}", process),
                                       .path = "/MainApplication",
                                       .interface = "org.qtproject.Qt.QCoreApplication",
                                       .member = "quit"});
    return request && bus->call(*request, deadline);
}

class SessionFileManager : public RunningFileManager {
public:
    SessionFileManager(std::shared_ptr<const FileManagerProcess> process, const FileUrl& home)
        : process_(std::move(process)), home_(home) {}

    bool terminate() override {
        const auto command = quitCommand(process_->fileManager);
        return command ? startDetached(*command, startingFolder(home_)) : quitDolphin(process_->id);
    }

    void forceTerminate() override { process_->handle.kill(); }

    [[nodiscard]] bool isTerminated() const override { return process_->handle.hasEnded(); }

private:
    std::shared_ptr<const FileManagerProcess> process_;
    const FileUrl& home_;
};

/// What the process `process` shows in `windows`.
OpenFolders openFolders(const FileManagerProcess& process,
                        const std::vector<FileManagerWindow>& windows, const WindowFolders& folders,
                        const Deadline& deadline) {
    OpenFolders open;
    for (const auto& window : windows) {
        if (window.window.processId != process.id || window.fileManager != process.fileManager) {
            continue;
        }
        if (window.window.kind == DesktopWindow::Kind::desktop) {
            open.drawsDesktop = true;
        } else {
            open.windows.push_back(folders.all(window, deadline));
        }
    }
    return open;
}

} // namespace

SessionFileManagers::SessionFileManagers(const WellKnownFolders& wellKnown, FileUrl home,
                                         std::function<std::vector<FileUrl>()> roots)
    : home_(home), folders_(wellKnown, std::move(home), std::move(roots)) {}

std::vector<std::unique_ptr<RunningFileManager>> SessionFileManagers::running() {
    const Deadline deadline(patienceForFolders);
    const auto windows = fileManagerWindows(x11WindowStack(deadline).value_or(WindowStack()));
    found_.clear();
    std::vector<std::unique_ptr<RunningFileManager>> running;
    for (auto& process : runningFileManagers()) {
        auto shared = std::make_shared<const FileManagerProcess>(std::move(process));
        found_.push_back({shared, openFolders(*shared, windows, folders_, deadline)});
        running.push_back(std::make_unique<SessionFileManager>(std::move(shared), home_));
    }
    return running;
}

void SessionFileManagers::relaunch() {
    const auto start = startingFolder(home_);
    for (const auto& [process, open] : std::exchange(found_, {})) {
        if (!process->handle.hasEnded()) {
            continue;
        }
        for (const auto& command : startCommands(process->fileManager, open, start)) {
            // What is no longer installed cannot come back.
            static_cast<void>(startDetached(command, start));
        }
    }
}

} // namespace blankwell
