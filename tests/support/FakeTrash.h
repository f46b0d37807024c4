#pragma once

#include "platform/Trash.h"
#include "support/EventLog.h"
#include "support/FakeFileSystem.h"

#include <deque>
#include <optional>
#include <string>
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
        asked_.emplace_back([this, url, completion = std::move(completion)]() mutable {
            completion(taken(url, failRecyclingWith, recycleLocation));
        });
    }

    std::expected<void, FileManagerScriptFailure>
    deleteWithFileManager(const FileUrl& url) override {
        events_.push_back("delete with file manager " + url.path());
        if (failDeletingWith) {
            return std::unexpected(*failDeletingWith);
        }
        if (!files_.folders.contains(url)) {
            return std::unexpected(FileManagerScriptFailure{
                FileManagerScriptFailure::Refused{.localizedDescription = "no such item"}});
        }
        take(url);
        return {};
    }

    /// Lets the desktop answer the oldest `recycle`. False where there was none.
    bool answer() {
        if (asked_.empty()) {
            return false;
        }
        auto completion = std::move(asked_.front());
        asked_.pop_front();
        completion();
        return true;
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
        if (!files_.folders.contains(url)) {
            return std::unexpected(cocoaError(CocoaCode::fileNoSuchFile, "no such item"));
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
    std::deque<std::move_only_function<void()>> asked_;
};

} // namespace blankwell
