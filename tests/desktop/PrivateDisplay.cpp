#include "desktop/PrivateDisplay.h"

#include "platform/linux/FileDescriptor.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace blankwell {
namespace {

/// Becomes the X server, which writes its number to the descriptor `ready`. The server does not
/// outlive the test, even one that crashes.
[[noreturn]] void becomeServer(const std::vector<std::string>& options, int ready) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // Not one of the descriptors that the server closes or takes for its own.
    constexpr int readyInServer = 3;
    ::dup2(ready, readyInServer);
    std::vector<std::string> words{"Xvfb",      "-displayfd", std::to_string(readyInServer),
                                   "-nolisten", "tcp",        "-noreset"};
    words.insert(words.end(), options.begin(), options.end());
    std::vector<char*> arguments;
    for (auto& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    if (::freopen("/dev/null", "w", stderr) != nullptr) {
        ::execvp(arguments[0], arguments.data());
    }
    ::_exit(127);
}

/// The line that `descriptor` gives; what there is of it if it ends before.
std::string readLine(int descriptor) {
    std::string line;
    for (char character = 0; ::read(descriptor, &character, 1) == 1 && character != '\n';) {
        line += character;
    }
    return line;
}

} // namespace

PrivateDisplay::PrivateDisplay(const std::vector<std::string>& options) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    const FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    server_ = ::fork();
    if (server_ == 0) {
        becomeServer(options, writing.get());
    }
    writing.reset();
    const auto number = readLine(reading.get());
    if (number.empty()) {
        end(SIGKILL);
        throw std::runtime_error("Xvfb does not start");
    }
    name_ = ":" + number;
    const auto* const outer = std::getenv("DISPLAY");
    outerName_ = outer == nullptr ? "" : outer;
    ::setenv("DISPLAY", name_.c_str(), 1);
}

PrivateDisplay::~PrivateDisplay() {
    end(SIGTERM);
    ::setenv("DISPLAY", outerName_.c_str(), 1);
}

void PrivateDisplay::crash() {
    end(SIGKILL);
}

void PrivateDisplay::end(int signal) {
    if (const auto server = std::exchange(server_, -1); server > 0) {
        ::kill(server, signal);
        ::waitpid(server, nullptr, 0);
    }
}

} // namespace blankwell
