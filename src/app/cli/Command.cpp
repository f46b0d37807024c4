#include "app/cli/Command.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <vector>

namespace blankwell::cli {
namespace {

using ParsedCommand = std::expected<Command, std::string>;

/// The arguments of one command: what it works on, and the options that are left to be understood.
struct Arguments {
    std::vector<std::string> operands;
    std::vector<std::string> options;

    /// Takes `option` out; whether it was there.
    bool take(std::string_view option) { return std::erase(options, option) > 0; }

    [[nodiscard]] std::unexpected<std::string> wrongCount(std::string_view usage) const {
        return std::unexpected(fmt::format("usage: blankwell {}", usage));
    }
};

ParsedCommand parseCreate(Arguments& arguments) {
    constexpr auto usage = "create TYPE [FOLDER | --desktop | --front]";
    const bool desktop = arguments.take("--desktop");
    const bool front = arguments.take("--front");
    const auto count = arguments.operands.size();
    const auto places = static_cast<std::size_t>(desktop) + static_cast<std::size_t>(front);
    if (count < 1 || count > 2 || count - 1 + places > 1) {
        return arguments.wrongCount(usage);
    }
    CreateCommand command{.typeID = arguments.operands[0]};
    if (count == 2) {
        command.place = arguments.operands[1];
    } else if (desktop) {
        command.place = CreationDestinationMode::desktop;
    } else if (front) {
        command.place = CreationDestinationMode::frontFinderFolder;
    }
    return command;
}

ParsedCommand parseOpen(Arguments& arguments) {
    const auto& operands = arguments.operands;
    if (operands.size() == 2) {
        return RequestCommand{.typeID = operands[0], .folder = operands[1]};
    }
    if (operands.size() != 1) {
        return arguments.wrongCount("open URL | open TYPE FOLDER");
    }
    return OpenCommand{.url = operands[0]};
}

ParsedCommand parseQuickCreate(Arguments& arguments) {
    if (!arguments.operands.empty()) {
        return arguments.wrongCount("quick-create");
    }
    return QuickCreateCommand{};
}

ListFormat takeFormat(Arguments& arguments) {
    return arguments.take("--json") ? ListFormat::json : ListFormat::text;
}

ParsedCommand parseTypes(Arguments& arguments) {
    const auto format = takeFormat(arguments);
    if (!arguments.operands.empty()) {
        return arguments.wrongCount("types [--json]");
    }
    return TypesCommand{.format = format};
}

ParsedCommand parseFolders(Arguments& arguments) {
    const auto& operands = arguments.operands;
    if (operands.empty()) {
        return FoldersCommand{.format = takeFormat(arguments)};
    }
    if (operands.size() == 2 && operands[0] == "add") {
        return AddFolderCommand{.folder = operands[1]};
    }
    if (operands.size() == 2 && operands[0] == "forget") {
        return ForgetFolderCommand{.folder = operands[1]};
    }
    return arguments.wrongCount("folders [--json | add FOLDER | forget FOLDER]");
}

ParsedCommand parseAutostart(Arguments& arguments) {
    const auto& operands = arguments.operands;
    if (operands.empty()) {
        return AutostartCommand{};
    }
    if (operands.size() == 1 && operands[0] == "on") {
        return AutostartCommand{AutostartCommand::Change::on};
    }
    if (operands.size() == 1 && operands[0] == "off") {
        return AutostartCommand{AutostartCommand::Change::off};
    }
    return arguments.wrongCount("autostart [on | off]");
}

ParsedCommand parseInstall(Arguments& arguments) {
    const std::size_t wanted = arguments.take("--to") ? 1 : 0;
    if (arguments.operands.size() != wanted) {
        return arguments.wrongCount("install [--to FOLDER]");
    }
    return wanted == 0 ? InstallCommand{} : InstallCommand{.folder = arguments.operands[0]};
}

ParsedCommand parseUnregister(Arguments& arguments) {
    if (!arguments.operands.empty()) {
        return arguments.wrongCount("unregister");
    }
    return UnregisterCommand{};
}

ParsedCommand parseUninstall(Arguments& arguments) {
    const bool isConfirmed = arguments.take("--yes");
    if (!arguments.operands.empty()) {
        return arguments.wrongCount("uninstall [--yes]");
    }
    return UninstallCommand{.isConfirmed = isConfirmed};
}

ParsedCommand parseMenus(Arguments& arguments) {
    auto& operands = arguments.operands;
    if (operands.empty() || (operands.size() == 1 && operands[0] == "list")) {
        return MenusCommand{};
    }
    if (operands[0] != "on" && operands[0] != "off") {
        return arguments.wrongCount("menus [list | on [MANAGER...] | off [MANAGER...]]");
    }
    using enum MenusCommand::Change;
    const auto change = operands[0] == "on" ? on : off;
    return MenusCommand{.change = change, .managers = {operands.begin() + 1, operands.end()}};
}

ParsedCommand parseNothing(Arguments& arguments) {
    if (arguments.take("--help")) {
        return HelpCommand{};
    }
    if (arguments.take("--version")) {
        return VersionCommand{};
    }
    return std::unexpected("no command given; 'blankwell --help' lists them");
}

struct CommandParser {
    std::string_view name;
    ParsedCommand (*parse)(Arguments&);
};

constexpr std::array parsers{
    CommandParser{"create", parseCreate},
    CommandParser{"open", parseOpen},
    CommandParser{"quick-create", parseQuickCreate},
    CommandParser{"types", parseTypes},
    CommandParser{"folders", parseFolders},
    CommandParser{"autostart", parseAutostart},
    CommandParser{"install", parseInstall},
    CommandParser{"menus", parseMenus},
    CommandParser{"unregister", parseUnregister},
    CommandParser{"uninstall", parseUninstall},
};

Arguments sortedOut(std::span<const std::string_view> arguments) {
    Arguments result;
    bool isEnded = false;
    for (const auto argument : arguments) {
        if (!isEnded && argument == "--") {
            isEnded = true;
        } else if (!isEnded && argument.starts_with('-') && argument.size() > 1) {
            result.options.emplace_back(argument == "-h" ? "--help" : argument);
        } else {
            result.operands.emplace_back(argument);
        }
    }
    return result;
}

ParsedCommand parseCommand(Arguments& arguments) {
    if (arguments.operands.empty()) {
        return parseNothing(arguments);
    }
    if (arguments.take("--help")) {
        return HelpCommand{};
    }
    const auto name = arguments.operands.front();
    const auto* const parser = std::ranges::find(parsers, name, &CommandParser::name);
    if (parser == parsers.end()) {
        return std::unexpected(fmt::format("no command '{}'; 'blankwell --help' lists them", name));
    }
    arguments.operands.erase(arguments.operands.begin());
    return parser->parse(arguments);
}

} // namespace

std::expected<Invocation, std::string> parseArguments(std::span<const std::string_view> arguments) {
    if (std::ranges::find(arguments, std::string_view()) != arguments.end()) {
        return std::unexpected("an argument is empty");
    }
    auto sorted = sortedOut(arguments);
    const bool verbose = sorted.take("--verbose");
    auto command = parseCommand(sorted);
    if (!command) {
        return std::unexpected(std::move(command.error()));
    }
    if (!sorted.options.empty()) {
        return std::unexpected(fmt::format("no option '{}' here", sorted.options.front()));
    }
    return Invocation{.command = *std::move(command), .verbose = verbose};
}

std::string_view helpText() {
    return "Usage: blankwell COMMAND\n"
           "\n"
           "Creates new, blank files. A file is called \"Untitled\", numbered when that is taken,\n"
           "and nothing is ever overwritten.\n"
           "\n"
           "Commands:\n"
           "  create TYPE [FOLDER]      create a file of TYPE in FOLDER (the current folder where\n"
           "                            none is given) and print its path\n"
           "  create TYPE --desktop     the same on the Desktop\n"
           "  create TYPE --front       the same in the folder of the frontmost file manager\n"
           "                            window, or on the Desktop where there is none\n"
           "  open URL                  do what a request URL asks for, such as\n"
           "                            blankwellplus://create?type=md&directory=/home/me;\n"
           "                            the application does it where it runs or can be started\n"
           "  open TYPE FOLDER          the same by type and folder, a path or a file:// URI\n"
           "  quick-create              open the Quick Create panel of the application\n"
           "  types [--json]            list the types: id, extension, name, category\n"
           "  folders [--json]          list the folders that Blankwell+ may create files in\n"
           "                            when it is sandboxed\n"
           "  folders add FOLDER        allow FOLDER and all that is in it\n"
           "  folders forget FOLDER     take that back\n"
           "  autostart                 print whether the application starts at login: on or off\n"
           "  autostart on | off        let it, or keep it from that\n"
           "  menus [list]              list the file managers and whether they have the menu\n"
           "                            \"Create File\"\n"
           "  menus on [MANAGER...]     give it to them, or to all that are installed\n"
           "  menus off [MANAGER...]    take it from them\n"
           "  install [--to FOLDER]     copy the application to FOLDER (~/Applications where none\n"
           "                            is given) and make it known to the desktop\n"
           "  unregister                take back all by which the desktop knows it\n"
           "  uninstall [--yes]         move the application to the Trash and remove its "
           "settings,\n"
           "                            after asking in the terminal, or unasked\n"
           "\n"
           "Options:\n"
           "  --verbose                 write log lines to standard error\n"
           "  -h, --help                print this text\n"
           "  --version                 print the version\n"
           "  --                        what follows is no option, even if it begins with '-'\n"
           "\n"
           "Exit status: 0 done, 1 failed (standard error says why), 2 wrong usage.\n";
}

} // namespace blankwell::cli
