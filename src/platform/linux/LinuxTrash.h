#pragma once

#include "platform/MainQueue.h"
#include "platform/Trash.h"
#include "platform/linux/FileManagerTrash.h"

#include <chrono>
#include <thread>
#include <vector>

namespace blankwell {

/// The three ways to the Trash that a Linux desktop has: GIO, the desktop's portal, and Nautilus or
/// Thunar. None tells where the item is there.
///
/// The portal is waited for on a thread of its own. With this object the waiting ends, and a
/// completion that was not called by then never is.
class LinuxTrash : public Trash {
public:
    struct Patience {
        std::chrono::milliseconds portal{10'000};
        FileManagerTrashPatience fileManager;
    };

    /// `queue` must outlive this object; it calls the completions.
    explicit LinuxTrash(MainQueue& queue) : LinuxTrash(queue, Patience{}) {}

    LinuxTrash(MainQueue& queue, Patience patience) : queue_(queue), patience_(patience) {}

    [[nodiscard]] std::expected<TrashLocation, SystemError> trashItem(const FileUrl& url) override;
    void recycle(const FileUrl& url, Completion completion) override;
    [[nodiscard]] std::expected<void, FileManagerScriptFailure>
    deleteWithFileManager(const FileUrl& url) override;

private:
    MainQueue& queue_;
    Patience patience_;
    /// One for each question to the portal.
    std::vector<std::jthread> waiting_;
};

} // namespace blankwell
