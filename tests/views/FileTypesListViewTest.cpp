#include "views/FileTypesListView.h"

#include "settings/AppSettings.h"
#include "support/FakeLog.h"
#include "support/FakeMainQueue.h"
#include "support/FakeUserDefaults.h"
#include "views/DropIndicator.h"
#include "views/FileTypeRow.h"
#include "views/FileTypeSectionView.h"
#include "widgets/Metrics.h"
#include "widgets/ReadTexts.h"
#include "widgets/ScrollArea.h"
#include "widgets/Switch.h"
#include "widgets/WidgetTest.h"

#include <QScrollBar>
#include <QStyle>

#include <string>
#include <vector>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using Ids = std::vector<std::string>;

struct FileTypesListViewTest : WidgetTest {
    FileTypesListViewTest() {
        area.setWidget(list);
        area.resize(600, 300);
    }

    FileTypeSectionView& section(int index) {
        return *list->findChildren<FileTypeSectionView*>()[index];
    }

    FileTypeRow& row(const std::string& id) {
        for (auto* const found : list->findChildren<FileTypeRow*>()) {
            if (found->id() == id) {
                return *found;
            }
        }
        throw std::out_of_range(id);
    }

    /// The ids of a section's rows, from top to bottom as they are seen.
    Ids seen(int index) {
        auto rows = section(index).findChildren<FileTypeRow*>();
        std::ranges::sort(rows, {}, &QWidget::y);
        Ids ids;
        for (const auto* const found : rows) {
            ids.push_back(found->id());
        }
        return ids;
    }

    /// Lets the view take in what has changed.
    void settle() {
        queue.run();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    /// Takes `id` by its middle and moves the pointer to `y` in the coordinates of `target`.
    void dragOver(const std::string& id, const QWidget& target, int y) {
        auto& dragged = row(id);
        QTest::mousePress(&dragged, Qt::LeftButton, {}, {100, 18});
        const auto place = target.mapToGlobal(QPoint(100, y));
        QTest::mouseMove(&dragged, QPoint(100, 18 + QApplication::startDragDistance()));
        QTest::mouseMove(&dragged, dragged.mapFromGlobal(place));
    }

    void drop(const std::string& id) { QTest::mouseRelease(&row(id), Qt::LeftButton); }

    bool showsIndicator() {
        const auto indicators = list->findChildren<DropIndicator*>();
        return std::ranges::any_of(indicators, &QWidget::isVisible);
    }

    FakeUserDefaults defaults;
    FakeLog log;
    FakeMainQueue queue;
    AppSettings settings{defaults, log};
    ScrollArea area{theme};
    FileTypesListView* list = new FileTypesListView(theme, settings, queue);
};

TEST_F(FileTypesListViewTest, ASwitchWritesAtOnce) {
    show(area);
    QTest::mouseClick(&row("md").toggle(), Qt::LeftButton);
    EXPECT_THAT(std::get<Ids>(defaults.values.at("enabledFileTypeIDs")), Not(Contains("md")));
    QTest::keyClick(&row("md").toggle(), Qt::Key_Space);
    EXPECT_THAT(std::get<Ids>(defaults.values.at("enabledFileTypeIDs")), Contains("md"));
}

TEST_F(FileTypesListViewTest, FollowsTheSettingsAndWritesNothingForThat) {
    settings.enabledFileTypeIDs.set({"txt"});
    settings.fileTypeOrder.set({"csv", "txt"});
    defaults.written.clear();
    show(area);
    settle();
    EXPECT_TRUE(row("txt").toggle().isChecked());
    EXPECT_FALSE(row("md").toggle().isChecked());
    EXPECT_THAT(seen(0), ElementsAre("csv", "txt", "md", "rtf"));
    EXPECT_THAT(defaults.written, testing::IsEmpty());
}

TEST_F(FileTypesListViewTest, ACategoryThatIsSwitchedOffKeepsItsSection) {
    settings.enabledFileTypeIDs.set({"txt"});
    show(area);
    settle();
    EXPECT_TRUE(section(2).isVisible());
    EXPECT_THAT(seen(2), ElementsAre("docx", "xlsx", "pptx"));
}

TEST_F(FileTypesListViewTest, WhatIsSeenOfTheSwitchesEndsWhereTheTextsOfCardsDo) {
    show(area);
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        area.setLayoutDirection(direction);
        settle();
        const auto& toggle = row("md").toggle();
        const QRect place(toggle.mapTo(list, QPoint()), toggle.size());
        const auto seen = QStyle::visualRect(direction, list->rect(), place);
        EXPECT_EQ(seen.right() - Switch::ringMargin, list->width() - 1 - metrics::cardPadding);
    }
}

TEST_F(FileTypesListViewTest, AltWithAnArrowMovesTheRowThatKeepsTheKeyboard) {
    show(area);
    row("md").toggle().setFocus();
    QTest::keyClick(&row("md").toggle(), Qt::Key_Down, Qt::AltModifier);
    settle();
    EXPECT_THAT(seen(0), ElementsAre("txt", "rtf", "md", "csv"));
    EXPECT_TRUE(row("md").toggle().hasFocus());
    EXPECT_EQ(std::get<Ids>(defaults.values.at("fileTypeOrder"))[1], "rtf");
    QTest::keyClick(&row("md").toggle(), Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(&row("md").toggle(), Qt::Key_Up, Qt::AltModifier);
    settle();
    EXPECT_THAT(seen(0), ElementsAre("md", "txt", "rtf", "csv"));
}

TEST_F(FileTypesListViewTest, TabFollowsTheOrderAcrossSections) {
    settings.fileTypeOrder.set({"csv", "txt", "md", "rtf", "yaml", "json"});
    show(area);
    settle();
    row("csv").toggle().setFocus();
    for (const auto* id : {"txt", "md", "rtf", "yaml", "json", "xml"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(row(id).toggle().hasFocus()) << id;
    }
}

TEST_F(FileTypesListViewTest, ADraggedRowIsDroppedWhereTheLineIs) {
    show(area);
    dragOver("csv", row("txt"), 4);
    EXPECT_TRUE(showsIndicator());
    drop("csv");
    settle();
    EXPECT_FALSE(showsIndicator());
    EXPECT_THAT(seen(0), ElementsAre("csv", "txt", "md", "rtf"));
    dragOver("csv", row("rtf"), 30);
    drop("csv");
    settle();
    EXPECT_THAT(seen(0), ElementsAre("txt", "md", "rtf", "csv"));
    dragOver("txt", row("md"), 30);
    drop("txt");
    settle();
    EXPECT_THAT(seen(0), ElementsAre("md", "txt", "rtf", "csv"));
}

TEST_F(FileTypesListViewTest, ARowStaysInItsSection) {
    show(area);
    dragOver("txt", row("xml"), 4);
    drop("txt");
    settle();
    EXPECT_THAT(seen(0), ElementsAre("md", "rtf", "csv", "txt"));
    EXPECT_EQ(seen(1)[0], "json");
}

TEST_F(FileTypesListViewTest, EscapeEndsTheDragAndAClickIsNone) {
    show(area);
    defaults.written.clear();
    row("txt").toggle().setFocus();
    dragOver("csv", row("txt"), 4);
    QTest::keyClick(&row("txt").toggle(), Qt::Key_Escape);
    EXPECT_FALSE(showsIndicator());
    drop("csv");
    QTest::mouseClick(&row("csv"), Qt::LeftButton, {}, {100, 18});
    EXPECT_THAT(defaults.written, testing::IsEmpty());
}

TEST_F(FileTypesListViewTest, ADragToTheEdgeScrolls) {
    show(area);
    auto& bar = *area.verticalScrollBar();
    ASSERT_EQ(bar.value(), 0);
    dragOver("txt", *area.viewport(), area.viewport()->height() - 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return bar.value() > 60; }));
    QTest::mouseMove(&row("txt"),
                     row("txt").mapFromGlobal(area.viewport()->mapToGlobal(QPoint(100, 150))));
    const int value = bar.value();
    QTest::qWait(50);
    EXPECT_EQ(bar.value(), value);
    drop("txt");
}

TEST_F(FileTypesListViewTest, ScreenReadersSeeListsOfSwitchesAndHowToMoveThem) {
    EXPECT_EQ(accessible(section(1)).role(), QAccessible::List);
    EXPECT_EQ(accessibleName(section(1)), "Code");
    EXPECT_EQ(accessible(row("yaml")).role(), QAccessible::ListItem);
    EXPECT_EQ(accessibleName(row("yaml")), "YAML");
    auto& toggle = row("yaml").toggle();
    EXPECT_EQ(accessibleName(toggle), "YAML");
    EXPECT_EQ(accessible(toggle).text(QAccessible::Description),
              "2 of 9. Alt+Up and Alt+Down change the order.");
    accessible(toggle).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(settings.enabledFileTypeIDs.get().contains("yaml"));
}

TEST_F(FileTypesListViewTest, ScreenReadersFindTheTitlesAndComeToTheRowsAsTheyStand) {
    show(area);
    EXPECT_THAT(readTexts(*list, QAccessible::Heading),
                ElementsAre("Plain Text", "Code", "Office"));
    settings.fileTypeOrder.set({"csv", "txt", "md", "rtf"});
    settle();
    EXPECT_THAT(readTexts(section(0), QAccessible::CheckBox),
                ElementsAre("CSV", "Text", "Markdown", "Rich Text"));
}

TEST_F(FileTypesListViewTest, RowsAre36HighAndGrowWithTheFont) {
    show(area);
    EXPECT_EQ(row("md").height(), 36);
    enlargeFont(3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return row("md").height() > 36; }));
}

} // namespace
} // namespace blankwell
