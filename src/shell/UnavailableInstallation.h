#pragma once

#include "shell/Installation.h"

#include <cerrno>

namespace blankwell {

/// The installation as a sandboxed program has it: what is on the user's desktop cannot be seen.
class UnavailableInstallation : public Installation {
public:
    std::expected<FileUrl, SystemError> install(const std::optional<FileUrl>& /*folder*/) override {
        return std::unexpected(error());
    }

    std::expected<void, SystemError> unregister() override { return std::unexpected(error()); }

    [[nodiscard]] std::vector<FileManagerMenuState> menuStates() override {
        std::vector<FileManagerMenuState> states;
        for (const auto manager : allFileManagers) {
            states.push_back({manager, FileManagerMenuState::Availability::outOfReach, false});
        }
        return states;
    }

    std::expected<void, SystemError> turnMenu(FileManager /*manager*/, bool /*on*/) override {
        return std::unexpected(error());
    }

private:
    [[nodiscard]] static SystemError error() {
        return {SystemError::Domain::posix, ENOTSUP,
                "What is installed for the user cannot be changed from inside a sandbox."};
    }
};

} // namespace blankwell
