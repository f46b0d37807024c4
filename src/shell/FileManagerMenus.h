#pragma once

#include "platform/Log.h"
#include "platform/SystemError.h"
#include "shell/FileManager.h"
#include "shell/FileManagerMenuFiles.h"

#include <expected>
#include <set>
#include <string>
#include <vector>

namespace blankwell {

class AppSettings;
class InstalledPrograms;
class Registrations;
class UserDefaults;

/// How it stands with the menu of a file manager.
struct FileManagerMenuState {
    enum class Availability {
        available,
        notInstalled,
        /// It is installed, but not the package that lets it take extensions.
        needsPackage,
        /// This process runs in a sandbox, which hides what is installed.
        outOfReach,
    };

    FileManager manager;
    Availability availability;
    /// The menu is in place.
    bool isOn;
    /// The file manager sees a change of it at its next start only.
    bool mustRestart = false;

    friend bool operator==(const FileManagerMenuState&, const FileManagerMenuState&) = default;
};

/// What the state is in words: "on", "off", or why it cannot be on.
[[nodiscard]] std::string description(const FileManagerMenuState& state);

/// The menus "Create File" of the file managers: on wherever possible, unless the user switched one
/// off. They come from files of the user's own, or from the application's own extension where the
/// system has that. Belongs to the main thread.
class FileManagerMenus {
public:
    struct Services {
        const AppSettings& settings;
        /// Keeps which menus are switched off.
        UserDefaults& defaults;
        Registrations& registrations;
        const InstalledPrograms& programs;
        Log& log;
    };

    /// All must outlive this object.
    FileManagerMenus(const Services& services, FileManagerPlaces places);

    /// The states of all file managers.
    [[nodiscard]] std::vector<FileManagerMenuState> states() const;

    /// Switches the menu of `manager` on or off, for good. Fails where it cannot be on.
    std::expected<void, SystemError> turn(FileManager manager, bool on);

    /// Brings the menus up to date with the settings and with what is installed: those that are not
    /// switched off are put in place, others taken away. Failures are logged; the first is
    /// returned.
    std::expected<void, SystemError> refresh();

private:
    [[nodiscard]] FileManagerMenuState::Availability availability(FileManager manager) const;
    [[nodiscard]] bool hasExtension(FileManager manager) const;
    [[nodiscard]] std::set<std::string> switchedOff() const;
    std::expected<void, SystemError> apply(FileManager manager);

    Services services_;
    Logger logger_;
    FileManagerPlaces places_;
};

} // namespace blankwell
