#include "app/application/Program.h"

#include "app/application/Invocation.h"
#include "platform/Identifiers.h"
#include "platform/ObserveLater.h"
#include "platform/RealHome.h"
#include "platform/Sandbox.h"
#include "platform/linux/JournalLog.h"
#include "platform/linux/LinuxInstallationForm.h"
#include "platform/linux/MacKeyCodes.h"
#include "platform/linux/StandardErrorLog.h"
#include "platform/linux/UnavailableLoginItem.h"
#include "platform/linux/XdgAutostart.h"
#include "platform/linux/update/StagingFolder.h"
#include "platform/linux/update/SystemVersion.h"
#include "widgets/Symbols.h"

#include <QApplication>
#include <QIcon>
#include <QTimer>

namespace blankwell::application {
namespace {

std::unique_ptr<Log> makeLog() {
    if (journalListens()) {
        return std::make_unique<JournalLog>("blankwell-plus");
    }
    return std::make_unique<StandardErrorLog>();
}

std::unique_ptr<LoginItem> makeLoginItem(const Environment& environment,
                                         const std::string& configHome,
                                         const FileUrl& programFolder) {
    if (isSandboxed(environment)) {
        return std::make_unique<UnavailableLoginItem>();
    }
    return std::make_unique<XdgAutostart>(FileUrl(configHome), bundleIdentifier,
                                          programFolder.appending("blankwell-plus"));
}

std::unique_ptr<DesktopInstallation> makeInstallation(const FileUrl& programFolder,
                                                      const DesktopInstallation::Services& given) {
    return isSandboxed(given.environment)
               ? nullptr
               : std::make_unique<DesktopInstallation>(programFolder, given);
}

} // namespace

Program::Program(const FileUrl& programFolder)
    : log_(makeLog()),
      preferences_(preferencesDirectory(environment_.variable("XDG_CONFIG_HOME"),
                                        homeFolder(account_).path())),
      domains_(preferences_, bundleIdentifier),
      settings_(sharedDefaults(domains_), *log_),
      settingsWatch_(
          preferences_, appGroupIdentifier, [this] { settings_.reloadFromStore(); }, *log_),
      loginItem_(makeLoginItem(environment_, preferences_, programFolder)),
      loginItemWatch_(FileUrl(preferences_), bundleIdentifier,
                      [this] { loginItemModel_.reload(); }),
      frontFolder_(folders_, homeFolder(account_), [this] { return store_.savedFolderRoots(); }),
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
      requestHandler_({
          .folderAccess = folderAccess_,
          .workspace = workspace_,
          .alert = alert_,
          .application = application_,
          .mainQueue = mainQueue_,
          .log = *log_,
      }),
      panels_({
          .application = application_,
          .settings = settings_,
          .mainQueue = mainQueue_,
          .theme = theme_,
      }),
      creation_({
          .settings = settings_,
          .destination = destination_,
          .folderAccess = folderAccess_,
          .panels = panels_,
          .screens = screens_,
          .windows = application_,
          .application = application_,
          .workspace = workspace_,
          .alert = alert_,
          .order = order_,
          .hotKeys = hotKeys_.service(),
          .mainQueue = mainQueue_,
          .log = *log_,
      }),
      remoteRequests_({
          .creation = creation_,
          .requestHandler = requestHandler_,
          .presence = presence_,
          .mainQueue = mainQueue_,
          .log = *log_,
      }),
      bundleUse_(bundle_.url()),
      updateJob_(programFolder, environment_.variable("SSL_CERT_FILE").value_or(""), bundleUse_),
      updateWindow_(theme_, application_, workspace_,
                    bundle_.infoString("CFBundleShortVersionString").value_or("")),
      updaters_({
          .bundle = bundle_,
          .installation = installationForm(bundleUse_.bundle(), environment_),
          .systemVersion = runningSystemVersion(),
          .defaults = domains_.standard(),
          .job = [this] { return updateJob_.load(); },
          .userInterface = updateWindow_,
          .background = background_,
          .mainQueue = mainQueue_,
          .timer = timer_,
          .now = UpdateSchedule::Clock::now,
          .relaunch = [this] { relaunch(); },
          .log = *log_,
      }),
      uninstaller_(programFolder, FileUrl(preferences_), userPlaces(environment_, account_),
                   homeFolder(account_),
                   {
                       .stop =
                           [this] {
                               creation_.stop();
                               return std::expected<void, SystemError>();
                           },
                       .unregister = [this] { return unregister(); },
                       .roots = [this] { return store_.savedFolderRoots(); },
                       .folders = folders_,
                       .alert = alert_,
                       .bundle = bundle_,
                       .fileSystem = files_,
                       .application = application_,
                       .presence = presence_,
                       .mainQueue = mainQueue_,
                       .timer = timer_,
                       .log = *log_,
                   }),
      statusBar_(mainQueue_, *log_, symbolIcon, [this] { keepReachable(); }),
      presenceController_({
          .settings = settings_,
          .creation = creation_,
          .uninstaller = uninstaller_.uninstaller(),
          .statusBar = statusBar_,
          .application = presence_,
          .environment = environment_,
          .mainQueue = mainQueue_,
      }),
      delegate_({
          .presence = presenceController_,
          .selfUpdater = selfUpdater_,
          .creation = creation_,
      }),
      installation_(
          makeInstallation(programFolder, {environment_, account_, settings_, domains_, *log_})),
      menus_(installation_ ? installation_->installation()
                           : static_cast<Installation&>(noInstallation_)),
      registrationsWatch_(
          preferences_, bundleIdentifier, [this] { menus_.refresh(); }, *log_),
      windows_(
          {
              .theme = theme_,
              .settings = settings_,
              .loginItem = loginItemModel_,
              .shortcuts =
                  {
                      .settings = settings_,
                      .hotKeyFailures = creation_.hotKeyFailures(),
                      .mainQueue = mainQueue_,
                      .recorders =
                          {
                              .keyCodeOf = macKeyCodeOfX11,
                              .beep = QApplication::beep,
                              .suspendHotKeys = [this] { return creation_.suspendHotKeys(); },
                          },
                  },
              .folderAccess =
                  {
                      .folderAccess = folderAccess_,
                      .store = store_,
                      .fileSystem = files_,
                      .account = account_,
                      .folders = folders_,
                  },
              .bundle = bundle_,
              .workspace = workspace_,
              .menus = menus_,
              .uninstaller = uninstaller_.uninstaller(),
              .updater = selfUpdater_,
              .presence = presence_,
              .application = application_,
              .mainQueue = mainQueue_,
          },
          [this] { endUnlessReachable(); }) {
    creation_.setOpenMainWindowAction([this] { windows_.openMainWindow(); });
}

void Program::start(const Invocation& invocation) {
    delegate_.applicationDidFinishLaunching();
    if (!invocation.action.empty()) {
        remoteRequests_.activateAction(invocation.action);
    } else if (!invocation.urls.empty()) {
        remoteRequests_.open(invocation.urls);
    } else if (!invocation.inBackground) {
        windows_.openMainWindow();
    }
    // Once there is nothing more urgent to do.
    QTimer::singleShot(0, [this] {
        creation_.prepareQuickCreatePanel();
        removeOldBundles();
        keepInstallation();
        // For desktops that do not find it by the desktop entry.
        QApplication::setWindowIcon(QIcon(":/app.blankwell.BlankwellPlus.svg"));
    });
}

/// Mends what leads the desktop to this bundle, and lets the menus of file managers follow the
/// settings.
void Program::keepInstallation() {
    if (!installation_) {
        return;
    }
    auto& installation = installation_->installation();
    installation.mend();
    const auto refresh = [&installation](const auto& /*value*/) { installation.refreshMenus(); };
    enabledTypes_ = observeLater(settings_.enabledFileTypeIDs, mainQueue_, refresh);
    typeOrder_ = observeLater(settings_.fileTypeOrder, mainQueue_, refresh);
}

std::expected<void, SystemError> Program::unregister() {
    settingsWatch_.end(); // settings that go are not read again, which would write some of them
    return installation_ ? installation_->installation().unregister()
                         : std::expected<void, SystemError>();
}

FileSystem& Program::writableFiles() {
    if (isSandboxed(environment_)) {
        return scopedFiles_;
    }
    return files_;
}

void Program::keepReachable() {
    if (isAccessory(settings_.appPresence.get())) {
        windows_.openMainWindow(); // in neither bar there is nothing else to come in by
    }
}

/// A program without windows is of use as long as its keys or its status item are.
void Program::endUnlessReachable() {
    if (!creation_.hasHotKeys() && !statusBar_.showsItem()) {
        terminate();
    }
}

/// From where the program stood at its start, which is where an update stands now.
void Program::relaunch() {
    successor_ = bundleUse_.bundle().appending("Contents/Linux/blankwell-plus");
    terminate();
}

/// What an update replaced before this start.
void Program::removeOldBundles() {
    if (installationForm(bundleUse_.bundle(), environment_) == InstallationForm::ownBundle) {
        sweep_ = background_.run([bundle = bundleUse_.bundle()](const std::stop_token&) {
            StagingFolder::sweep(bundle);
        });
    }
}

} // namespace blankwell::application
