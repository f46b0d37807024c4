#include "desktop/Program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <thread>

namespace blankwell {
namespace {

/// Starts `command` with its standard output at the descriptor `output`.
pid_t start(const Arguments& command, int output) {
    std::vector<char*> arguments;
    for (const auto& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int failure =
        ::posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        throw std::runtime_error("cannot start " + command.front());
    }
    return process;
}

pid_t startSilently(const Arguments& command) {
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    const auto process = start(command, nowhere);
    ::close(nowhere);
    return process;
}

} // namespace

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

std::string outputOf(const Arguments& command) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    const auto process = start(command, ends[1]);
    ::close(ends[1]);
    std::string output;
    std::array<char, 4096> part{};
    for (ssize_t count = 0; (count = ::read(ends[0], part.data(), part.size())) > 0;) {
        output.append(part.data(), static_cast<std::size_t>(count));
    }
    ::close(ends[0]);
    ::waitpid(process, nullptr, 0);
    return output;
}

Program::Program(const Arguments& command) : process_(startSilently(command)) {}

Program::~Program() {
    if (process_ < 0) {
        return;
    }
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
}

void Program::hang() const {
    ::kill(process_, SIGSTOP);
    // Returns once it has stopped.
    ::waitpid(process_, nullptr, WUNTRACED);
}

void Program::goOn() const {
    ::kill(process_, SIGCONT);
}

int Program::terminate() {
    ::kill(process_, SIGTERM);
    return exitStatus();
}

int Program::exitStatus() {
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace blankwell
