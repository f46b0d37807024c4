#pragma once

#include "platform/linux/FrontWindow.h"
#include "platform/linux/ProcessHandle.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace blankwell {

/// A file manager that runs.
struct FileManagerProcess {
    FileManager fileManager;
    std::uint32_t id;
    ProcessHandle handle;
};

/// The file manager whose program is the file `path`, as the kernel tells it; nothing for another
/// program.
[[nodiscard]] std::optional<FileManager> fileManagerOfProgram(std::string_view path);

/// The file managers of this user in this session, by their programs and environments.
[[nodiscard]] std::vector<FileManagerProcess> runningFileManagers();

} // namespace blankwell
