#include "app/Version.h"
#include "app/application/Invocation.h"
#include "app/application/Program.h"
#include "platform/Identifiers.h"
#include "platform/linux/DBusApplication.h"
#include "platform/linux/SystemErrors.h"
#include "platform/linux/TerminationSignals.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SessionInstance.h"

#include <QApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <linux/close_range.h>
#include <unistd.h>

namespace blankwell::application {
namespace {

constexpr int wrongUsage = 2;

int fail(std::string_view problem, int status = EXIT_FAILURE) {
    const auto line = "blankwell-plus: " + std::string(problem) + "\n";
    std::fputs(line.c_str(), stderr);
    return status;
}

/// Puts `text` out, and says so where it did not get there.
int say(const std::string& text) {
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
        return fail("Could not write to standard output.");
    }
    return EXIT_SUCCESS;
}

/// What the program has to say without running; nothing where it is to run.
std::optional<std::string> textInstead(Invocation::Purpose purpose) {
    switch (purpose) {
    case Invocation::Purpose::showHelp:
        return std::string(helpText());
    case Invocation::Purpose::showVersion:
        return "blankwell-plus " + std::string(version) + "\n";
    case Invocation::Purpose::run:
        break;
    }
    return std::nullopt;
}

void configure() {
    QApplication::setApplicationName("Blankwell+");
    QApplication::setDesktopFileName(qtText(bundleIdentifier));
    QApplication::setQuitOnLastWindowClosed(false);
}

/// Runs the one instance of the session until it is told to end. `successor` is the program to run
/// after it, if there is to be one.
int runFirst(SessionInstance& instance, const Invocation& invocation,
             std::optional<FileUrl>& successor) {
    const auto folder = BundleDirectory::folderOfRunningProgram();
    if (!folder) {
        return fail(folder.error().description);
    }
    const auto termination = TerminationSignals::take();
    if (!termination) {
        return fail(termination.error().description);
    }
    Program program(*folder);
    QSocketNotifier ending(termination->descriptor(), QSocketNotifier::Read);
    QObject::connect(&ending, &QSocketNotifier::activated, [&] {
        ending.setEnabled(false);
        program.terminate();
    });
    instance.serve(program.requests());
    program.start(invocation);
    const int status = QApplication::exec();
    program.stop(); // first of all, so that the next instance gets the hot keys
    instance.retire();
    program.finishRequests();
    successor = program.successor();
    return status;
}

SessionApplication::Taken handOver(const Invocation& invocation) {
    DBusApplication application(bundleIdentifier);
    if (!invocation.action.empty()) {
        return application.activateAction(invocation.action);
    }
    return invocation.urls.empty() ? application.activate() : application.open(invocation.urls);
}

int run(const Invocation& invocation, std::optional<FileUrl>& successor) {
    constexpr int attempts = 3;
    configure();
    for (int attempt = 1;; ++attempt) {
        SessionInstance instance{std::string(bundleIdentifier)};
        if (instance.claim() != SessionInstance::Claim::taken) {
            return runFirst(instance, invocation, successor);
        }
        const auto taken = handOver(invocation);
        if (taken) {
            return EXIT_SUCCESS;
        }
        // One that ends just now takes nothing any more, and then this one may be the first.
        if (taken.error().request == HandOverFailure::Request::unknown || attempt == attempts) {
            return fail(taken.error().description);
        }
    }
}

/// Goes on as `program`, with nothing of this one but its process and its environment.
int become(const FileUrl& program) {
    constexpr unsigned firstOfOurs = STDERR_FILENO + 1;
    ::close_range(firstOfOurs, ~0U, CLOSE_RANGE_CLOEXEC);
    const auto& path = program.path();
    ::execl(path.c_str(), path.c_str(), nullptr);
    return fail(posixError(errno, "Blankwell+ could not be started again").description);
}

} // namespace
} // namespace blankwell::application

int main(int argc, char** argv) {
    using namespace blankwell::application;
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    const auto invocation = parseArguments(arguments);
    if (!invocation) {
        return fail(invocation.error(), wrongUsage);
    }
    if (const auto text = textInstead(invocation->purpose)) {
        return say(*text);
    }
    std::optional<blankwell::FileUrl> successor;
    const int status = [&] {
        const QApplication application(argc, argv);
        return run(*invocation, successor);
    }();
    return successor ? become(*successor) : status;
}
