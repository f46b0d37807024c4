#include "platform/linux/PathPrograms.h"

#include "platform/Environment.h"

#include <fmt/core.h>
#include <glob.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace blankwell {
namespace {

bool isProgram(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

/// Whether the system has a module called `name` for the file manager `program`.
bool hasModule(std::string_view program, std::string_view name) {
    // The folder is named after the machine and after the version of the interface.
    const auto pattern = fmt::format("/usr/lib*/{{,*/}}{}/extensions-*/{}", program, name);
    glob_t found{};
    const bool isFound = ::glob(pattern.c_str(), GLOB_BRACE | GLOB_NOSORT, nullptr, &found) == 0;
    ::globfree(&found);
    return isFound;
}

} // namespace

bool PathPrograms::has(std::string_view program) const {
    const auto path = environment_.variable("PATH").value_or("/usr/local/bin:/usr/bin:/bin");
    for (std::string_view rest = path;;) {
        const auto end = rest.find(':');
        const auto folder = rest.substr(0, end);
        if (folder.starts_with('/') &&
            isProgram(std::string(folder) + '/' + std::string(program))) {
            return true;
        }
        if (end == std::string_view::npos) {
            return false;
        }
        rest.remove_prefix(end + 1);
    }
}

bool PathPrograms::nautilusTakesPython() const {
    return hasModule("nautilus", "libnautilus-python.so");
}

bool PathPrograms::hasExtension(std::string_view program) const {
    return hasModule(program, fmt::format("libblankwell-plus-{}.so", program));
}

} // namespace blankwell
