#pragma once

#include "settings/ShortcutSettingsView.h"
#include "support/FakeAppearance.h"
#include "support/FakeInstallation.h"
#include "support/FakeLoginItem.h"
#include "support/FakePresenceController.h"
#include "views/ContentView.h"
#include "views/ExtensionStatusModel.h"
#include "views/FileManagerMenusModel.h"
#include "views/LoginItemModel.h"
#include "widgets/Theme.h"

namespace blankwell {

/// What the views show: the core on doubles of a desktop without motion, with the settings that a
/// new user has.
struct Stage : FakePresenceController {
    explicit Stage(ColorScheme scheme) {
        desktop.set({.scheme = scheme, .reducesMotion = true});
        bundle.info["CFBundleShortVersionString"] = "1.0";
    }

    ShortcutSettingsView::Services shortcutServices() {
        return {.settings = settings,
                .hotKeyFailures = hotKeyFailures,
                .mainQueue = mainQueue,
                .recorders = {.keyCodeOf = [](auto) { return std::nullopt; },
                              .beep = [] {},
                              .suspendHotKeys = [] { return Subscription(); }}};
    }

    FolderAccessSetupModel::Services folderAccessServices() {
        return {.folderAccess = access,
                .store = store,
                .fileSystem = files,
                .account = account,
                .folders = folders};
    }

    ContentView::Services contentServices() {
        return {.theme = theme,
                .settings = settings,
                .loginItem = loginItemModel,
                .shortcuts = shortcutServices(),
                .folderAccess = folderAccessServices(),
                .bundle = bundle,
                .extensionStatus = extensionStatus,
                .uninstaller = uninstaller,
                .mainQueue = mainQueue};
    }

    FakeAppearance desktop;
    Theme theme{desktop};
    ObjectWillChange failuresWillChange;
    Published<HotKeyFailures> hotKeyFailures{failuresWillChange, {}};
    ExtensionStatusModel extensionStatus{workspace};
    FakeInstallation installation;
    FileManagerMenusModel menus{installation};
    FakeLoginItem loginItem;
    LoginItemModel loginItemModel{loginItem};
};

} // namespace blankwell
