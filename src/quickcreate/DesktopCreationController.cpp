#include "quickcreate/DesktopCreationController.h"

#include "access/FolderAccess.h"
#include "base/Overloaded.h"
#include "base/Text.h"
#include "filetypes/FileTypeCatalog.h"
#include "platform/Alert.h"
#include "platform/AppWindows.h"
#include "platform/Application.h"
#include "platform/ObserveLater.h"
#include "platform/QuickCreatePanelWindow.h"
#include "platform/Screens.h"
#include "platform/TextOrder.h"
#include "platform/Workspace.h"
#include "quickcreate/PanelPlacement.h"
#include "quickcreate/QuickCreatePanels.h"
#include "settings/AppSettings.h"

#include <fmt/format.h>

#include <utility>

namespace blankwell {
namespace {

constexpr std::string_view mainWindowTitle = "Blankwell+";

QuickCreatePanelConfiguration panelConfiguration() {
    return {
        .contentSize = {560, 600},
        .minimumSize = {520, 520},
        .title = "Create File",
        .isTitled = true,
        .isClosable = true,
        .hasFullSizeContentView = true,
        .isTitleHidden = true,
        .titlebarAppearsTransparent = true,
        .backing = QuickCreatePanelConfiguration::Backing::buffered,
        .isDeferred = false,
        .isFloatingPanel = true,
        .level = QuickCreatePanelConfiguration::Level::floating,
        .canJoinAllSpaces = true,
        .isFullScreenAuxiliary = true,
        .isReleasedWhenClosed = false,
        .isMovableByWindowBackground = true,
    };
}

/// The sentence for a success. A file that fell back to the Desktop is "on" it, one that was meant
/// for the Desktop is "in" it: the difference tells the user that there was no front folder.
std::string statusText(const FileUrl& created, const ResolvedCreationDestination& destination) {
    const auto name = created.lastPathComponent();
    if (destination.usedFallback) {
        return fmt::format("Created {} on Desktop", name);
    }
    return fmt::format("Created {} in {}", name, destination.destinationName());
}

} // namespace

DesktopCreationController::DesktopCreationController(const Services& services)
    : destinationMode(willChange_, CreationDestinationMode::desktop),
      searchText(willChange_, ""),
      statusMessage(willChange_, std::nullopt),
      services_(services),
      hotKeyManager_(services.hotKeys, services.mainQueue, services.log,
                     [this](const HotKeyAction& action) { perform(action); }),
      logger_(services.log, "DesktopCreation") {}

DesktopCreationController::~DesktopCreationController() = default;

void DesktopCreationController::setOpenMainWindowAction(std::function<void()> action) {
    openMainWindowAction_ = std::move(action);
}

void DesktopCreationController::start() {
    registerHotKeys();
    const auto registerAfterChangesOf = [this](auto& property) {
        shortcutCancellables_.push_back(observeLater(property, services_.mainQueue,
                                                     [this](const auto&) { registerHotKeys(); }));
    };
    registerAfterChangesOf(services_.settings.quickCreateShortcut);
    registerAfterChangesOf(services_.settings.fileTypeShortcuts);
    registerAfterChangesOf(services_.settings.enabledFileTypeIDs);
}

void DesktopCreationController::stop() {
    shortcutCancellables_.clear();
    hotKeyManager_.unregisterAll();
    closeQuickCreatePanel();
}

void DesktopCreationController::registerHotKeys() {
    auto shortcuts = services_.settings.fileTypeShortcuts.get();
    const auto& enabled = services_.settings.enabledFileTypeIDs.get();
    std::erase_if(shortcuts, [&](const auto& entry) {
        return !enabled.contains(entry.first) || !entry.second.isUsable();
    });
    hotKeyManager_.registerShortcuts(services_.settings.quickCreateShortcut.get(), shortcuts);
}

void DesktopCreationController::prepareQuickCreatePanel() {
    if (!quickCreatePanel_) {
        quickCreatePanel_ = services_.panels.make(panelConfiguration(), *this);
    }
}

void DesktopCreationController::showQuickCreatePanel() {
    prepareQuickCreatePanel();
    placePanelNearPointer();
    quickCreatePanel_->makeKeyAndOrderFront();
    services_.application.activate();
}

void DesktopCreationController::closeQuickCreatePanel() {
    if (quickCreatePanel_) {
        quickCreatePanel_->orderOut();
    }
}

void DesktopCreationController::createFromShortcut(std::string_view id) {
    const auto* const type = FileTypeCatalog::definition(id);
    if (type == nullptr) {
        logger_.error("Unknown file type shortcut requested: {}", id);
        return;
    }
    const auto destination = services_.settings.directShortcutDestination.get();
    create(*type, destination == CreationDestinationMode::desktop
                      ? DestinationChoice::desktop
                      : DestinationChoice::frontFinderFolder);
}

void DesktopCreationController::create(const FileTypeDefinition& type,
                                       DestinationChoice destination) {
    const auto resolved = services_.destination.resolve(mode(destination));
    const auto created =
        services_.folderAccess.createWithFolderAccess(resolved.url, AccessPrompt::allowed, type);
    if (!created) {
        reportFailure(description(created.error()));
        return;
    }
    statusMessage.set(statusText(*created, resolved));
    logger_.notice("Created {}", created->path());
    services_.workspace.reveal(*created);
}

std::vector<FileTypeDefinition> DesktopCreationController::availableTypes() const {
    return services_.settings.enabledFileTypes();
}

std::vector<FileTypeDefinition> DesktopCreationController::types(FileTypeCategory category) const {
    const auto text = trimmed(searchText.get());
    const auto matches = [&](std::string_view field) {
        return services_.order.caseInsensitiveContains(field, text);
    };
    auto types = availableTypes();
    std::erase_if(types, [&](const FileTypeDefinition& type) {
        const bool isFound =
            text.empty() || matches(type.displayName) || matches(type.fileExtension);
        return type.category != category || !isFound;
    });
    return types;
}

FileUrl DesktopCreationController::desktopFolderURL() const {
    return services_.destination.desktopFolderURL();
}

void DesktopCreationController::openMainWindow() {
    // A copy, since what comes up may set the action anew.
    if (const auto action = openMainWindowAction_) {
        action();
    } else {
        services_.windows.makeKeyAndOrderFront(mainWindowTitle);
    }
    services_.application.activate();
}

void DesktopCreationController::perform(const HotKeyAction& action) {
    std::visit(Overloaded{
                   [this](const HotKeyAction::QuickCreate&) { showQuickCreatePanel(); },
                   [this](const HotKeyAction::CreateFile& create) {
                       createFromShortcut(create.fileTypeID);
                   },
               },
               action.kind);
}

void DesktopCreationController::placePanelNearPointer() {
    const auto pointer = services_.screens.pointerLocation();
    if (!pointer) {
        return; // where nobody may know the pointer, the desktop places windows
    }
    const auto screens = services_.screens.screens();
    const auto visibleFrame = visibleFrameAt(*pointer, screens, services_.screens.mainScreen());
    quickCreatePanel_->setFrame(
        panelFrame(*pointer, quickCreatePanel_->frame().size, visibleFrame));
}

CreationDestinationMode DesktopCreationController::mode(DestinationChoice choice) const {
    switch (choice) {
    case DestinationChoice::desktop:
        return CreationDestinationMode::desktop;
    case DestinationChoice::frontFinderFolder:
        return CreationDestinationMode::frontFinderFolder;
    case DestinationChoice::panel:
        break;
    }
    return destinationMode.get();
}

void DesktopCreationController::reportFailure(const std::string& text) {
    logger_.error("Create failed: {}", text);
    services_.application.activate();
    services_.alert.runModal(creationFailedAlert(text));
}

} // namespace blankwell
