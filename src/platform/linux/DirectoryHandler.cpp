#include "platform/linux/DirectoryHandler.h"

#include "base/FileUri.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <memory>

namespace blankwell {
namespace {

/// How a file manager that is not running yet is told to select an item.
struct SelectingProgram {
    std::string_view desktopId;
    std::string_view program;
    /// Before the item; empty for none.
    std::string_view option;
    bool takesUri;
};

/// Caja opens no window for `--select` unless it runs already; PCManFM-Qt has no such option.
constexpr std::array selectingPrograms = {
    SelectingProgram{"org.gnome.Nautilus.desktop", "nautilus", "--select", true},
    SelectingProgram{"org.kde.dolphin.desktop", "dolphin", "--select", true},
    SelectingProgram{"thunar.desktop", "thunar", "", false},
    SelectingProgram{"nemo.desktop", "nemo", "", false},
};

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

struct FreeStrings {
    void operator()(char** strings) const { g_strfreev(strings); }
};

std::optional<Command> selectingCommand(const DirectoryHandler& handler, const FileUrl& item) {
    const auto* const found =
        std::ranges::find(selectingPrograms, handler.desktopId, &SelectingProgram::desktopId);
    if (found == selectingPrograms.end()) {
        return std::nullopt;
    }
    Command command{std::string(found->program)};
    if (!found->option.empty()) {
        command.emplace_back(found->option);
    }
    command.push_back(found->takesUri ? fileUri(item) : item.path());
    return command;
}

Command splitAtSpaces(const std::string& exec) {
    int count = 0;
    char** words = nullptr;
    if (g_shell_parse_argv(exec.c_str(), &count, &words, nullptr) == 0) {
        return {};
    }
    const std::unique_ptr<char*, FreeStrings> owner(words);
    return {words, words + count};
}

/// What a field code of the Desktop Entry Specification stands for here; those that name no file
/// stand for nothing.
std::string fieldValue(char code, const FileUrl& folder) {
    switch (code) {
    case 'f':
    case 'F':
        return folder.path();
    case 'u':
    case 'U':
        return fileUri(folder);
    case '%':
        return "%";
    default:
        return "";
    }
}

std::string expanded(std::string_view word, const FileUrl& folder) {
    std::string result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '%' && i + 1 < word.size()) {
            result += fieldValue(word[++i], folder);
        } else {
            result += word[i];
        }
    }
    return result;
}

bool takesFile(std::string_view word) {
    return word.contains("%f") || word.contains("%F") || word.contains("%u") || word.contains("%U");
}

Command openingCommand(const DirectoryHandler& handler, const FileUrl& folder) {
    const auto words = splitAtSpaces(handler.exec);
    Command command;
    for (const auto& word : words) {
        if (auto value = expanded(word, folder); !value.empty()) {
            command.push_back(std::move(value));
        }
    }
    if (!command.empty() && std::ranges::none_of(words, takesFile)) {
        command.push_back(folder.path());
    }
    return command;
}

} // namespace

std::optional<DirectoryHandler> defaultDirectoryHandler() {
    const std::unique_ptr<GAppInfo, Unref> info(
        g_app_info_get_default_for_type("inode/directory", FALSE));
    if (!info || !G_IS_DESKTOP_APP_INFO(info.get())) {
        return std::nullopt;
    }
    const auto* id = g_app_info_get_id(info.get());
    const auto* exec = g_app_info_get_commandline(info.get());
    if (id == nullptr || exec == nullptr ||
        g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(info.get()), "Terminal") != 0) {
        return std::nullopt;
    }
    return DirectoryHandler{.desktopId = id, .exec = exec};
}

std::vector<Command> revealCommands(const DirectoryHandler& handler, const FileUrl& item) {
    std::vector<Command> commands;
    if (auto selecting = selectingCommand(handler, item)) {
        commands.push_back(*std::move(selecting));
    }
    if (auto opening = openingCommand(handler, item.deletingLastPathComponent());
        !opening.empty()) {
        commands.push_back(std::move(opening));
    }
    return commands;
}

} // namespace blankwell
