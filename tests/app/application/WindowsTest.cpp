#include "app/application/Windows.h"

#include "access/FolderAccessSetupView.h"
#include "app/WindowScenes.h"
#include "platform/qt/QtApplication.h"
#include "settings/ShortcutSettingsView.h"
#include "shell/UninstallView.h"
#include "support/FakeInstallation.h"
#include "support/FakeLoginItem.h"
#include "support/FakePresenceController.h"
#include "views/AppPresenceView.h"
#include "views/ExtensionPageView.h"
#include "views/ExtensionStatusView.h"
#include "views/FileManagerMenusModel.h"
#include "views/FileTypesListView.h"
#include "views/LoginItemModel.h"
#include "views/MainHeaderView.h"
#include "widgets/PushButton.h"
#include "widgets/Switch.h"
#include "widgets/WidgetTest.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Texts = std::vector<std::string>;

struct WindowsTest : WidgetTest {
    WindowsTest() { fakes.settings.hasCompletedOnboarding.set(true); }

    static QWidgetList shown(const QString& title) {
        auto windows = QApplication::topLevelWidgets();
        windows.removeIf([&](const QWidget* window) {
            return !window->isVisible() || window->windowTitle() != title;
        });
        return windows;
    }

    /// The main window, with the keyboard.
    QWidget& openMain() {
        windows.open("main");
        auto* const window = shown("Blankwell+").at(0);
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return *window;
    }

    static Texts items(const QMenu& menu) {
        Texts texts;
        for (const auto* const action : menu.actions()) {
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
        return texts;
    }

    static QMenu& menu(const QWidget& window, int index) {
        return *window.findChild<QMenuBar*>()->actions().at(index)->menu();
    }

    void choose(const QWidget& window, int menuIndex, int item) {
        menu(window, menuIndex).actions().at(item)->trigger();
        fakes.mainQueue.run();
    }

    FakePresenceController fakes;
    FakeLoginItem loginItem;
    LoginItemModel loginItemModel{loginItem};
    QtApplication application;
    FakeInstallation installation;
    FileManagerMenusModel fileManagerMenus{installation};
    int timesLastClosed = 0;
    Windows windows{{
                        .theme = theme,
                        .settings = fakes.settings,
                        .loginItem = loginItemModel,
                        .shortcuts =
                            {
                                .settings = fakes.settings,
                                .hotKeyFailures = fakes.controller.hotKeyFailures(),
                                .mainQueue = fakes.mainQueue,
                                .recorders = {},
                            },
                        .folderAccess =
                            {
                                .folderAccess = fakes.access,
                                .store = fakes.store,
                                .fileSystem = fakes.files,
                                .account = fakes.account,
                                .folders = fakes.folders,
                            },
                        .bundle = fakes.bundle,
                        .workspace = fakes.workspace,
                        .menus = fileManagerMenus,
                        .uninstaller = fakes.uninstaller,
                        .updater = fakes.updater(),
                        .presence = fakes.applicationPresence,
                        .application = application,
                        .mainQueue = fakes.mainQueue,
                    },
                    [this] { ++timesLastClosed; }};
};

TEST_F(WindowsTest, EachSceneHasOneWindow) {
    for (const auto& scene : {mainWindowScene, helpWindowScene, extensionWindowScene}) {
        const auto title = QString::fromStdString(std::string(scene.title));
        windows.open(scene.id);
        windows.open(scene.id);
        ASSERT_EQ(shown(title).size(), 1) << scene.title;
        EXPECT_EQ(accessible(*shown(title).front()).role(), QAccessible::Window) << scene.title;
    }
    windows.open("no such scene");
}

TEST_F(WindowsTest, TheMainWindowHasItsSectionsInOrder) {
    const auto& window = openMain();
    std::vector<int> tops;
    const auto add = [&](const QWidget* section) {
        ASSERT_NE(section, nullptr);
        tops.push_back(section->mapTo(&window, QPoint()).y());
    };
    add(window.findChild<MainHeaderView*>());
    add(window.findChild<AppPresenceView*>());
    add(window.findChild<FileTypesListView*>());
    add(window.findChild<ShortcutSettingsView*>());
    add(window.findChild<FolderAccessSetupView*>());
    add(window.findChild<ExtensionStatusView*>());
    add(window.findChild<UninstallView*>());
    EXPECT_THAT(tops, SizeIs(7));
    EXPECT_TRUE(std::ranges::is_sorted(tops)) << testing::PrintToString(tops);
}

TEST_F(WindowsTest, TheMenusHaveTheirItemsAndNoneMakesSomethingNew) {
    auto& window = openMain();
    const auto bars = window.findChildren<QMenuBar*>();
    ASSERT_EQ(bars.size(), 1);
    ASSERT_EQ(bars[0]->actions().size(), 2);
    EXPECT_EQ(bars[0]->actions()[0]->text(), "Blankwell+");
    EXPECT_EQ(bars[0]->actions()[1]->text(), "Help");
    EXPECT_THAT(items(menu(window, 0)), ElementsAre("Check for Updates...", "-",
                                                    "Uninstall Blankwell+...", "Quit Blankwell+"));
    EXPECT_THAT(items(menu(window, 1)), ElementsAre("Blankwell+ Help", "Show Welcome Walkthrough"));
}

TEST_F(WindowsTest, TheKeyThatDesktopsHaveForMenusOpensTheFirst) {
    auto& window = openMain();
    QTest::keyClick(&window, Qt::Key_F10);
    EXPECT_TRUE(menu(window, 0).isVisible());
    QTest::keyClick(&menu(window, 0), Qt::Key_Escape);
    EXPECT_FALSE(menu(window, 0).isVisible());
}

TEST_F(WindowsTest, HomeAndEndScrollToTheEndsOfTheMainWindow) {
    auto& window = openMain();
    window.resize(720, 520);
    auto& toggle = *window.findChild<Switch*>();
    const auto& bar = *window.findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.maximum() > 0; }));
    QTest::keyClick(&toggle, Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    QTest::keyClick(&toggle, Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), bar.maximum() - bar.pageStep());
    QTest::keyClick(&toggle, Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(WindowsTest, TheMenusFollowTheUpdater) {
    auto& window = openMain();
    EXPECT_FALSE(menu(window, 0).actions()[0]->isEnabled());
    fakes.updaters.setCanCheckForUpdates(true);
    fakes.mainQueue.run();
    ASSERT_TRUE(menu(window, 0).actions()[0]->isEnabled());
    choose(window, 0, 0);
    EXPECT_EQ(fakes.updaters.checks, 1);
}

TEST_F(WindowsTest, TheCommandsOfTheApplicationMenuDoWhatTheySay) {
    auto& window = openMain();
    fakes.events.clear();
    choose(window, 0, 2);
    EXPECT_THAT(fakes.events, ElementsAre("uninstall"));
    fakes.events.clear();
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    fakes.mainQueue.run();
    EXPECT_THAT(fakes.events, ElementsAre("terminate"));
}

TEST_F(WindowsTest, HelpTwiceBringsTheSameWindowForward) {
    auto& window = openMain();
    QTest::keyClick(&window, Qt::Key_Slash, Qt::ControlModifier | Qt::ShiftModifier);
    fakes.mainQueue.run();
    const auto first = shown("Blankwell+ Help");
    ASSERT_EQ(first.size(), 1);
    choose(window, 1, 0);
    EXPECT_EQ(shown("Blankwell+ Help"), first);
    EXPECT_TRUE(QTest::qWaitForWindowActive(first[0]));
}

TEST_F(WindowsTest, ShowWelcomeWalkthroughOpensTheMainWindowAndTurnsOnboardingOn) {
    auto& window = openMain();
    window.close();
    choose(window, 1, 1);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(fakes.settings.hasCompletedOnboarding.get());
}

TEST_F(WindowsTest, TheExtensionCardShowsThePageOfTheApplication) {
    auto& window = openMain();
    fakes.events.clear();
    window.findChild<ExtensionStatusView*>()->findChild<PushButton*>()->click();
    ASSERT_EQ(shown("Blankwell+ Finder Extension").size(), 1);
    EXPECT_NE(shown("Blankwell+ Finder Extension")[0]->findChild<ExtensionPageView*>(), nullptr);
    EXPECT_THAT(fakes.events, IsEmpty()) << "no other program is asked";
}

TEST_F(WindowsTest, AWindowGrowsToItsHeightTheFirstTimeItIsActiveAndNeverAgain) {
    desktop.set({.scheme = ColorScheme::light, .accent = std::nullopt, .reducesMotion = true});
    const auto visible = QGuiApplication::primaryScreen()->availableGeometry().height();
    auto& window = openMain();
    const auto target = static_cast<int>(activationContentHeight(visible));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.height() == target; }))
        << window.height() << " instead of " << target;
    window.resize(720, 520);
    windows.open("help");
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown("Blankwell+ Help").at(0)));
    openMain();
    QTest::qWait(50);
    EXPECT_EQ(window.height(), 520);
}

TEST_F(WindowsTest, TheMainWindowIsNeverSmallerThanItsContentWants) {
    auto& window = openMain();
    window.resize(100, 100);
    EXPECT_EQ(window.size(), QSize(720, 520));
}

TEST_F(WindowsTest, TellsWhenTheUserHasClosedTheLastWindow) {
    auto& window = openMain();
    windows.open("extension");
    auto& page = *shown("Blankwell+ Finder Extension").at(0);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    QTest::keyClick(&page, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(page.isVisible());
    EXPECT_EQ(timesLastClosed, 0) << "the main window is still there";
    QCloseEvent closing; // as window managers have it
    QCoreApplication::sendEvent(window.windowHandle(), &closing);
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(timesLastClosed, 1);
}

TEST_F(WindowsTest, AWindowThatTheApplicationClosesTellsNothing) {
    openMain();
    application.closeWindows("Blankwell+");
    QCoreApplication::processEvents();
    EXPECT_THAT(shown("Blankwell+"), IsEmpty());
    EXPECT_EQ(timesLastClosed, 0);
}

} // namespace
} // namespace blankwell
