#pragma once

#include "platform/Trash.h"
#include "support/EventLog.h"
#include "support/FakeFileSystem.h"

#include <optional>
#include <utility>

namespace blankwell {

/// A Trash whose three ways do what the test says. A way that succeeds takes the folder out of
/// `files`, unless it only says that it did.
class FakeTrash : public Trash {
public:
    /// Both must outlive this object.
    FakeTrash(EventLog& events, FakeFileSystem& files) : events_(events), files_(files) {}

    std::expected<TrashLocation, SystemError> trashItem(const FileUrl& url) override {
        events_.push_back("trash " + url.path());
        return taken(url, failTrashingWith, trashLocation);
    }

    void recycle(const FileUrl& url, Completion completion) override {
        events_.push_back("recycle " + url.path());
        completion_ = [this, url, completion = std::move(completion)]() mutable {
            completion(taken(url, failRecyclingWith, recycleLocation));
        };
    }

    std::expected<void, FileManagerScriptFailure>
    deleteWithFileManager(const FileUrl& url) override {
        events_.push_back("delete with file manager " + url.path());
        if (failDeletingWith) {
            return std::unexpected(*failDeletingWith);
        }
        take(url);
        return {};
    }

    /// Lets the desktop answer the last `recycle`. False where there was none.
    bool answer() {
        auto completion = std::exchange(completion_, nullptr);
        if (completion) {
            completion();
            return true;
        }
        return false;
    }

    std::optional<SystemError> failTrashingWith;
    std::optional<SystemError> failRecyclingWith;
    std::optional<FileManagerScriptFailure> failDeletingWith;
    TrashLocation trashLocation;
    TrashLocation recycleLocation;
    /// The services report success and move nothing.
    bool onlySaysSo = false;

private:
    std::expected<TrashLocation, SystemError> taken(const FileUrl& url,
                                                    const std::optional<SystemError>& failure,
                                                    const TrashLocation& location) {
        if (failure) {
            return std::unexpected(*failure);
        }
        take(url);
        return location;
    }

    void take(const FileUrl& url) {
        if (!onlySaysSo) {
            files_.folders.erase(url);
        }
    }

    EventLog& events_;
    FakeFileSystem& files_;
    std::move_only_function<void()> completion_;
};

} // namespace blankwell
