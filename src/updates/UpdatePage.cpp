#include "updates/UpdatePage.h"

#include "base/Overloaded.h"
#include "updates/PlainText.h"

#include <fmt/core.h>

#include <algorithm>

namespace blankwell {
namespace {

const UpdatePage::Button okButton{"OK", UpdateAnswer::close, true};
const UpdatePage::Button cancelButton{"Cancel", UpdateAnswer::close};

std::string megabytes(std::uint64_t bytes) {
    return fmt::format("{:.1f} MB", static_cast<double>(bytes) / 1'000'000);
}

std::string notesOf(const AppcastItem& item) {
    if (!item.description.empty()) {
        return item.descriptionFormat == "html" ? plainTextOfHtml(item.description)
                                                : item.description;
    }
    return item.releaseNotesLink;
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
        .buttons = {{"Install Update", UpdateAnswer::install, true},
                    {"Later", UpdateAnswer::close}},
        .offersAutomaticChecks = true,
    };
    if (!found.isCritical) {
        page.buttons.push_back({"Skip This Version", UpdateAnswer::skipVersion});
    }
    return page;
}

} // namespace

UpdatePage pageFor(const UpdateState& state, const std::string& runningVersion) {
    return std::visit(
        Overloaded{
            [](const CheckingForUpdate&) {
                return UpdatePage{.title = "Checking for updates…",
                                  .progress = UpdatePage::Progress{},
                                  .buttons = {cancelButton}};
            },
            [&](const UpdateFound& found) { return foundPage(found, runningVersion); },
            [&](const NoUpdateFound&) {
                return UpdatePage{
                    .title = "You are up to date",
                    .text = fmt::format("Blankwell+ {} is the newest version.", runningVersion),
                    .buttons = {okButton},
                    .offersAutomaticChecks = true};
            },
            [](const DownloadingUpdate& downloading) {
                return UpdatePage{.title = fmt::format("Downloading Blankwell+ {}…",
                                                       downloading.item.shortVersion),
                                  .progress = progressOf(downloading.progress),
                                  .buttons = {cancelButton}};
            },
            [](const InstallingUpdate& installing) {
                return UpdatePage{
                    .title = fmt::format("Installing Blankwell+ {}…", installing.item.shortVersion),
                    .progress = UpdatePage::Progress{},
                    .buttons = {cancelButton}};
            },
            [](const UpdateReady& ready) {
                return UpdatePage{
                    .title = fmt::format("Blankwell+ {} is installed", ready.item.shortVersion),
                    .text = "It is used from the next start of Blankwell+ on.",
                    .buttons = {{"Relaunch Now", UpdateAnswer::relaunch, true},
                                {"Later", UpdateAnswer::close}}};
            },
            [](const UpdateFailed& failed) {
                return UpdatePage{.title = "The update did not work",
                                  .text = failed.description,
                                  .buttons = {{"Try Again", UpdateAnswer::tryAgain, true},
                                              {"Close", UpdateAnswer::close}}};
            },
            [](const UpdatedElsewhere& elsewhere) {
                return UpdatePage{.title = "Blankwell+ does not update itself here",
                                  .text = elsewhere.description,
                                  .buttons = {okButton}};
            },
        },
        state);
}

} // namespace blankwell
