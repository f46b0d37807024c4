#include "settings/AppSettings.h"
#include "shell/UninstallView.h"
#include "support/FakeApplication.h"
#include "support/FakeLog.h"
#include "support/FakeLoginItem.h"
#include "support/FakePresenceController.h"
#include "support/FakeUserDefaults.h"
#include "views/AppPresenceView.h"
#include "views/ExtensionStatusModel.h"
#include "views/ExtensionStatusView.h"
#include "views/LoginItemModel.h"
#include "widgets/PushButton.h"
#include "widgets/ReadTexts.h"
#include "widgets/SegmentedControl.h"
#include "widgets/Switch.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"
#include "widgets/WidgetTest.h"

#include <QRadioButton>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;

/// What is to be read on `view`, from top to bottom.
std::vector<std::string> texts(const QWidget& view) {
    std::vector<std::string> result;
    for (const auto* const label : view.findChildren<TextLabel*>()) {
        result.push_back(label->text().toStdString());
    }
    return result;
}

struct MainWindowCardsTest : WidgetTest {
    FakeUserDefaults defaults;
    FakeLog log;
    EventLog events;
    AppSettings settings{defaults, log};
    FakeLoginItem loginItem;
    LoginItemModel loginItemModel{loginItem};
};

TEST_F(MainWindowCardsTest, ThePresencePickerWritesTheChoiceAndSaysWhatItMeans) {
    AppPresenceView view(theme, settings, loginItemModel);
    show(view);
    auto& picker = *view.findChild<SegmentedControl*>();
    EXPECT_EQ(accessibleName(picker), "App Presence");
    EXPECT_EQ(picker.selected(), 1);
    EXPECT_THAT(texts(view), ElementsAre("App Presence", "Show Blankwell+ in the Dock only.",
                                         loginItemTexts.title, loginItemTexts.description));
    EXPECT_THAT(readTexts(view, QAccessible::Heading), ElementsAre("App Presence"));
    QTest::mouseClick(view.findChildren<QRadioButton*>()[2], Qt::LeftButton);
    EXPECT_EQ(defaults.values.at("appPresence"), PropertyValue(std::string("menuBarOnly")));
    EXPECT_THAT(texts(view), Contains("Keep Blankwell+ available from the menu bar only."));
}

TEST_F(MainWindowCardsTest, ThePresencePickerFollowsTheSettings) {
    const AppPresenceView view(theme, settings, loginItemModel);
    settings.appPresence.set(AppPresence::dockAndMenuBar);
    EXPECT_EQ(view.findChild<SegmentedControl*>()->selected(), 0);
    EXPECT_THAT(texts(view), Contains("Show Blankwell+ in the Dock and the menu bar."));
}

TEST_F(MainWindowCardsTest, TheSwitchUnderThePresenceIsThatOfTheLoginItem) {
    loginItem.on = true;
    AppPresenceView view(theme, settings, loginItemModel);
    show(view);
    auto& toggle = *view.findChild<Switch*>();
    EXPECT_TRUE(toggle.isChecked()) << "read when it comes into view";
    EXPECT_EQ(accessibleName(toggle), "Open at login");
    EXPECT_EQ(accessible(toggle).text(QAccessible::Description),
              "Start Blankwell+ without a window when you log in.");
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_FALSE(loginItem.on);
    loginItem.on = true;
    loginItemModel.reload();
    EXPECT_TRUE(toggle.isChecked());
}

TEST_F(MainWindowCardsTest, ASwitchThatCannotBeTurnedGoesBackAndSaysWhy) {
    AppPresenceView view(theme, settings, loginItemModel);
    show(view);
    auto& toggle = *view.findChild<Switch*>();
    loginItem.failWith = SystemError{SystemError::Domain::posix, 13, "Not in a sandbox."};
    toggle.click();
    EXPECT_FALSE(toggle.isChecked());
    EXPECT_FALSE(toggle.isEnabled());
    EXPECT_THAT(texts(view), Contains("Not in a sandbox."));
    EXPECT_EQ(accessible(toggle).text(QAccessible::Description), "Not in a sandbox.");
}

TEST_F(MainWindowCardsTest, TheUninstallCardStartsTheFlow) {
    FakeUninstallFlow flow(events);
    UninstallView view(theme, flow);
    show(view);
    auto& button = *view.findChild<PushButton*>();
    EXPECT_THAT(texts(view),
                ElementsAre("Uninstall Blankwell+",
                            "Move the app to the Trash, remove saved settings, and restart Finder "
                            "so the Finder extension is unloaded."));
    EXPECT_EQ(view.findChild<SymbolLabel*>()->symbol(), "trash");
    EXPECT_EQ(accessibleName(button), "Uninstall...");
    EXPECT_EQ(accessible(button).role(), QAccessible::PushButton);
    EXPECT_EQ(accessible(button).text(QAccessible::Description).toStdString(), texts(view).at(1));
    EXPECT_THAT(readTexts(view, QAccessible::Heading), ElementsAre("Uninstall Blankwell+"));
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_THAT(events, ElementsAre("uninstall"));
}

TEST_F(MainWindowCardsTest, WhereTheFirstSettingsDoNotOpenTheSecondDo) {
    FakeWorkspace workspace(events);
    ExtensionStatusModel model(workspace);
    ExtensionStatusView view(theme, model);
    show(view);
    QTest::mouseClick(view.findChild<PushButton*>(), Qt::LeftButton);
    EXPECT_THAT(events,
                ElementsAre("open x-apple.systempreferences:com.apple.ExtensionsPreferences",
                            "open x-apple.systempreferences:com.apple.preferences.extensions"));
    events.clear();
    workspace.handledSchemes = {"x-apple.systempreferences"};
    QTest::mouseClick(view.findChild<PushButton*>(), Qt::LeftButton);
    EXPECT_THAT(events,
                ElementsAre("open x-apple.systempreferences:com.apple.ExtensionsPreferences"));
}

} // namespace
} // namespace blankwell
