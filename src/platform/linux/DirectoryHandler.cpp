#include "platform/linux/DirectoryHandler.h"

#include "base/FileUri.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

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

struct FreeText {
    void operator()(char* text) const { g_free(text); }
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

/// What a program is to open. A URL that names no file stands for its path as well.
struct Argument {
    std::string path;
    std::string uri;
};

/// What a field code of the Desktop Entry Specification stands for here; those that name no file
/// stand for nothing.
std::string fieldValue(char code, const Argument& argument) {
    switch (code) {
    case 'f':
    case 'F':
        return argument.path;
    case 'u':
    case 'U':
        return argument.uri;
    case '%':
        return "%";
    default:
        return "";
    }
}

std::string expanded(std::string_view word, const Argument& argument) {
    std::string result;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '%' && i + 1 < word.size()) {
            result += fieldValue(word[++i], argument);
        } else {
            result += word[i];
        }
    }
    return result;
}

bool takesFile(std::string_view word) {
    return word.contains("%f") || word.contains("%F") || word.contains("%u") || word.contains("%U");
}

Command openingCommand(const std::string& exec, const Argument& argument) {
    const auto words = splitAtSpaces(exec);
    Command command;
    for (const auto& word : words) {
        if (auto value = expanded(word, argument); !value.empty()) {
            command.push_back(std::move(value));
        }
    }
    if (!command.empty() && std::ranges::none_of(words, takesFile)) {
        command.push_back(argument.path);
    }
    return command;
}

/// Takes `owned` over.
std::optional<DirectoryHandler> handlerOf(GAppInfo* owned) {
    const std::unique_ptr<GAppInfo, Unref> info(owned);
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

std::optional<DirectoryHandler> handlerOfFile(const FileUrl& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file.path(), error);
    if (error || !std::filesystem::exists(status)) {
        return std::nullopt;
    }
    if (std::filesystem::is_directory(status)) {
        return defaultDirectoryHandler();
    }
    const std::unique_ptr<char, FreeText> type(
        g_content_type_guess(file.path().c_str(), nullptr, 0, nullptr));
    return handlerOf(g_app_info_get_default_for_type(type.get(), FALSE));
}

std::optional<Command> nonEmpty(Command command) {
    return command.empty() ? std::nullopt : std::optional(std::move(command));
}

} // namespace

std::optional<DirectoryHandler> defaultDirectoryHandler() {
    return handlerOf(g_app_info_get_default_for_type("inode/directory", FALSE));
}

std::vector<Command> revealCommands(const DirectoryHandler& handler, const FileUrl& item) {
    std::vector<Command> commands;
    if (auto selecting = selectingCommand(handler, item)) {
        commands.push_back(*std::move(selecting));
    }
    const auto folder = item.deletingLastPathComponent();
    if (auto opening = openingCommand(handler.exec, {folder.path(), fileUri(folder)});
        !opening.empty()) {
        commands.push_back(std::move(opening));
    }
    return commands;
}

std::optional<Command> openCommand(std::string_view url) {
    const std::string text(url);
    if (url.contains('\0') || g_uri_is_valid(text.c_str(), G_URI_FLAGS_NONE, nullptr) == 0) {
        return std::nullopt;
    }
    if (const auto file = fileOfUri(url)) {
        const auto handler = handlerOfFile(*file);
        return handler ? nonEmpty(openingCommand(handler->exec, {file->path(), fileUri(*file)}))
                       : std::nullopt;
    }
    const std::unique_ptr<char, FreeText> scheme(g_uri_parse_scheme(text.c_str()));
    const auto handler = handlerOf(g_app_info_get_default_for_uri_scheme(scheme.get()));
    return handler ? nonEmpty(openingCommand(handler->exec, {text, text})) : std::nullopt;
}

} // namespace blankwell
