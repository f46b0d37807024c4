#include "platform/linux/LinuxTrash.h"

#include "platform/linux/GioTrash.h"
#include "platform/linux/PortalTrash.h"

#include <stop_token>
#include <utility>

namespace blankwell {
namespace {

std::expected<TrashLocation, SystemError>
withoutLocation(const std::expected<void, SystemError>& moved) {
    return moved ? std::expected<TrashLocation, SystemError>(std::nullopt)
                 : std::unexpected(moved.error());
}

} // namespace

std::expected<TrashLocation, SystemError> LinuxTrash::trashItem(const FileUrl& url) {
    return withoutLocation(trashWithGio(url));
}

void LinuxTrash::recycle(const FileUrl& url, Completion completion) {
    waiting_.emplace_back([this, url, completion = std::move(completion)](
                              const std::stop_token& stop) mutable {
        auto moved = withoutLocation(trashWithPortal(url, patience_.portal, stop));
        if (!stop.stop_requested()) {
            queue_.async([completion = std::move(completion), moved = std::move(moved)]() mutable {
                completion(std::move(moved));
            });
        }
    });
}

std::expected<void, FileManagerScriptFailure>
LinuxTrash::deleteWithFileManager(const FileUrl& url) {
    return trashWithFileManager(url, patience_.fileManager);
}

} // namespace blankwell
