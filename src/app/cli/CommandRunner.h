#pragma once

#include "app/cli/Command.h"
#include "base/FileUrl.h"

#include <string>

namespace blankwell {
class CreationDestination;
class FinderRequestHandler;
class FolderAccess;
class Installation;
class LoginItem;
class SecurityScopedBookmarkStore;
class SessionApplication;
class Uninstallation;
} // namespace blankwell

namespace blankwell::cli {

/// How a command ended: what the program prints and its exit status.
struct Outcome {
    enum Status { done = 0, failed = 1, wrongUsage = 2 };

    Status status = done;
    /// For standard output, whole lines.
    std::string output;
    /// For standard error, whole lines.
    std::string errors;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

/// Carries out commands. Belongs to the main thread.
class CommandRunner {
public:
    /// What commands use. All must outlive the object.
    struct Services {
        FolderAccess& folderAccess;
        SecurityScopedBookmarkStore& store;
        const CreationDestination& destination;
        FinderRequestHandler& requestHandler;
        SessionApplication& application;
        LoginItem& loginItem;
        Installation& installation;
        Uninstallation& uninstallation;
        /// The folder that relative paths are relative to: absolute.
        FileUrl currentFolder;
    };

    explicit CommandRunner(Services services) : services_(std::move(services)) {}

    /// `create` does its work here, whether or not the application runs: who calls it waits for the
    /// path and for the exit status, and the application tells neither. `open` is handed to the
    /// application, and done here only where that certainly does not have it. A failure of `open`
    /// is told by an alert, the application's or the handler's, and is not part of the outcome.
    [[nodiscard]] Outcome run(const Command& command);

private:
    [[nodiscard]] Outcome execute(const CreateCommand& command);
    [[nodiscard]] Outcome execute(const OpenCommand& command);
    [[nodiscard]] Outcome execute(const QuickCreateCommand& command);
    [[nodiscard]] Outcome execute(const TypesCommand& command);
    [[nodiscard]] Outcome execute(const FoldersCommand& command);
    [[nodiscard]] Outcome execute(const AddFolderCommand& command);
    [[nodiscard]] Outcome execute(const ForgetFolderCommand& command);
    [[nodiscard]] Outcome execute(const AutostartCommand& command);
    [[nodiscard]] Outcome execute(const RequestCommand& command);
    [[nodiscard]] Outcome execute(const InstallCommand& command);
    [[nodiscard]] Outcome execute(const UnregisterCommand& command);
    [[nodiscard]] Outcome execute(const UninstallCommand& command);
    [[nodiscard]] Outcome execute(const MenusCommand& command);
    [[nodiscard]] Outcome execute(const HelpCommand& command);
    [[nodiscard]] Outcome execute(const VersionCommand& command);

    [[nodiscard]] FileUrl folderOf(const CreateCommand& command) const;
    [[nodiscard]] std::string listOfMenus() const;
    [[nodiscard]] FileUrl absolute(const std::string& path) const;

    Services services_;
};

/// The outcome of arguments that make no command.
[[nodiscard]] Outcome wrongUsage(std::string_view problem);

} // namespace blankwell::cli
