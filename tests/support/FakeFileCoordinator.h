#pragma once

#include "platform/FileCoordinator.h"

namespace blankwell {

/// A coordinator that calls the accessor with the URL it was given, unless told otherwise.
class FakeFileCoordinator : public FileCoordinator {
public:
    std::optional<SystemError>
    coordinateReplacing(const FileUrl& url,
                        const std::function<void(const FileUrl&)>& accessor) override {
        if (callsAccessor) {
            accessor(handsOut.value_or(url));
        }
        return failWith;
    }

    bool callsAccessor = true;
    std::optional<FileUrl> handsOut;
    std::optional<SystemError> failWith;
};

} // namespace blankwell
