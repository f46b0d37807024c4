#include "bench/Paired.h"
#include "bench/ScratchFolder.h"
#include "platform/linux/BundleDirectory.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace blankwell {
namespace {

/// Runs a program to its end, with nobody listening.
void run(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    for (auto& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    ::posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::pid_t child = 0;
    ::posix_spawn(&child, pointers[0], &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::waitpid(child, nullptr, 0);
}

void createAsProcess(benchmark::State& state) {
    const ScratchFolder folder;
    const auto program = BundleDirectory::folderOfRunningProgram()->appending("blankwell");
    const auto path = folder.at("Untitled.txt");
    measurePaired(
        state, [&] { run({program.path(), "create", "txt", folder.path()}); },
        [&] { run({"/usr/bin/touch", path}); }, [&] { return ::unlink(path.c_str()) == 0; });
}

BENCHMARK(createAsProcess)->Iterations(500);

} // namespace
} // namespace blankwell

BENCHMARK_MAIN();
