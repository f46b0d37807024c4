#include "app/cli/CommandRunner.h"

#include "access/FolderAccess.h"
#include "access/SecurityScopedBookmarkStore.h"
#include "app/FinderRequest.h"
#include "app/FinderRequestHandler.h"
#include "app/Version.h"
#include "base/FileUri.h"
#include "base/Overloaded.h"
#include "base/Text.h"
#include "filetypes/FileTypeCatalog.h"
#include "platform/ApplicationRequests.h"
#include "platform/LoginItem.h"
#include "platform/SessionApplication.h"
#include "shell/Installation.h"
#include "shell/Uninstallation.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

namespace blankwell::cli {
namespace {

Outcome printing(std::string output) {
    return {.output = std::move(output)};
}

Outcome failing(std::string_view description) {
    return {.status = Outcome::failed, .errors = fmt::format("{}\n", description)};
}

/// Bytes of a path that are not UTF-8 have no JSON form and become the replacement character.
std::string jsonText(const nlohmann::json& json) {
    return json.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

} // namespace

Outcome wrongUsage(std::string_view problem) {
    return {.status = Outcome::wrongUsage, .errors = fmt::format("blankwell: {}\n", problem)};
}

Outcome CommandRunner::run(const Command& command) {
    return std::visit([this](const auto& specific) { return execute(specific); }, command);
}

Outcome CommandRunner::execute(const CreateCommand& command) {
    const auto* const type = FileTypeCatalog::definition(command.typeID);
    if (type == nullptr) {
        return wrongUsage(
            fmt::format("no file type '{}'; 'blankwell types' lists them", command.typeID));
    }
    const auto created = services_.folderAccess.createWithFolderAccess(
        folderOf(command), AccessPrompt::forbidden, *type);
    return created ? printing(created->path() + "\n") : failing(description(created.error()));
}

Outcome CommandRunner::execute(const OpenCommand& command) {
    const auto request = parseFinderRequest(command.url);
    if (!request) {
        return wrongUsage(fmt::format("not a request URL: {}", command.url));
    }
    // What cannot succeed is told here, where the caller sees it.
    if (FileTypeCatalog::definition(request->typeID) != nullptr) {
        const auto taken = services_.application.open({command.url});
        if (taken) {
            return {};
        }
        if (taken.error().request == HandOverFailure::Request::unknown) {
            return failing(taken.error().description);
        }
    }
    services_.requestHandler.openUrl(command.url);
    return {};
}

Outcome CommandRunner::execute(const QuickCreateCommand& /*command*/) {
    const auto taken = services_.application.activateAction(quickCreateAction);
    return taken ? Outcome{} : failing(taken.error().description);
}

Outcome CommandRunner::execute(const TypesCommand& command) {
    const auto types = FileTypeCatalog::builtInTypes();
    if (command.format == ListFormat::json) {
        return printing(jsonText(std::vector(types.begin(), types.end())));
    }
    std::string lines;
    for (const auto& type : types) {
        lines += fmt::format("{:<7}{:<7}{:<26}{}\n", type.id, type.fileExtension, type.displayName,
                             rawValue(type.category));
    }
    return printing(std::move(lines));
}

Outcome CommandRunner::execute(const FoldersCommand& command) {
    const auto roots = services_.store.savedFolderRoots();
    if (command.format == ListFormat::json) {
        auto paths = nlohmann::json::array();
        for (const auto& root : roots) {
            paths.push_back(root.path());
        }
        return printing(jsonText(paths));
    }
    std::string lines;
    for (const auto& root : roots) {
        lines += root.path() + "\n";
    }
    return printing(std::move(lines));
}

Outcome CommandRunner::execute(const AddFolderCommand& command) {
    const auto folder = absolute(command.folder);
    const auto saved = services_.store.saveBookmark(folder, folder);
    return saved ? Outcome{} : failing(saved.error().description());
}

Outcome CommandRunner::execute(const ForgetFolderCommand& command) {
    const auto removed = services_.store.removeBookmark(absolute(command.folder));
    return removed ? Outcome{} : failing(removed.error().description);
}

Outcome CommandRunner::execute(const AutostartCommand& command) {
    if (command.change) {
        const bool toOn = *command.change == AutostartCommand::Change::on;
        const auto turned = toOn ? services_.loginItem.turnOn() : services_.loginItem.turnOff();
        return turned ? Outcome{} : failing(turned.error().description);
    }
    const auto isOn = services_.loginItem.isOn();
    return isOn ? printing(*isOn ? "on\n" : "off\n") : failing(isOn.error().description);
}

Outcome CommandRunner::execute(const RequestCommand& command) {
    if (FileTypeCatalog::definition(command.typeID) == nullptr) {
        return wrongUsage(
            fmt::format("no file type '{}'; 'blankwell types' lists them", command.typeID));
    }
    const auto folder = fileOfUri(command.folder).value_or(absolute(command.folder));
    if (!isUtf8(folder.path())) {
        return failing(fmt::format("A request cannot name \"{}\", which is not UTF-8.",
                                   folder.lastPathComponent()));
    }
    return execute(OpenCommand{
        .url = finderRequestUrl({.typeID = command.typeID, .directoryPath = folder.path()})});
}

Outcome CommandRunner::execute(const InstallCommand& command) {
    const auto folder = command.folder ? std::optional(absolute(*command.folder)) : std::nullopt;
    const auto bundle = services_.installation.install(folder);
    return bundle ? printing(bundle->path() + "\n") : failing(bundle.error().description);
}

Outcome CommandRunner::execute(const UnregisterCommand& /*command*/) {
    const auto done = services_.installation.unregister();
    return done ? Outcome{} : failing(done.error().description);
}

Outcome CommandRunner::execute(const UninstallCommand& command) {
    const auto consent =
        command.isConfirmed ? Uninstallation::Consent::given : Uninstallation::Consent::wanted;
    const auto ending = services_.uninstallation.run(consent);
    if (!ending) {
        return failing(ending.error().description);
    }
    switch (*ending) {
    case Uninstallation::Ending::removed:
        return {};
    case Uninstallation::Ending::declined:
        return failing("Nothing was removed.");
    case Uninstallation::Ending::failed:
        return {.status = Outcome::failed};
    }
    std::unreachable();
}

Outcome CommandRunner::execute(const MenusCommand& command) {
    if (!command.change) {
        return printing(listOfMenus());
    }
    std::vector<FileManager> managers;
    for (const auto& id : command.managers) {
        const auto manager = fileManager(id);
        if (!manager) {
            return wrongUsage(
                fmt::format("no file manager '{}'; 'blankwell menus' lists them", id));
        }
        managers.push_back(*manager);
    }
    const bool toOn = *command.change == MenusCommand::Change::on;
    if (managers.empty()) {
        for (const auto& state : services_.installation.menuStates()) {
            if (!toOn || state.availability == FileManagerMenuState::Availability::available) {
                managers.push_back(state.manager);
            }
        }
    }
    Outcome outcome;
    for (const auto manager : managers) {
        if (const auto turned = services_.installation.turnMenu(manager, toOn); !turned) {
            outcome.status = Outcome::failed;
            outcome.errors += turned.error().description + "\n";
        }
    }
    return outcome;
}

std::string CommandRunner::listOfMenus() const {
    std::string lines;
    for (const auto& state : services_.installation.menuStates()) {
        lines += fmt::format("{:<12}{}\n", infoOf(state.manager).id, description(state));
    }
    return lines;
}

Outcome CommandRunner::execute(const HelpCommand& /*command*/) {
    return printing(std::string(helpText()));
}

Outcome CommandRunner::execute(const VersionCommand& /*command*/) {
    return printing(fmt::format("blankwell {}\n", version));
}

FileUrl CommandRunner::folderOf(const CreateCommand& command) const {
    return std::visit(Overloaded{
                          [this](std::monostate) { return services_.currentFolder; },
                          [this](const std::string& path) { return absolute(path); },
                          [this](CreationDestinationMode mode) {
                              return services_.destination.resolve(mode).url;
                          },
                      },
                      command.place);
}

FileUrl CommandRunner::absolute(const std::string& path) const {
    const auto whole =
        path.starts_with('/') ? FileUrl(path) : services_.currentFolder.appending(path);
    return whole.standardized();
}

} // namespace blankwell::cli
