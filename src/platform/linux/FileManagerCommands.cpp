#include "platform/linux/FileManagerCommands.h"

#include <string>
#include <utility>

namespace blankwell {
namespace {

using Folders = std::vector<FileUrl>;

Command withFolders(Command command, const Folders& folders) {
    for (const auto& folder : folders) {
        command.push_back(folder.path());
    }
    return command;
}

/// One window for each folder of all windows.
Folders flattened(const std::vector<Folders>& windows) {
    Folders folders;
    for (const auto& window : windows) {
        folders.insert(folders.end(), window.begin(), window.end());
    }
    return folders;
}

/// `command` for each window, whose folders become tabs.
std::vector<Command> eachWindow(const Command& command, const std::vector<Folders>& windows) {
    std::vector<Command> commands;
    commands.reserve(windows.size());
    for (const auto& window : windows) {
        commands.push_back(withFolders(command, window));
    }
    return commands;
}

std::vector<Command> dolphinCommands(const std::vector<Folders>& windows) {
    return windows.empty() ? std::vector<Command>{{"dolphin", "--daemon"}}
                           : eachWindow({"dolphin", "--new-window"}, windows);
}

/// Without windows and a desktop it would end at once.
std::vector<Command> cajaCommands(const Folders& folders, bool drawsDesktop) {
    if (folders.empty() && !drawsDesktop) {
        return {};
    }
    return {withFolders(
        {"caja", drawsDesktop ? "--force-desktop" : "--no-desktop", "--no-default-window"},
        folders)};
}

std::vector<Command> pcmanfmQtCommands(const std::vector<Folders>& windows, bool drawsDesktop) {
    auto commands = eachWindow({"pcmanfm-qt", "--new-window"}, windows);
    if (drawsDesktop) {
        commands.push_back({"pcmanfm-qt", "--desktop"});
    } else if (commands.empty()) {
        commands.push_back({"pcmanfm-qt", "--daemon-mode"});
    }
    return commands;
}

/// The command `opening` with `folders`, or `waiting` where there are none.
std::vector<Command> either(Command opening, const Folders& folders, Command waiting) {
    return {folders.empty() ? std::move(waiting) : withFolders(std::move(opening), folders)};
}

} // namespace

std::optional<Command> quitCommand(FileManager fileManager) {
    switch (fileManager) {
    case FileManager::nautilus:
        return Command{"nautilus", "--quit"};
    case FileManager::dolphin:
        return std::nullopt;
    case FileManager::thunar:
        return Command{"thunar", "--quit"};
    case FileManager::nemo:
        return Command{"nemo", "--quit"};
    case FileManager::caja:
        return Command{"caja", "--quit"};
    case FileManager::pcmanfmQt:
        return Command{"pcmanfm-qt", "--quit"};
    }
    return std::nullopt;
}

std::vector<Command> startCommands(FileManager fileManager, const OpenFolders& open,
                                   const FileUrl& home) {
    auto windows = open.windows;
    for (auto& window : windows) {
        if (window.empty()) {
            window.push_back(home);
        }
    }
    const auto folders = flattened(windows);
    switch (fileManager) {
    case FileManager::nautilus:
        return either({"nautilus", "--new-window"}, folders,
                      {"nautilus", "--gapplication-service"});
    case FileManager::dolphin:
        return dolphinCommands(windows);
    case FileManager::thunar:
        return either({"thunar"}, folders, {"thunar", "--daemon"});
    case FileManager::nemo:
        return either({"nemo"}, folders, {"nemo", "--no-default-window"});
    case FileManager::caja:
        return cajaCommands(folders, open.drawsDesktop);
    case FileManager::pcmanfmQt:
        return pcmanfmQtCommands(windows, open.drawsDesktop);
    }
    return {};
}

} // namespace blankwell
