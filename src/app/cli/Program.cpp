#include "app/cli/Program.h"

#include "platform/Identifiers.h"
#include "platform/RealHome.h"
#include "platform/Sandbox.h"
#include "platform/linux/UnavailableLoginItem.h"
#include "platform/linux/XdgPreferenceDomains.h"
#include "shell/UnavailableInstallation.h"

namespace blankwell::cli {

Program::Program(const FileUrl& programFolder, FileUrl currentFolder,
                 ConsoleLog::StandardError standardError)
    : loader_(programFolder),
      log_(loader_, standardError),
      order_([this] { return loader_.services().makeTextOrder(); }),
      workspace_([this] { return loader_.services().makeWorkspace(log_); }),
      frontFolder_([this] {
          return loader_.services().makeFrontFolder(folders_, homeFolder(account_),
                                                    [this] { return store_.savedFolderRoots(); });
      }),
      sessionApplication_([this] { return loader_.makeSessionApplication(); }),
      loginItem_([this, programFolder] { return makeLoginItem(programFolder); }),
      domains_([this] {
          return std::make_unique<XdgPreferenceDomains>(configHome(), bundleIdentifier);
      }),
      installation_([this] { return makeInstallation(); }),
      uninstallation_([this, programFolder] { return makeUninstallation(programFolder); }),
      store_(domains_, bookmarks_, order_, log_),
      bundle_(programFolder),
      creator_(writableFiles(), coordinator_, bundle_, scopes_),
      folderAccess_({
          .store = store_,
          .creator = creator_,
          .fileSystem = files_,
          .scopes = scopes_,
          .openPanel = openPanel_,
          .application = application_,
          .account = account_,
          .environment = environment_,
          .folders = folders_,
      }),
      destination_(account_, folders_, frontFolder_),
      requestHandler_({
          .folderAccess = folderAccess_,
          .workspace = workspace_,
          .alert = alert_,
          .application = application_,
          .mainQueue = mainQueue_,
          .log = log_,
      }),
      runner_({
          .folderAccess = folderAccess_,
          .store = store_,
          .destination = destination_,
          .requestHandler = requestHandler_,
          .application = sessionApplication_,
          .loginItem = loginItem_,
          .installation = installation_,
          .uninstallation = uninstallation_,
          .currentFolder = std::move(currentFolder),
      }) {}

Outcome Program::run(const Command& command) {
    auto outcome = runner_.run(command);
    mainQueue_.run();
    if (alert_.wasShown()) {
        outcome.status = Outcome::failed;
    }
    return outcome;
}

FileSystem& Program::writableFiles() {
    if (isSandboxed(environment_)) {
        return scopedFiles_;
    }
    return files_;
}

std::string Program::configHome() const {
    return preferencesDirectory(environment_.variable("XDG_CONFIG_HOME"),
                                homeFolder(account_).path());
}

std::unique_ptr<LoginItem> Program::makeLoginItem(const FileUrl& programFolder) {
    if (isSandboxed(environment_)) {
        return std::make_unique<UnavailableLoginItem>();
    }
    return loader_.services().makeLoginItem(FileUrl(configHome()),
                                            programFolder.appending("blankwell-plus"));
}

std::unique_ptr<Installation> Program::makeInstallation() {
    if (isSandboxed(environment_)) {
        return std::make_unique<UnavailableInstallation>();
    }
    return loader_.makeInstallation(environment_, account_, domains_, log_);
}

std::unique_ptr<Uninstallation> Program::makeUninstallation(const FileUrl& programFolder) {
    return loader_.makeUninstallation({
        .programFolder = programFolder,
        .environment = environment_,
        .account = account_,
        .folders = folders_,
        .domains = domains_,
        .roots = [this] { return store_.savedFolderRoots(); },
        .log = log_,
    });
}

} // namespace blankwell::cli
