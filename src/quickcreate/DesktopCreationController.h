#pragma once

#include "base/ObjectWillChange.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "filetypes/CreationDestination.h"
#include "filetypes/FileTypeDefinition.h"
#include "platform/Log.h"
#include "settings/GlobalHotKeyManager.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace blankwell {

class Alert;
class AppSettings;
class AppWindows;
class Application;
class FolderAccess;
class QuickCreatePanelWindow;
class QuickCreatePanels;
class Screens;
class TextOrder;
class Workspace;

/// Where one creation puts its file; `panel` is what the panel's picker shows at that moment.
enum class DestinationChoice { desktop, frontFinderFolder, panel };

/// Creation away from file manager requests: by the Quick Create panel, by the hot keys and by the
/// status menu.
///
/// While started, exactly the usable shortcuts of the settings are registered, except those of
/// types that are switched off. The panel is made once and then hidden and shown. Belongs to the
/// main thread; a creation is through when the call returns.
class DesktopCreationController {
private:
    ObjectWillChange willChange_; // in front of the properties, which announce through it

public:
    /// What creation uses of the platform and of the other parts. All must outlive the object.
    struct Services {
        AppSettings& settings;
        const CreationDestination& destination;
        FolderAccess& folderAccess;
        QuickCreatePanels& panels;
        const Screens& screens;
        AppWindows& windows;
        Application& application;
        Workspace& workspace;
        Alert& alert;
        const TextOrder& order;
        HotKeyService& hotKeys;
        MainQueue& mainQueue;
        Log& log;
    };

    explicit DesktopCreationController(const Services& services);
    ~DesktopCreationController();

    /// The destination of creations from the panel.
    Published<CreationDestinationMode> destinationMode;
    /// What the panel's list is filtered by.
    Published<std::string> searchText;
    /// The last success in words; nothing before the first one.
    Published<std::optional<std::string>> statusMessage;

    /// Hears of each assignment to any of them before it takes effect.
    [[nodiscard]] ObjectWillChange& objectWillChange() { return willChange_; }

    /// Brings up the main window, where the application can do that better than by its title.
    void setOpenMainWindowAction(std::function<void()> action);

    /// Registers the hot keys and keeps them in step with the settings. Called once.
    void start();

    /// Gives all hot keys back, follows the settings no longer, and hides the panel.
    void stop();

    /// Registers what the settings say now in place of what is registered.
    void registerHotKeys();

    /// Gives all hot keys back as long as the returned value lasts, so that a key press can be
    /// recorded that is one of them. Meanwhile changes of the settings wait.
    Subscription suspendHotKeys() { return hotKeyManager_.suspend(); }

    /// The shortcuts of the settings that do not work, and why.
    [[nodiscard]] Published<HotKeyFailures>& hotKeyFailures() { return hotKeyManager_.failures; }

    /// Whether any hot key is registered.
    [[nodiscard]] bool hasHotKeys() const { return hotKeyManager_.hasRegistrations(); }

    /// Makes the panel ahead of its first use, so that showing it takes no longer then than later.
    void prepareQuickCreatePanel();

    /// Shows the panel near the pointer, in front of everything.
    void showQuickCreatePanel();

    /// Hides the panel if there is one.
    void closeQuickCreatePanel();

    /// Creates a file of the type `id` where the settings want files of direct shortcuts. An
    /// unknown id is logged.
    void createFromShortcut(std::string_view id);

    /// Creates a file and shows it in the file manager. A failure is logged and told to the user.
    void create(const FileTypeDefinition& type, DestinationChoice destination);

    /// The types that are switched on, in the user's order.
    [[nodiscard]] std::vector<FileTypeDefinition> availableTypes() const;

    /// Those of the category whose name or extension contains the search text.
    [[nodiscard]] std::vector<FileTypeDefinition> types(FileTypeCategory category) const;

    /// The folder that the destination `desktop` means.
    [[nodiscard]] FileUrl desktopFolderURL() const;

    /// Brings up the main window.
    void openMainWindow();

private:
    void perform(const HotKeyAction& action);
    void placePanelNearPointer();
    [[nodiscard]] CreationDestinationMode mode(DestinationChoice choice) const;
    void reportFailure(const std::string& text);

    Services services_;
    GlobalHotKeyManager hotKeyManager_;
    std::unique_ptr<QuickCreatePanelWindow> quickCreatePanel_;
    std::function<void()> openMainWindowAction_;
    std::vector<Subscription> shortcutCancellables_;
    Logger logger_;
};

} // namespace blankwell
