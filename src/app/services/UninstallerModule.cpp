#include "app/services/DesktopInstallation.h"
#include "app/services/DesktopServices.h"
#include "app/services/DesktopUninstaller.h"
#include "platform/ApplicationPresence.h"
#include "platform/Environment.h"
#include "platform/Identifiers.h"
#include "platform/RealHome.h"
#include "platform/linux/BundleDirectory.h"
#include "platform/linux/DBusApplication.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/LinuxInstallationForm.h"
#include "platform/linux/NoApplication.h"
#include "platform/linux/RunLoop.h"
#include "platform/linux/TerminalAlert.h"
#include "platform/linux/XdgPreferenceDomains.h"
#include "platform/linux/update/BundleUse.h"
#include "settings/AppSettings.h"
#include "shell/UninstallRefusal.h"
#include "shell/Uninstallation.h"

#include <cerrno>
#include <memory>
#include <utility>

namespace blankwell {
namespace {

using Done = std::expected<void, SystemError>;

/// The standing of a program without windows: it only ends.
class EndingProgram : public ApplicationPresence {
public:
    void setActivationPolicy(ActivationPolicy /*policy*/) override {}

    void terminate() override { isTerminated_ = true; }

    [[nodiscard]] bool isTerminated() const { return isTerminated_; }

private:
    bool isTerminated_ = false;
};

std::unexpected<SystemError> refusal(int number, std::string description) {
    return std::unexpected(SystemError{SystemError::Domain::posix, number, std::move(description)});
}

/// Ends the application wherever it runs from `bundle`, and in this session whatever it runs from.
Done endApplication(const FileUrl& bundle) {
    if (auto quit = DBusApplication(bundleIdentifier).quit(); !quit) {
        return quit;
    }
    if (BundleUse::isUsed(bundle)) {
        return refusal(EBUSY, "Blankwell+ runs in another session.");
    }
    return {};
}

FileUrl preferencesOf(const UninstallationSurroundings& given) {
    return FileUrl(preferencesDirectory(given.environment.variable("XDG_CONFIG_HOME"),
                                        homeFolder(given.account).path()));
}

/// One removal, with its own loop.
class Removal {
public:
    /// Both must outlive the object.
    Removal(const UninstallationSurroundings& given, const BundleDirectory& bundle,
            TerminalAlert::Questions questions)
        : alert_(questions),
          settings_(sharedDefaults(given.domains), given.log),
          installation_(given.programFolder,
                        {given.environment, given.account, settings_, given.domains, given.log}),
          desktop_(given.programFolder, preferencesOf(given),
                   userPlaces(given.environment, given.account), homeFolder(given.account),
                   {
                       .stop = [&bundle] { return endApplication(bundle.url()); },
                       .unregister = [this] { return installation_.installation().unregister(); },
                       .roots = given.roots,
                       .folders = given.folders,
                       .alert = alert_,
                       .bundle = bundle,
                       .fileSystem = files_,
                       .application = application_,
                       .presence = presence_,
                       .mainQueue = loop_,
                       .timer = loop_,
                       .log = given.log,
                   }) {}

    Uninstallation::Ending run() {
        auto& uninstaller = desktop_.uninstaller();
        uninstaller.uninstall();
        while (uninstaller.isUnderWay() && !presence_.isTerminated()) {
            loop_.runNext();
        }
        if (presence_.isTerminated()) {
            return Uninstallation::Ending::removed;
        }
        return alert_.hasTold() ? Uninstallation::Ending::failed : Uninstallation::Ending::declined;
    }

private:
    TerminalAlert alert_;
    NoApplication application_;
    EndingProgram presence_;
    RunLoop loop_;
    LinuxFileSystem files_;
    AppSettings settings_;
    DesktopInstallation installation_;
    DesktopUninstaller desktop_;
};

/// The removal of the programs in a folder, asked for in a terminal.
class TerminalUninstallation : public Uninstallation {
public:
    explicit TerminalUninstallation(UninstallationSurroundings given)
        : given_(std::move(given)), bundle_(given_.programFolder) {}

    std::expected<Ending, SystemError> run(Consent consent) override {
        const auto form = installationForm(bundle_.url(), given_.environment);
        if (auto elsewhere = removerElsewhere(form, bundle_.url())) {
            return refusal(EPERM, *std::move(elsewhere));
        }
        const bool isAsked = consent == Consent::wanted;
        if (isAsked && !TerminalAlert::canAsk()) {
            return refusal(ENOTTY, "There is no terminal to ask in whether Blankwell+ is to be "
                                   "removed. 'blankwell uninstall --yes' removes it unasked.");
        }
        return Removal(given_, bundle_,
                       isAsked ? TerminalAlert::Questions::asked
                               : TerminalAlert::Questions::answered)
            .run();
    }

private:
    UninstallationSurroundings given_;
    BundleDirectory bundle_;
};

} // namespace
} // namespace blankwell

extern "C" __attribute__((visibility("default"))) std::unique_ptr<blankwell::Uninstallation>
blankwellMakeUninstallation(const blankwell::UninstallationSurroundings& surroundings) {
    return std::make_unique<blankwell::TerminalUninstallation>(surroundings);
}
