#pragma once

#include "shell/Installation.h"

#include <algorithm>
#include <map>
#include <set>

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
            const auto availability = withoutPackage.contains(manager) ? needsPackage
                                      : found == menus.end()           ? notInstalled
                                                                       : available;
            states.push_back({manager, availability,
                              found != menus.end() && found->second && hasTypes,
                              infoOf(manager).mustRestart});
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
    std::set<FileManager> withoutPackage;
    /// False where all file types are switched off, which leaves nothing for a menu.
    bool hasTypes = true;
    std::vector<std::pair<FileManager, bool>> turned;
    bool isUnregistered = false;
    std::optional<SystemError> failWith;

private:
    std::expected<void, SystemError> result() const {
        return failWith ? std::unexpected(*failWith) : std::expected<void, SystemError>();
    }
};

} // namespace blankwell
