#pragma once

#include "shell/Installation.h"

#include <algorithm>
#include <map>

namespace blankwell {

/// An installation that remembers what is done with it. Dolphin and Thunar are there.
class FakeInstallation : public Installation {
public:
    std::expected<FileUrl, SystemError> install(const std::optional<FileUrl>& folder) override {
        if (failWith) {
            return std::unexpected(*failWith);
        }
        return folder.value_or(FileUrl("/Users/u/Applications")).appending("Blankwell+.app");
    }

    std::expected<void, SystemError> unregister() override {
        isUnregistered = !failWith;
        return result();
    }

    std::vector<FileManagerMenuState> menuStates() override {
        std::vector<FileManagerMenuState> states;
        for (const auto manager : allFileManagers) {
            const auto found = menus.find(manager);
            using enum FileManagerMenuState::Availability;
            states.push_back({manager, found == menus.end() ? notInstalled : available,
                              found != menus.end() && found->second});
        }
        return states;
    }

    std::expected<void, SystemError> turnMenu(FileManager manager, bool on) override {
        turned.emplace_back(manager, on);
        if (!failWith && menus.contains(manager)) {
            menus[manager] = on;
        }
        return result();
    }

    std::map<FileManager, bool> menus{{FileManager::dolphin, true}, {FileManager::thunar, false}};
    std::vector<std::pair<FileManager, bool>> turned;
    bool isUnregistered = false;
    std::optional<SystemError> failWith;

private:
    std::expected<void, SystemError> result() const {
        return failWith ? std::unexpected(*failWith) : std::expected<void, SystemError>();
    }
};

} // namespace blankwell
