#pragma once

#include "base/FileUrl.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

/// The thrown-away home on the private desktop that the test runs on.
FileUrl desktopHome();

/// Makes the folder `name` under the home, and those that it leads through.
FileUrl makeFolder(std::string_view name);

/// Makes the empty file `name` under the home, and the folders that it leads through.
FileUrl makeFile(std::string_view name);

/// Makes a file of settings under the home's `.config`.
void makeSettings(std::string_view name, std::string_view contents);

/// The titles of the windows that the window manager keeps.
std::vector<std::string> windowTitles();

/// Whether a window titled `title` comes up.
bool windowAppears(const std::string& title);

/// Puts the window titled `title` in front and gives it the keyboard. Whether it gets there.
bool bringToFront(const std::string& title);

/// Runs the window command `command` of xdotool on the window titled `title`.
void commandWindow(const std::string& title, const std::vector<std::string>& command);

/// Types the key combination `keys` into the active window.
void type(const std::string& keys);

/// The file that is selected in the active file manager window, told by copying it.
std::optional<FileUrl> copiedFile();

/// Whether a program owns `name` on the session bus.
bool isOnBus(const std::string& name);

} // namespace blankwell
