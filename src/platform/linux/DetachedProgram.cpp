#include "platform/linux/DetachedProgram.h"

#include <glib.h>
#include <unistd.h>

#include <vector>

namespace blankwell {
namespace {

void leaveSession(void* /*unused*/) {
    ::setsid();
}

} // namespace

bool startDetached(const Command& command, const std::optional<FileUrl>& in) {
    std::vector<char*> arguments;
    for (const auto& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    constexpr auto flags = static_cast<GSpawnFlags>(
        G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
    return g_spawn_async(in ? in->path().c_str() : nullptr, arguments.data(), nullptr, flags,
                         leaveSession, nullptr, nullptr, nullptr) != 0;
}

} // namespace blankwell
