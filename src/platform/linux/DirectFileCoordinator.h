#pragma once

#include "platform/FileCoordinator.h"

namespace blankwell {

/// Coordination where no service coordinates: each writer has its turn at once, at the place that
/// it asked for. What keeps writers apart here is that none ever replaces a file.
class DirectFileCoordinator : public FileCoordinator {
public:
    [[nodiscard]] std::optional<SystemError>
    coordinateReplacing(const FileUrl& url,
                        const std::function<void(const FileUrl&)>& accessor) override {
        accessor(url);
        return std::nullopt;
    }
};

} // namespace blankwell
