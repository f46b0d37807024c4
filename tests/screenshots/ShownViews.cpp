#include "screenshots/ShownViews.h"

#include "access/FolderAccessSetupView.h"
#include "filetypes/FileTypeCatalog.h"
#include "platform/qt/QtMenu.h"
#include "quickcreate/QuickCreatePanelView.h"
#include "settings/DirectFileShortcutRow.h"
#include "settings/ShortcutRecorderControl.h"
#include "shell/StatusMenu.h"
#include "shell/UninstallView.h"
#include "support/Stage.h"
#include "updates/UpdateRefusal.h"
#include "updates/UpdateView.h"
#include "views/CreationGuideView.h"
#include "views/ExtensionPageView.h"
#include "views/HelpContent.h"
#include "views/HelpView.h"
#include "views/OnboardingView.h"
#include "widgets/Card.h"
#include "widgets/Symbols.h"

#include <QAbstractButton>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>

namespace blankwell {
namespace {

using View = std::unique_ptr<QWidget>;

constexpr QSize panelSize(560, 600);
constexpr QSize mainWindowSize(770, 860);
constexpr int cardWidth = 714;
constexpr QuickCreateShortcut controlOptionN = defaultQuickCreateShortcut;
constexpr QuickCreateShortcut controlOptionM{.keyCode = 46, .carbonModifiers = 0x1800};
constexpr QuickCreateShortcut controlOptionJ{.keyCode = 38, .carbonModifiers = 0x1800};

/// Presses the button titled `title`, which must be there.
void press(QWidget& view, const QString& title) {
    for (auto* const button : view.findChildren<QAbstractButton*>()) {
        if (button->text() == title) {
            button->click();
            return;
        }
    }
    qFatal("no button is titled %s", qPrintable(title));
}

/// Shows `view` and lets its layouts follow: some of what there is to see is read only then.
void open(QWidget& view) {
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) {
        qFatal("a view does not appear");
    }
    QCoreApplication::processEvents();
}

/// `view` as high as it needs to be where it is `width` wide.
View fitted(View view, int width) {
    view->resize(width, view->sizeHint().height());
    open(*view);
    view->resize(width, view->layout()->totalHeightForWidth(width));
    return view;
}

/// `view` as it stands in the main window.
View inCard(Stage& stage, QWidget* view) {
    auto window = std::make_unique<QWidget>();
    auto* const card = new Card(stage.theme);
    card->content().addWidget(view);
    auto* const layout = new QVBoxLayout(window.get());
    layout->addWidget(card);
    return fitted(std::move(window), cardWidth);
}

View panel(Stage& stage, const char* search) {
    auto view = std::make_unique<QuickCreatePanelView>(
        QuickCreatePanelView::Services{.controller = stage.controller,
                                       .settings = stage.settings,
                                       .mainQueue = stage.mainQueue,
                                       .theme = stage.theme});
    view->resize(panelSize);
    stage.controller.searchText.set(search);
    return view;
}

View panelAfterCreation(Stage& stage) {
    auto view = panel(stage, "mark");
    stage.controller.create(*FileTypeCatalog::definition("md"), DestinationChoice::panel);
    return view;
}

void setShortcuts(Stage& stage) {
    stage.settings.setShortcut(controlOptionM, "md");
    stage.settings.setShortcut(controlOptionJ, "json");
}

void grant(Stage& stage, const std::vector<const char*>& folders) {
    for (const auto* const folder : folders) {
        if (!stage.store.saveBookmark(FileUrl(folder), FileUrl(folder))) {
            qFatal("no grant of %s", folder);
        }
    }
}

/// The main window, scrolled by `share` of what there is to scroll.
View mainWindow(Stage& stage, double share) {
    stage.settings.setEnabled(false, "yaml");
    setShortcuts(stage);
    grant(stage, {"/Users/u/Projects", "/Volumes/Backup"});
    auto view = std::make_unique<ContentView>(stage.contentServices());
    view->findChild<ShortcutSettingsView*>()->setShowsDirectShortcuts(true);
    view->resize(mainWindowSize);
    open(*view);
    auto& bar = *view->findChild<QScrollArea*>()->verticalScrollBar();
    bar.setValue(static_cast<int>(bar.maximum() * share));
    return view;
}

View shortcuts(Stage& stage) {
    setShortcuts(stage);
    return inCard(stage, new ShortcutSettingsView(stage.theme, stage.shortcutServices()));
}

DirectFileShortcutRow& rowOf(QWidget& view, const std::string& id) {
    const auto rows = view.findChildren<DirectFileShortcutRow*>();
    return **std::ranges::find(rows, id, &DirectFileShortcutRow::fileTypeID);
}

/// A conflict, a shortcut that another program has, and a recorder that waits.
View shortcutsWithTrouble(Stage& stage) {
    stage.settings.setShortcut(controlOptionN, "md");
    stage.settings.setShortcut(controlOptionJ, "json");
    HotKeyFailures failures;
    failures.fileTypes["json"] = eventHotKeyExistsErr;
    stage.hotKeyFailures.set(failures);
    auto* const settings = new ShortcutSettingsView(stage.theme, stage.shortcutServices());
    settings->setShowsDirectShortcuts(true);
    auto view = inCard(stage, settings);
    rowOf(*view, "yaml")
        .findChild<ShortcutRecorderControl*>()
        ->beginRecording(Qt::MouseFocusReason);
    return view;
}

View folderAccess(Stage& stage, const std::vector<const char*>& folders) {
    grant(stage, folders);
    return inCard(stage, new FolderAccessSetupView(stage.theme, stage.folderAccessServices()));
}

View uninstallCard(Stage& stage) {
    auto window = std::make_unique<QWidget>();
    auto* const layout = new QVBoxLayout(window.get());
    layout->addWidget(new UninstallView(stage.theme, stage.uninstaller));
    return fitted(std::move(window), cardWidth);
}

View extensionPage(Stage& stage) {
    for (const auto manager : allFileManagers) {
        stage.installation.menus[manager] = manager != FileManager::nautilus;
    }
    stage.installation.withoutPackage = {FileManager::nautilus};
    stage.menus.refresh();
    stage.menus.turn(FileManager::thunar, false);
    auto view = std::make_unique<ExtensionPageView>(stage.theme, stage.settings, stage.menus);
    view->resize(580, 920);
    return view;
}

View statusMenu(Stage& stage) {
    auto view = std::make_unique<QMenu>();
    const auto items = makeStatusMenu(FileTypeCatalog::builtInTypes(), std::nullopt);
    fillMenu(*view, withActions<StatusMenuAction>(items, [](const auto&) { return [] {}; }),
             stage.mainQueue, symbolIcon);
    return view;
}

View onboarding(Stage& stage, int page) {
    auto view = std::make_unique<OnboardingView>(stage.theme, stage.settings, nullptr);
    for (int shown = 1; shown < page; ++shown) {
        press(*view, "Next");
    }
    return view;
}

View help(Stage& stage) {
    return std::make_unique<HelpView>(stage.theme, helpContent("Version 1.0"));
}

View creationGuide(Stage& stage) {
    auto view = std::make_unique<CreationGuideView>(stage.theme, stage.settings);
    view->resize(560, view->heightForWidth(560));
    return view;
}

View updatePage(Stage& stage, const UpdateState& state) {
    auto view = std::make_unique<UpdateView>(stage.theme);
    view->show(pageFor(state, "1.0"), false);
    view->adjustSize();
    return view;
}

AppcastItem update() {
    return {.version = "110",
            .shortVersion = "1.1",
            .description =
                "<p>The panel opens twice as fast.</p>"
                "<ul><li>Files can be created in folders on servers.</li>"
                "<li>A grant follows its folder when that is renamed.</li>"
                "<li>The menu of the file manager has the types in your order.</li></ul>",
            .releaseNotesLink = "https://example.org/blankwell/1.1"};
}

} // namespace

const std::vector<ShownView>& shownViews() {
    static const std::vector<ShownView> all{
        {"panel", [](Stage& stage) { return panel(stage, ""); }},
        {"panel-search", [](Stage& stage) { return panel(stage, "sh"); }},
        {"panel-nothing-found", [](Stage& stage) { return panel(stage, "zzz"); }},
        {"panel-created", panelAfterCreation},
        {"main-window-top", [](Stage& stage) { return mainWindow(stage, 0); }},
        {"main-window-middle", [](Stage& stage) { return mainWindow(stage, 0.5); }},
        {"main-window-end", [](Stage& stage) { return mainWindow(stage, 1); }},
        {"shortcuts", shortcuts},
        {"shortcuts-trouble", shortcutsWithTrouble},
        {"folder-access-none", [](Stage& stage) { return folderAccess(stage, {}); }},
        {"folder-access",
         [](Stage& stage) {
             return folderAccess(stage, {"/Users/u", "/Users/u/Projects", "/Volumes/Backup"});
         }},
        {"folder-access-long",
         [](Stage& stage) {
             return folderAccess(
                 stage, {"/Users/u/Minutes of the meetings of the working group on the renewal of "
                         "the harbour and its surroundings, 2019 to 2026",
                         "/Users/u/Projects", "/Users/u/Résumés und Anschreiben",
                         "/Volumes/Backup of the laptop from before the move", "/Users/u/a"});
         }},
        {"uninstall", uninstallCard},
        {"extension-page", extensionPage},
        {"status-menu", statusMenu},
        {"onboarding-1", [](Stage& stage) { return onboarding(stage, 1); }},
        {"onboarding-2", [](Stage& stage) { return onboarding(stage, 2); }},
        {"onboarding-3", [](Stage& stage) { return onboarding(stage, 3); }},
        {"onboarding-4", [](Stage& stage) { return onboarding(stage, 4); }},
        {"help", help},
        {"creation-guide", creationGuide},
        {"update-found", [](Stage& stage) { return updatePage(stage, UpdateFound{update()}); }},
        {"update-none", [](Stage& stage) { return updatePage(stage, NoUpdateFound{}); }},
        {"update-downloading",
         [](Stage& stage) {
             return updatePage(stage, DownloadingUpdate{update(),
                                                        {.received = 12'300'000,
                                                         .expected = 33'400'000,
                                                         .bytesPerSecond = 2'100'000}});
         }},
        {"update-ready", [](Stage& stage) { return updatePage(stage, UpdateReady{update()}); }},
        {"update-failed",
         [](Stage& stage) {
             return updatePage(stage, UpdateFailed{"The server sent less than it announced. "
                                                   "Check the connection and try again."});
         }},
        {"update-elsewhere",
         [](Stage& stage) {
             return updatePage(
                 stage, UpdatedElsewhere{updaterElsewhere(InstallationForm::package).value()});
         }},
    };
    return all;
}

} // namespace blankwell
