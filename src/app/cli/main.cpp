#include "app/cli/CurrentFolder.h"
#include "app/cli/Program.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/ProcessEnvironment.h"

#include <clocale>
#include <cstdio>
#include <string_view>
#include <vector>

namespace blankwell::cli {
namespace {

Outcome failed(std::string_view problem) {
    return {.status = Outcome::failed, .errors = std::string(problem) + "\n"};
}

Outcome runProgram(const std::vector<std::string_view>& arguments) {
    const auto invocation = parseArguments(arguments);
    if (!invocation) {
        return wrongUsage(invocation.error());
    }
    const auto programFolder = BundleDirectory::folderOfRunningProgram();
    if (!programFolder) {
        return failed(programFolder.error().description);
    }
    auto folder = currentFolder(ProcessEnvironment{});
    if (!folder) {
        return failed("The current folder does not exist any more.");
    }
    Program program(*programFolder, *std::move(folder),
                    invocation->verbose ? ConsoleLog::StandardError::verbose
                                        : ConsoleLog::StandardError::silent);
    return program.run(invocation->command);
}

/// Whether all of `text` went out to `stream`.
bool print(std::FILE* stream, std::string_view text) {
    return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
           std::fflush(stream) == 0;
}

} // namespace
} // namespace blankwell::cli

int main(int argc, char** argv) {
    using namespace blankwell::cli;
    std::setlocale(LC_MESSAGES, ""); // the system's own error texts in the user's language
    const auto outcome = runProgram({argv + 1, argv + argc});
    print(stderr, outcome.errors);
    if (!print(stdout, outcome.output)) {
        print(stderr, "Could not write to standard output.\n");
        return Outcome::failed;
    }
    return outcome.status;
}
