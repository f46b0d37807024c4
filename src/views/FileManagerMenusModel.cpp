#include "views/FileManagerMenusModel.h"

#include "shell/FileManager.h"
#include "shell/Installation.h"

#include <fmt/core.h>

#include <algorithm>
#include <ranges>
#include <utility>

namespace blankwell {
namespace {

using Availability = FileManagerMenuState::Availability;

bool isOutOfReach(const std::vector<FileManagerMenuState>& states) {
    return std::ranges::all_of(states, [](const FileManagerMenuState& state) {
        return state.availability == Availability::outOfReach;
    });
}

bool isInstalled(const FileManagerMenuState& state) {
    return state.availability == Availability::available ||
           state.availability == Availability::needsPackage;
}

std::string namesOfAll() {
    std::string names(infoOf(allFileManagers.front()).name);
    for (const auto manager : allFileManagers | std::views::drop(1)) {
        names += manager == allFileManagers.back() ? " and " : ", ";
        names += infoOf(manager).name;
    }
    return names;
}

std::string textAbove(const std::vector<FileManagerMenuState>& states, bool hasRows) {
    if (isOutOfReach(states)) {
        return "Blankwell+ runs in a sandbox, which keeps it from the menus of file managers.";
    }
    if (!hasRows) {
        return fmt::format("None of the file managers whose menus can have a **Create File** "
                           "command is installed: {}.",
                           namesOfAll());
    }
    return "Choose which ones have a **Create File** command in their menus.";
}

/// What to know once the menu was switched, and is now as `state` says.
std::string noteAfter(const FileManagerMenuState& state, bool isWanted) {
    if (isWanted && !state.isOn) {
        return "Appears when a file type is switched on.";
    }
    return state.mustRestart
               ? fmt::format("Takes effect when {} is started again.", infoOf(state.manager).name)
               : "";
}

} // namespace

FileManagerMenusModel::FileManagerMenusModel(Installation& installation)
    : installation_(installation) {}

void FileManagerMenusModel::refresh() {
    const auto states = installation_.menuStates();
    FileManagerMenusContent content;
    for (const auto& state : states) {
        if (isInstalled(state)) {
            content.rows.push_back(rowOf(state));
        }
    }
    content.text = textAbove(states, !content.rows.empty());
    if (content != content_.get()) {
        content_.set(std::move(content));
    }
}

void FileManagerMenusModel::turn(FileManager manager, bool on) {
    const auto turned = installation_.turnMenu(manager, on);
    const auto states = installation_.menuStates();
    const auto& state = *std::ranges::find(states, manager, &FileManagerMenuState::manager);
    notes_[manager] = turned ? Note{noteAfter(state, on), false, state.isOn}
                             : Note{turned.error().description, true, state.isOn};
    refresh();
}

FileManagerMenuRow FileManagerMenusModel::rowOf(const FileManagerMenuState& state) {
    FileManagerMenuRow row{
        .manager = state.manager,
        .name = infoOf(state.manager).name,
        .isOn = state.isOn,
    };
    if (state.availability != Availability::available) {
        row.canBeSwitched = false;
        row.note = fmt::format("It {}.", description(state));
        return row;
    }
    if (const auto found = notes_.find(state.manager); found != notes_.end()) {
        if (found->second.isOn == state.isOn) {
            row.note = found->second.text;
            row.hasFailed = found->second.hasFailed;
        } else {
            notes_.erase(found);
        }
    }
    return row;
}

} // namespace blankwell
