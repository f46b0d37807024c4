#include "settings/ShortcutSettingsView.h"

#include "filetypes/FileTypeCatalog.h"
#include "settings/AppSettings.h"
#include "settings/DirectFileShortcutRow.h"
#include "settings/KeySender.h"
#include "settings/OptionalShortcutRecorderView.h"
#include "settings/ShortcutRecorderView.h"
#include "support/FakeLog.h"
#include "support/FakeMainQueue.h"
#include "support/FakeUserDefaults.h"
#include "widgets/DisclosureHeader.h"
#include "widgets/IconButton.h"
#include "widgets/ReadTexts.h"
#include "widgets/Segment.h"
#include "widgets/SegmentedControl.h"
#include "widgets/TextLabel.h"
#include "widgets/WidgetTest.h"

#include <algorithm>

namespace blankwell {
namespace {

using testing::ElementsAre;

constexpr QuickCreateShortcut controlOptionN{.keyCode = 45, .carbonModifiers = 0x1800};
constexpr QuickCreateShortcut commandM{.keyCode = 46, .carbonModifiers = 0x100};

struct ShortcutSettingsViewTest : WidgetTest {
    ShortcutSettingsViewTest() {
        view.setShowsDirectShortcuts(true);
        view.resize(640, view.sizeHint().height());
        show(view);
    }

    /// The texts that are shown, from top to bottom.
    std::vector<std::string> texts(QWidget& parent) {
        auto labels = parent.findChildren<TextLabel*>();
        labels.removeIf([&](auto* label) { return !label->isVisibleTo(&parent); });
        std::ranges::stable_sort(labels, {},
                                 [&](auto* label) { return label->mapTo(&parent, QPoint()).y(); });
        std::vector<std::string> result;
        for (auto* const label : labels) {
            result.push_back(label->text().toStdString());
        }
        return result;
    }

    DirectFileShortcutRow& row(const std::string& id) {
        const auto rows = view.findChildren<DirectFileShortcutRow*>();
        return **std::ranges::find(rows, id, &DirectFileShortcutRow::fileTypeID);
    }

    OptionalShortcutRecorderView& recorder(const std::string& id) {
        return *row(id).findChild<OptionalShortcutRecorderView*>();
    }

    IconButton& clearButton(const std::string& id) { return *row(id).findChild<IconButton*>(); }

    ShortcutRecorderView& quickCreate() { return *view.findChild<ShortcutRecorderView*>(); }

    IconButton& reset() {
        const auto buttons = view.findChildren<IconButton*>();
        return **std::ranges::find(buttons, QString("Reset Quick Create shortcut"),
                                   &QWidget::toolTip);
    }

    /// The ids of the rows as they stand.
    std::vector<std::string> order() {
        QApplication::sendPostedEvents();
        auto rows = view.findChildren<DirectFileShortcutRow*>();
        std::ranges::sort(rows, {}, [](auto* row) { return row->y(); });
        std::vector<std::string> ids;
        for (const auto* const row : rows) {
            ids.push_back(row->fileTypeID());
        }
        return ids;
    }

    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    ObjectWillChange failuresWillChange;
    Published<HotKeyFailures> failures{failuresWillChange, {}};
    FakeMainQueue queue;
    CountedRecorderServices counted;
    ShortcutSettingsView view{theme,
                              {.settings = settings,
                               .hotKeyFailures = failures,
                               .mainQueue = queue,
                               .recorders = counted.services}};
};

TEST_F(ShortcutSettingsViewTest, TheListOfFileTypesIsClosedUntilTheHostOpensIt) {
    const ShortcutSettingsView fresh{theme,
                                     {.settings = settings,
                                      .hotKeyFailures = failures,
                                      .mainQueue = queue,
                                      .recorders = counted.services}};
    EXPECT_FALSE(fresh.showsDirectShortcuts());
    EXPECT_TRUE(view.showsDirectShortcuts());
    EXPECT_TRUE(row("md").isVisible());
    view.setShowsDirectShortcuts(false);
    EXPECT_FALSE(row("md").isVisible());
}

TEST_F(ShortcutSettingsViewTest, TheControlsHaveTheirSizesAndNames) {
    EXPECT_EQ(quickCreate().size(), QSize(230, 32));
    EXPECT_EQ(accessibleName(quickCreate()), "Quick Create Shortcut");
    EXPECT_EQ(recorder("md").size(), QSize(180, 32));
    EXPECT_EQ(accessibleName(recorder("md")), "Markdown shortcut");
    EXPECT_EQ(clearButton("md").toolTip(), "Clear Markdown shortcut");
    auto& destination = *view.findChild<SegmentedControl*>();
    EXPECT_EQ(destination.width(), 240);
    EXPECT_EQ(accessibleName(destination), "Destination");
    EXPECT_EQ(accessibleName(*view.findChild<DisclosureHeader*>()), "Direct File Shortcuts");
}

TEST_F(ShortcutSettingsViewTest, ThereIsARowForEveryTypeInTheUsersOrder) {
    EXPECT_EQ(order(), FileTypeCatalog::defaultOrder());
    auto reversed = FileTypeCatalog::defaultOrder();
    std::ranges::reverse(reversed);
    settings.fileTypeOrder.set(reversed);
    queue.run();
    EXPECT_EQ(order(), reversed);
}

TEST_F(ShortcutSettingsViewTest, TabGoesThroughTheRowsAsTheyStand) {
    settings.setShortcut(commandM, "md");
    auto newOrder = FileTypeCatalog::defaultOrder();
    std::ranges::rotate(newOrder, std::ranges::find(newOrder, "md"));
    settings.fileTypeOrder.set(newOrder);
    queue.run();
    ASSERT_EQ(order().front(), "md");

    view.findChild<DisclosureHeader*>()->setFocus();
    std::vector<QWidget*> reached;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.push_back(QApplication::focusWidget());
    }
    EXPECT_THAT(reached, ElementsAre(&recorder("md"), &clearButton("md"), &recorder(order()[1])));
}

TEST_F(ShortcutSettingsViewTest, ScreenReadersFindTheTitleAndComeToTheRowsAsTheyStand) {
    EXPECT_THAT(readTexts(view, QAccessible::Heading), ElementsAre("Quick Create Shortcut"));
    auto reversed = FileTypeCatalog::defaultOrder();
    std::ranges::reverse(reversed);
    settings.fileTypeOrder.set(reversed);
    queue.run();
    auto names = readTexts(view, QAccessible::StaticText);
    std::erase_if(names, [](const auto& name) { return name.starts_with('.'); });
    EXPECT_EQ(names.at(0), "Destination");
    EXPECT_EQ(names.at(1), "PowerPoint Presentation");
    EXPECT_EQ(names.back(), "Text");
}

TEST_F(ShortcutSettingsViewTest, ARecordedQuickCreateShortcutIsWrittenAtOnce) {
    KeySender::click(quickCreate(), keys::m, Qt::MetaModifier);
    EXPECT_EQ(settings.quickCreateShortcut.get(), commandM);
    EXPECT_THAT(defaults.written, testing::Contains("quickCreateShortcut"));
}

TEST_F(ShortcutSettingsViewTest, ResetRestoresTheDefault) {
    settings.quickCreateShortcut.set(commandM);
    queue.run();
    EXPECT_EQ(quickCreate().shortcut(), commandM);
    reset().click();
    queue.run();
    EXPECT_EQ(settings.quickCreateShortcut.get(), controlOptionN);
    EXPECT_EQ(quickCreate().shortcut(), controlOptionN);
}

TEST_F(ShortcutSettingsViewTest, AConflictIsToldInTheHeaderAndInTheRow) {
    EXPECT_EQ(texts(view)[1], "Destination");
    settings.setShortcut(controlOptionN, "md");
    queue.run();
    QApplication::sendPostedEvents();
    EXPECT_EQ(texts(view)[1], "Conflicts with Markdown");
    EXPECT_THAT(texts(row("md")), ElementsAre("Markdown", "Conflicts with Quick Create"));
    settings.setEnabled(false, "md");
    queue.run();
    EXPECT_THAT(texts(row("md")), ElementsAre("Markdown", ".md disabled"));
    settings.setShortcut(std::nullopt, "md");
    queue.run();
    QApplication::sendPostedEvents();
    EXPECT_EQ(texts(view)[1], "Destination");
}

TEST_F(ShortcutSettingsViewTest, AConflictIsRed) {
    auto& caption = *row("md").findChildren<TextLabel*>().last();
    const auto hasRed = [&] {
        const auto image = imageOf(caption);
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const auto color = image.pixelColor(x, y);
                if (color.red() > color.green() + 80) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_FALSE(hasRed());
    settings.setShortcut(controlOptionN, "md");
    queue.run();
    EXPECT_TRUE(hasRed());
    settings.setShortcut(std::nullopt, "md");
    queue.run();
    EXPECT_FALSE(hasRed());
}

TEST_F(ShortcutSettingsViewTest, ARefusedHotKeyIsToldWhereItsShortcutIs) {
    settings.setShortcut(commandM, "md");
    failures.set(
        {.quickCreate = eventHotKeyExistsErr, .fileTypes = {{"md", eventHotKeyExistsErr}}});
    queue.run();
    QApplication::sendPostedEvents();
    EXPECT_EQ(texts(view)[1], "Could not be registered");
    EXPECT_THAT(texts(row("md")), ElementsAre("Markdown", "Could not be registered"));
    failures.set({});
    queue.run();
    EXPECT_THAT(texts(row("md")), ElementsAre("Markdown", ".md"));
}

TEST_F(ShortcutSettingsViewTest, RecordingAndClearingAShortcutOfAType) {
    EXPECT_FALSE(clearButton("md").isEnabled());
    KeySender::click(recorder("md"), keys::m, Qt::MetaModifier);
    queue.run();
    EXPECT_EQ(settings.fileTypeShortcuts.get().at("md"), commandM);
    EXPECT_TRUE(clearButton("md").isEnabled());
    clearButton("md").setFocus(Qt::TabFocusReason);
    QTest::keyClick(&clearButton("md"), Qt::Key_Space);
    queue.run();
    EXPECT_FALSE(settings.fileTypeShortcuts.get().contains("md"));
    EXPECT_FALSE(clearButton("md").isEnabled());
    EXPECT_EQ(recorder("md").appearance().text, "Set Shortcut");
    EXPECT_TRUE(recorder("md").hasFocus());
}

TEST_F(ShortcutSettingsViewTest, AChangeElsewhereDoesNotEndTheWaitForACombination) {
    QTest::mouseClick(&recorder("md"), Qt::LeftButton);
    settings.setEnabled(false, "py");
    queue.run();
    EXPECT_TRUE(recorder("md").isRecording());
}

TEST_F(ShortcutSettingsViewTest, TheDestinationFollowsTheStoreAndTheStoreTheDestination) {
    auto& destination = *view.findChild<SegmentedControl*>();
    const auto segments = destination.findChildren<Segment*>();
    EXPECT_EQ(destination.selected(), 0);
    QTest::mouseClick(segments[1], Qt::LeftButton);
    EXPECT_EQ(settings.directShortcutDestination.get(), CreationDestinationMode::frontFinderFolder);
    settings.directShortcutDestination.set(CreationDestinationMode::desktop);
    queue.run();
    EXPECT_EQ(destination.selected(), 0);
}

} // namespace
} // namespace blankwell
