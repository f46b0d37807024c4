#include "shell/FileManagerMenus.h"

#include "platform/InstalledPrograms.h"
#include "platform/Registrations.h"
#include "platform/UserDefaults.h"
#include "settings/AppSettings.h"

#include <fmt/core.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace blankwell {
namespace {

using Availability = FileManagerMenuState::Availability;

constexpr std::string_view switchedOffKey = "fileManagerMenusSwitchedOff";
constexpr std::string_view neededPackage = "python3-nautilus";

std::string groupOf(FileManager manager) {
    return fmt::format("menu.{}", infoOf(manager).id);
}

} // namespace

std::string description(const FileManagerMenuState& state) {
    switch (state.availability) {
    case Availability::notInstalled:
        return "not installed";
    case Availability::needsPackage:
        return fmt::format("needs the package {}", neededPackage);
    case Availability::outOfReach:
        return "out of reach of a sandbox";
    case Availability::available:
        break;
    }
    return state.isOn ? "on" : "off";
}

FileManagerMenus::FileManagerMenus(const Services& services, FileManagerPlaces places)
    : services_(services), logger_(services.log, "FileManagerMenus"), places_(std::move(places)) {}

std::vector<FileManagerMenuState> FileManagerMenus::states() const {
    const auto groups = services_.registrations.groups();
    std::vector<FileManagerMenuState> states;
    states.reserve(allFileManagers.size());
    for (const auto manager : allFileManagers) {
        states.push_back({
            .manager = manager,
            .availability = availability(manager),
            .isOn = std::ranges::find(groups, groupOf(manager)) != groups.end(),
            .mustRestart = infoOf(manager).mustRestart && !hasExtension(manager),
        });
    }
    return states;
}

std::expected<void, SystemError> FileManagerMenus::turn(FileManager manager, bool on) {
    const auto& info = infoOf(manager);
    if (const auto available = availability(manager); on && available != Availability::available) {
        const auto reason = description({manager, available, false});
        return std::unexpected(SystemError{SystemError::Domain::posix, ENOENT,
                                           fmt::format("{}: {}.", info.name, reason)});
    }
    auto ids = switchedOff();
    if (on) {
        ids.erase(std::string(info.id));
    } else {
        ids.emplace(info.id);
    }
    const auto stored =
        services_.defaults.set(switchedOffKey, std::vector<std::string>(ids.begin(), ids.end()));
    return stored ? apply(manager) : stored;
}

std::expected<void, SystemError> FileManagerMenus::refresh() {
    std::expected<void, SystemError> result;
    for (const auto manager : allFileManagers) {
        const auto applied = apply(manager);
        if (!applied) {
            logger_.error("The menu of {} is not up to date: {}", infoOf(manager).name,
                          applied.error().description);
            result = result ? applied : result;
        }
    }
    return result;
}

Availability FileManagerMenus::availability(FileManager manager) const {
    if (!services_.programs.has(infoOf(manager).id)) {
        return Availability::notInstalled;
    }
    if (manager == FileManager::nautilus && !hasExtension(manager) &&
        !services_.programs.nautilusTakesPython()) {
        return Availability::needsPackage;
    }
    return Availability::available;
}

bool FileManagerMenus::hasExtension(FileManager manager) const {
    const auto& info = infoOf(manager);
    return info.canHaveExtension && services_.programs.hasExtension(info.id);
}

std::set<std::string> FileManagerMenus::switchedOff() const {
    const auto ids = services_.defaults.read<std::vector<std::string>>(switchedOffKey)
                         .value_or(std::vector<std::string>());
    return {ids.begin(), ids.end()};
}

std::expected<void, SystemError> FileManagerMenus::apply(FileManager manager) {
    const bool isWanted = availability(manager) == Availability::available &&
                          !switchedOff().contains(std::string(infoOf(manager).id));
    if (!isWanted) {
        return services_.registrations.clear(groupOf(manager));
    }
    const auto menu = createFileMenu(services_.settings.enabledFileTypes());
    // One or the other, or the menu would come up twice.
    const auto files = hasExtension(manager) ? extensionMenuFiles(manager, menu, places_)
                                             : fileManagerMenuFiles(manager, menu, places_);
    return services_.registrations.set(groupOf(manager), files);
}

} // namespace blankwell
