#include "bench/ScratchFolder.h"
#include "platform/linux/BundleDirectory.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

namespace blankwell {
namespace {

/// Runs a program to its end, with nobody listening; whether it ended well.
bool run(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    for (auto& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    ::posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::pid_t child = 0;
    const int error =
        ::posix_spawn(&child, pointers[0], &actions, nullptr, pointers.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    return error == 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

/// Times a process that makes the file `path`; taking it away again is not counted.
void measureProcess(benchmark::State& state, const std::vector<std::string>& arguments,
                    const std::string& path) {
    for (auto each : state) {
        const auto start = std::chrono::steady_clock::now();
        const bool isDone = run(arguments);
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        if (!isDone || ::unlink(path.c_str()) != 0) {
            state.SkipWithError("the file was not made");
            break;
        }
    }
}

void blankwellCreate(benchmark::State& state) {
    const ScratchFolder folder;
    const auto program = BundleDirectory::folderOfRunningProgram()->appending("blankwell");
    measureProcess(state, {program.path(), "create", "txt", folder.path()},
                   folder.at("Untitled.txt"));
}

void touchNewFile(benchmark::State& state) {
    const ScratchFolder folder;
    const auto path = folder.at("Untitled.txt");
    measureProcess(state, {"/usr/bin/touch", path}, path);
}

BENCHMARK(blankwellCreate)->UseManualTime();
BENCHMARK(touchNewFile)->UseManualTime();

} // namespace
} // namespace blankwell

BENCHMARK_MAIN();
