#include "views/HelpView.h"

#include "base/Overloaded.h"
#include "views/HelpContent.h"
#include "widgets/Heading.h"
#include "widgets/ReadTexts.h"
#include "widgets/ScrollArea.h"
#include "widgets/WidgetTest.h"

#include <QScreen>
#include <QScrollBar>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct HelpViewTest : WidgetTest {
    HelpView help{theme, helpContent("Version 1.2.3")};

    [[nodiscard]] QScrollBar& scrollBar() const {
        return *help.findChild<ScrollArea*>()->verticalScrollBar();
    }
};

TEST_F(HelpViewTest, ItIsTitledAndScrollsAboutAPage) {
    EXPECT_EQ(help.windowTitle(), "Blankwell+ Help");
    show(help);
    EXPECT_LE(help.height(), help.screen()->availableSize().height());
    EXPECT_GT(scrollBar().maximum(), 0);
}

TEST_F(HelpViewTest, EveryTextIsThereInOrder) {
    const auto content = helpContent("Version 1.2.3");
    std::vector<std::string> expected{content.header.title, content.header.text,
                                      content.header.version};
    const auto append = [&](std::initializer_list<std::string> texts) {
        expected.insert(expected.end(), texts);
    };
    for (const auto& way : content.ways) {
        append({way.title, way.text});
    }
    for (const auto& card : content.cards) {
        append({card.title});
        for (const auto& element : card.content) {
            std::visit(Overloaded{
                           [&](const GuideParagraph& paragraph) { append({paragraph.text}); },
                           [&](const HelpLocationRow& row) { append({row.title, row.text}); },
                           [&](const HelpStep& step) {
                               append({std::to_string(step.number), step.title, step.text});
                           },
                           [&](const HelpHeading& heading) { append({heading.title}); },
                           [&](const HelpFileTypeGroup& group) {
                               append({group.title});
                               for (const auto& type : group.types) {
                                   append({type.displayName, "." + type.fileExtension});
                               }
                           },
                       },
                       element);
        }
    }
    show(help);
    std::vector<std::string> actual;
    for (const auto& [role, text] : readTexts(help)) {
        actual.push_back(text);
    }
    EXPECT_EQ(actual, expected);
}

TEST_F(HelpViewTest, ScreenReadersFindItsHeadings) {
    show(help);
    EXPECT_THAT(readTexts(help, QAccessible::Heading),
                ElementsAre("Blankwell+ Help", "Where Create File Works",
                            "Add the Finder toolbar button (one time)", "Supported Files",
                            "Plain Text", "Code", "Office", "Finder Extension Troubleshooting",
                            "Folder Access", "File Naming", "Uninstalling",
                            "If uninstall cannot finish"));
}

TEST_F(HelpViewTest, WithoutAVersionNothingStandsInItsPlace) {
    HelpView unversioned(theme, helpContent(""));
    show(help);
    show(unversioned);
    EXPECT_THAT(readTexts(unversioned), testing::SizeIs(readTexts(help).size() - 1));
}

TEST_F(HelpViewTest, NoTextIsCutOffOrDriftsApartWhateverTheSize) {
    show(help);
    for (const QSize size : {QSize(420, 500), QSize(680, 760), QSize(1400, 4000)}) {
        help.resize(size);
        QCoreApplication::processEvents();
        EXPECT_THAT(badlyPlacedTexts(help), IsEmpty()) << size.width();
    }
}

TEST_F(HelpViewTest, WithALargerFontEveryTextHasRoomAndNoneIsWiderThanTheWindow) {
    enlargeFont(1.5);
    HelpView large(theme, helpContent("Version 1.2.3"));
    show(large);
    EXPECT_THAT(badlyPlacedTexts(large), IsEmpty());
    for (const auto* const label : large.findChildren<TextLabel*>()) {
        EXPECT_LE(label->mapTo(&large, QPoint(label->width(), 0)).x(), large.width());
    }
}

TEST_F(HelpViewTest, TheKeysThatScrollScrollIt) {
    show(help);
    QTest::keyClick(&help, Qt::Key_Down);
    EXPECT_GT(scrollBar().value(), 0);
    const int line = scrollBar().value();
    QTest::keyClick(&help, Qt::Key_PageDown);
    EXPECT_GT(scrollBar().value(), line + 100);
    QTest::keyClick(&help, Qt::Key_End);
    EXPECT_EQ(scrollBar().value(), scrollBar().maximum());
    QTest::keyClick(&help, Qt::Key_Home);
    EXPECT_EQ(scrollBar().value(), 0);
}

TEST_F(HelpViewTest, FromRightToLeftItStandsMirrored) {
    help.setLayoutDirection(Qt::RightToLeft);
    show(help);
    const auto* const title = help.findChild<Heading*>();
    EXPECT_GT(title->mapTo(&help, title->rect().center()).x(), help.width() / 2);
    EXPECT_EQ(title->mapTo(&help, QPoint(title->width(), 0)).x(), help.width() - 28 - 36 - 12);
}

} // namespace
} // namespace blankwell
