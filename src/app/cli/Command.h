#pragma once

#include "filetypes/CreationDestination.h"

#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace blankwell::cli {

/// How a list is printed.
enum class ListFormat { text, json };

/// `create TYPE`: in `place`, or in the current folder where it is unset.
struct CreateCommand {
    std::string typeID;
    std::variant<std::monostate, std::string, CreationDestinationMode> place;

    friend bool operator==(const CreateCommand&, const CreateCommand&) = default;
};

/// `open URL`.
struct OpenCommand {
    std::string url;

    friend bool operator==(const OpenCommand&, const OpenCommand&) = default;
};

/// `quick-create`.
struct QuickCreateCommand {
    friend bool operator==(const QuickCreateCommand&, const QuickCreateCommand&) = default;
};

/// `types`.
struct TypesCommand {
    ListFormat format = ListFormat::text;

    friend bool operator==(const TypesCommand&, const TypesCommand&) = default;
};

/// `folders`.
struct FoldersCommand {
    ListFormat format = ListFormat::text;

    friend bool operator==(const FoldersCommand&, const FoldersCommand&) = default;
};

/// `folders add FOLDER`.
struct AddFolderCommand {
    std::string folder;

    friend bool operator==(const AddFolderCommand&, const AddFolderCommand&) = default;
};

/// `folders forget FOLDER`.
struct ForgetFolderCommand {
    std::string folder;

    friend bool operator==(const ForgetFolderCommand&, const ForgetFolderCommand&) = default;
};

/// `autostart`: tells whether the application starts at login where `change` is unset.
struct AutostartCommand {
    enum class Change { on, off };

    std::optional<Change> change;

    friend bool operator==(const AutostartCommand&, const AutostartCommand&) = default;
};

/// `open TYPE FOLDER`: the request for a file of a type in a folder, as menus make it.
struct RequestCommand {
    std::string typeID;
    /// A path, or a `file://` URI.
    std::string folder;

    friend bool operator==(const RequestCommand&, const RequestCommand&) = default;
};

struct InstallCommand {
    /// Where the bundle goes; the usual folder where it is unset.
    std::optional<std::string> folder;

    friend bool operator==(const InstallCommand&, const InstallCommand&) = default;
};

struct UnregisterCommand {
    friend bool operator==(const UnregisterCommand&, const UnregisterCommand&) = default;
};

/// `uninstall`.
struct UninstallCommand {
    /// `--yes`: the user is not asked.
    bool isConfirmed = false;

    friend bool operator==(const UninstallCommand&, const UninstallCommand&) = default;
};

/// `menus`: lists the menus where `change` is unset.
struct MenusCommand {
    enum class Change { on, off };

    std::optional<Change> change;
    /// The ids of file managers; all that are there where it is empty.
    std::vector<std::string> managers;

    friend bool operator==(const MenusCommand&, const MenusCommand&) = default;
};

struct HelpCommand {
    friend bool operator==(const HelpCommand&, const HelpCommand&) = default;
};

struct VersionCommand {
    friend bool operator==(const VersionCommand&, const VersionCommand&) = default;
};

using Command = std::variant<CreateCommand, OpenCommand, QuickCreateCommand, TypesCommand,
                             FoldersCommand, AddFolderCommand, ForgetFolderCommand,
                             AutostartCommand, RequestCommand, InstallCommand, UnregisterCommand,
                             UninstallCommand, MenusCommand, HelpCommand, VersionCommand>;

/// What the arguments ask for.
struct Invocation {
    Command command;
    /// Log lines go to standard error as well.
    bool verbose = false;

    friend bool operator==(const Invocation&, const Invocation&) = default;
};

/// Reads the arguments that follow the program's name. Options may stand anywhere before `--`. The
/// error says in one line what is wrong.
[[nodiscard]] std::expected<Invocation, std::string>
parseArguments(std::span<const std::string_view> arguments);

/// The text of `--help`.
[[nodiscard]] std::string_view helpText();

} // namespace blankwell::cli
