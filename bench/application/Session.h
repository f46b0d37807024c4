#pragma once

#include "base/FileUrl.h"
#include "desktop/Program.h"
#include "desktop/ServedApplication.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/X11Connection.h"
#include "settings/AppPresence.h"
#include "settings/QuickCreateShortcut.h"

#include <chrono>

namespace blankwell {

/// What the settings of a measured application say creates a text file: Control-Option-T.
inline constexpr QuickCreateShortcut textFileShortcut{
    .keyCode = 17,
    .carbonModifiers = carbon::controlKey | carbon::optionKey,
};

/// Tells from outside whether a program has a hot key, without ever being in its way.
class HotKeyProbe {
public:
    HotKeyProbe();

    [[nodiscard]] bool isTaken(const QuickCreateShortcut& shortcut);

    /// Looks again and again until a program has it, and returns when that was.
    std::chrono::steady_clock::time_point awaitTaken(const QuickCreateShortcut& shortcut);

private:
    X11Connection connection_;
    xcb_window_t root_;
};

/// Writes the settings that the application is measured with. A status item needs a bar.
void storeBenchSettings(AppPresence presence = AppPresence::dockOnly);

/// The application in the background of the desktop, with all hot keys. Files that it creates are
/// shown by a file manager that does nothing.
class RunningApplication {
public:
    explicit RunningApplication(AppPresence presence = AppPresence::dockOnly);
    ~RunningApplication();

    RunningApplication(const RunningApplication&) = delete;
    RunningApplication& operator=(const RunningApplication&) = delete;

    [[nodiscard]] pid_t process() const { return program_.process(); }

private:
    ServedApplication fileManager_{"org.freedesktop.FileManager1"};
    Program program_;
};

/// The desktop's bar, with room for status items.
class StatusBarPanel {
public:
    /// Returns once items can come.
    StatusBarPanel();

private:
    Program program_;
};

/// Tells when files are complete in one folder.
class FolderWatch {
public:
    explicit FolderWatch(const FileUrl& folder);

    /// Waits until a file that was written is closed, and returns when that was. Throws after some
    /// seconds without one.
    std::chrono::steady_clock::time_point awaitFile();

private:
    FileDescriptor queue_;
};

} // namespace blankwell
