#include "app/application/Invocation.h"

#include <fmt/format.h>

namespace blankwell::application {

std::expected<Invocation, std::string> parseArguments(std::span<const std::string_view> arguments) {
    constexpr std::string_view actionOption = "--action=";
    Invocation invocation;
    for (const auto argument : arguments) {
        if (argument == "--help") {
            invocation.purpose = Invocation::Purpose::showHelp;
        } else if (argument == "--version") {
            invocation.purpose = Invocation::Purpose::showVersion;
        } else if (argument == "--background") {
            invocation.inBackground = true;
        } else if (argument.starts_with(actionOption)) {
            invocation.action = argument.substr(actionOption.size());
        } else if (argument.starts_with('-')) {
            return std::unexpected(fmt::format("unknown option '{}'", argument));
        } else {
            invocation.urls.emplace_back(argument);
        }
    }
    return invocation;
}

std::string_view helpText() {
    return "Usage: blankwell-plus [--background | --action=ACTION | URL...]\n"
           "\n"
           "Creates blank files from a panel, from hot keys and from a status menu. Where it\n"
           "already runs in the session, the running one opens the URLs or shows its window.\n"
           "\n"
           "  --background     show no window at the start\n"
           "  --action=ACTION  quick-create, or create- and the id of a file type\n"
           "  --help           show this text\n"
           "  --version        show the version\n";
}

} // namespace blankwell::application
