#include "updates/UpdatePage.h"

#include "base/Overloaded.h"
#include "base/Text.h"
#include "base/UrlComponents.h"
#include "updates/PlainText.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

const UpdatePage::Button okButton{"OK", UpdateAnswer::close, true};
const UpdatePage::Button cancelButton{"Cancel", UpdateAnswer::close};

std::string megabytes(std::uint64_t bytes) {
    return fmt::format("{:.1f} MB", static_cast<double>(bytes) / 1'000'000);
}

std::string notesOf(const AppcastItem& item) {
    return item.descriptionFormat == "html" ? plainTextOfHtml(item.description) : item.description;
}

/// A feed leads to the web, and to none of the programs that other addresses would start.
bool leadsToWeb(std::string_view url) {
    const auto parts = parseUrl(url);
    if (!parts || parts->host.empty()) {
        return false;
    }
    const auto scheme = asciiLowered(parts->scheme);
    return scheme == "https" || scheme == "http";
}

std::optional<UpdatePage::Link> notesLinkOf(const AppcastItem& item) {
    if (!leadsToWeb(item.releaseNotesLink)) {
        return std::nullopt;
    }
    return UpdatePage::Link{.title = "Read the Release Notes", .url = item.releaseNotesLink};
}

UpdatePage::Progress progressOf(const TransferProgress& progress) {
    const auto fraction = static_cast<double>(progress.received) /
                          static_cast<double>(std::max<std::uint64_t>(progress.expected, 1));
    const auto amount =
        fmt::format("{} of {}", megabytes(progress.received), megabytes(progress.expected));
    return {std::min(fraction, 1.0),
            progress.bytesPerSecond == 0
                ? amount
                : fmt::format("{} ({} per second)", amount, megabytes(progress.bytesPerSecond))};
}

UpdatePage foundPage(const UpdateFound& found, const std::string& runningVersion) {
    UpdatePage page{
        .title = "A new version of Blankwell+ is available",
        .text = fmt::format("Blankwell+ {} is available; you have {}.{} Would you like to install "
                            "it now?",
                            found.item.shortVersion, runningVersion,
                            found.isCritical ? " This update is important for your security." : ""),
        .notes = notesOf(found.item),
        .notesLink = notesLinkOf(found.item),
        .buttons = {{"Install Update", UpdateAnswer::install, true},
                    {"Later", UpdateAnswer::close}},
        .offersAutomaticChecks = true,
    };
    if (!found.isCritical) {
        page.buttons.push_back({"Skip This Version", UpdateAnswer::skipVersion});
    }
    return page;
}

UpdatePage upToDatePage(const std::string& runningVersion) {
    return {.title = "You are up to date",
            .text = fmt::format("Blankwell+ {} is the newest version.", runningVersion),
            .buttons = {okButton},
            .offersAutomaticChecks = true};
}

UpdatePage waitingPage(std::string title, UpdatePage::Progress progress) {
    return {.title = std::move(title), .progress = std::move(progress), .buttons = {cancelButton}};
}

UpdatePage readyPage(const AppcastItem& item) {
    return {.title = fmt::format("Blankwell+ {} is installed", item.shortVersion),
            .text = "It is used from the next start of Blankwell+ on.",
            .buttons = {{"Relaunch Now", UpdateAnswer::relaunch, true},
                        {"Later", UpdateAnswer::close}}};
}

UpdatePage failedPage(const std::string& description) {
    return {
        .title = "The update did not work",
        .text = description,
        .buttons = {{"Try Again", UpdateAnswer::tryAgain, true}, {"Close", UpdateAnswer::close}}};
}

UpdatePage elsewherePage(const std::string& description) {
    return {.title = "Blankwell+ does not update itself here",
            .text = description,
            .buttons = {okButton}};
}

} // namespace

std::string unopenedLinkText(const std::string& url) {
    return fmt::format("No program could open {}.", url);
}

UpdatePage pageFor(const UpdateState& state, const std::string& runningVersion) {
    return std::visit(
        Overloaded{
            [](const CheckingForUpdate&) { return waitingPage("Checking for updates…", {}); },
            [&](const UpdateFound& found) { return foundPage(found, runningVersion); },
            [&](const NoUpdateFound&) { return upToDatePage(runningVersion); },
            [](const DownloadingUpdate& now) {
                return waitingPage(fmt::format("Downloading Blankwell+ {}…", now.item.shortVersion),
                                   progressOf(now.progress));
            },
            [](const InstallingUpdate& now) {
                return waitingPage(fmt::format("Installing Blankwell+ {}…", now.item.shortVersion),
                                   {});
            },
            [](const UpdateReady& ready) { return readyPage(ready.item); },
            [](const UpdateFailed& failed) { return failedPage(failed.description); },
            [](const UpdatedElsewhere& elsewhere) { return elsewherePage(elsewhere.description); },
        },
        state);
}

} // namespace blankwell
