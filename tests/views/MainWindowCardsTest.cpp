#include "settings/AppSettings.h"
#include "shell/UninstallView.h"
#include "support/FakeApplication.h"
#include "support/FakeLog.h"
#include "support/FakePresenceController.h"
#include "support/FakeUserDefaults.h"
#include "views/AppPresenceView.h"
#include "views/ExtensionStatusModel.h"
#include "views/ExtensionStatusView.h"
#include "widgets/PushButton.h"
#include "widgets/ReadTexts.h"
#include "widgets/SegmentedControl.h"
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
};

TEST_F(MainWindowCardsTest, ThePresencePickerWritesTheChoiceAndSaysWhatItMeans) {
    AppPresenceView view(theme, settings);
    show(view);
    auto& picker = *view.findChild<SegmentedControl*>();
    EXPECT_EQ(accessibleName(picker), "App Presence");
    EXPECT_EQ(picker.selected(), 1);
    EXPECT_THAT(texts(view), ElementsAre("App Presence", "Show Blankwell+ in the Dock only."));
    EXPECT_THAT(readTexts(view, QAccessible::Heading), ElementsAre("App Presence"));
    QTest::mouseClick(view.findChildren<QRadioButton*>()[2], Qt::LeftButton);
    EXPECT_EQ(defaults.values.at("appPresence"), PropertyValue(std::string("menuBarOnly")));
    EXPECT_THAT(texts(view), Contains("Keep Blankwell+ available from the menu bar only."));
}

TEST_F(MainWindowCardsTest, ThePresencePickerFollowsTheSettings) {
    const AppPresenceView view(theme, settings);
    settings.appPresence.set(AppPresence::dockAndMenuBar);
    EXPECT_EQ(view.findChild<SegmentedControl*>()->selected(), 0);
    EXPECT_THAT(texts(view), Contains("Show Blankwell+ in the Dock and the menu bar."));
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
