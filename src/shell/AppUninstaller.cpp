#include "shell/AppUninstaller.h"

#include "platform/Alert.h"
#include "platform/Application.h"
#include "platform/ApplicationPresence.h"
#include "platform/Bundle.h"
#include "platform/FileSystem.h"
#include "platform/Identifiers.h"
#include "platform/InstallationTraces.h"
#include "platform/MainQueue.h"
#include "platform/Timer.h"

#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace blankwell {
namespace {

constexpr std::chrono::milliseconds pauseWhileQuitting{100};
constexpr int mostPausesWhileQuitting = 20;

/// Whether `url` names an application bundle: with an extension that is exactly "app".
bool isAppBundle(const FileUrl& url) {
    constexpr std::string_view extension = ".app";
    const auto name = url.lastPathComponent();
    return name.size() > extension.size() && name.ends_with(extension);
}

std::string recycleFailure(const SystemError& error) {
    return AppUninstallError{AppUninstallError::TrashMoveFailed{error}}.description();
}

} // namespace

AppUninstaller::AppUninstaller(const Services& services)
    : services_(services), bundle_(services.bundle.url()), logger_(services.log, "Uninstaller") {}

void AppUninstaller::uninstall() {
    if (isUnderWay_ || !isConfirmed()) {
        return;
    }
    if (const auto stopped = services_.stop(); !stopped) {
        tell(stopped.error().description);
        return;
    }
    if (!isAppBundle(bundle_)) {
        tell(AppUninstallError{AppUninstallError::NotRunningFromAppBundle{bundle_}}.description());
        return;
    }
    isUnderWay_ = true;
    services_.mainQueue.async([this] { run(); });
}

bool AppUninstaller::isConfirmed() const {
    const auto pressed = services_.alert.runModal({
        .style = AlertContent::Style::critical,
        .messageText = "Uninstall Blankwell+?",
        .informativeText =
            "This will move Blankwell+ to the Trash, remove saved Blankwell+ settings, and restart "
            "Finder so the Finder extension is unloaded.\n\nFiles you created with Blankwell+ will "
            "not be removed.",
        .buttons = {"Uninstall", "Cancel"},
    });
    return pressed == 0;
}

void AppUninstaller::run() {
    logger_.notice("Starting uninstall for {}", bundle_.path());
    failures_.clear();
    quitFileManagers();
}

void AppUninstaller::quitFileManagers() {
    quitting_ = services_.fileManagers.running();
    if (quitting_.empty()) {
        trashWithFileServices();
        return;
    }
    logger_.notice("Terminating Finder to unload the Finder extension before uninstall");
    for (const auto& fileManager : quitting_) {
        if (!fileManager->terminate()) {
            fileManager->forceTerminate();
        }
    }
    waitForFileManagers(0);
}

void AppUninstaller::waitForFileManagers(int pauses) {
    const bool areGone = std::ranges::all_of(
        quitting_, [](const auto& fileManager) { return fileManager->isTerminated(); });
    if (!areGone && pauses < mostPausesWhileQuitting) {
        pause_ = services_.timer.after(pauseWhileQuitting,
                                       [this, pauses] { waitForFileManagers(pauses + 1); });
        return;
    }
    if (!areGone) {
        logger_.notice("Finder did not terminate before uninstall continued");
    }
    quitting_.clear();
    trashWithFileServices();
}

void AppUninstaller::trashWithFileServices() {
    const auto trashed = services_.trash.trashItem(bundle_);
    const auto attempt =
        trashed ? outcome(*trashed) : Attempt(std::unexpect, trashed.error().description);
    if (!settles(attempt, "FileManager")) {
        trashWithWorkspace();
    }
}

void AppUninstaller::trashWithWorkspace() {
    services_.trash.recycle(bundle_, [this](std::expected<TrashLocation, SystemError> recycled) {
        const auto attempt = recycled ? outcome(*recycled)
                                      : Attempt(std::unexpect, recycleFailure(recycled.error()));
        if (!settles(attempt, "NSWorkspace")) {
            trashWithFileManager();
        }
    });
}

void AppUninstaller::trashWithFileManager() {
    const auto deleted = services_.trash.deleteWithFileManager(bundle_);
    const auto attempt =
        deleted ? outcome(std::nullopt)
                : Attempt(std::unexpect, uninstallError(deleted.error()).description());
    if (!settles(attempt, "Finder")) {
        fail({AppUninstallError::AllTrashAttemptsFailed{std::exchange(failures_, {})}});
    }
}

AppUninstaller::Attempt AppUninstaller::outcome(const TrashLocation& location) const {
    if (location) {
        return *location;
    }
    // Where that cannot be told, the bundle counts as still there: its settings are kept.
    if (services_.fileSystem.itemExists(bundle_).value_or(true)) {
        const AppUninstallError error{AppUninstallError::TrashMoveReportedNoResult{bundle_}};
        return std::unexpected(error.description());
    }
    return bundle_;
}

bool AppUninstaller::settles(const Attempt& attempt, std::string_view service) {
    if (!attempt) {
        logger_.error("{} trash attempt failed: {}", service, attempt.error());
        failures_.push_back(fmt::format("{}: {}", service, attempt.error()));
        return false;
    }
    succeed(*attempt);
    return true;
}

void AppUninstaller::succeed(const FileUrl& trashLocation) {
    logger_.notice("Moved Blankwell+ to Trash at {}", trashLocation.path());
    services_.traces.removeRegistrations(); // first: the settings hold the list of them
    services_.traces.removePersistentDomain(appGroupIdentifier);
    services_.traces.removePersistentDomain(bundleIdentifier);
    services_.traces.removeGroupContainer(appGroupIdentifier);
    services_.fileManagers.relaunch();
    services_.presence.terminate();
}

void AppUninstaller::fail(const AppUninstallError& error) {
    isUnderWay_ = false;
    services_.fileManagers.relaunch();
    tell(error.description());
}

void AppUninstaller::tell(std::string_view reason) const {
    services_.application.activate();
    services_.alert.runModal(uninstallFailedAlert(reason));
}

} // namespace blankwell
