#include "desktop/OwnDesktop.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace blankwell {

bool isOnOwnDesktop() {
    return std::getenv("BLANKWELL_DESKTOP") != nullptr;
}

void runOnOwnDesktop(const std::vector<char*>& arguments) {
    std::string withDesktop = BLANKWELL_WITH_DESKTOP;
    auto self = std::filesystem::read_symlink("/proc/self/exe").string();
    std::vector<char*> command{withDesktop.data(), self.data()};
    for (auto* const argument : arguments) {
        command.push_back(argument);
    }
    command.push_back(nullptr);
    ::execv(withDesktop.c_str(), command.data());
    std::perror(withDesktop.c_str());
}

} // namespace blankwell
