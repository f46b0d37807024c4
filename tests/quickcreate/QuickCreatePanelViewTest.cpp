#include "quickcreate/QuickCreatePanelView.h"

#include "quickcreate/FileTypeTileButton.h"
#include "quickcreate/QuickCreateFooterView.h"
#include "support/FakeCreationController.h"
#include "widgets/Heading.h"
#include "widgets/IconButton.h"
#include "widgets/Metrics.h"
#include "widgets/ReadTexts.h"
#include "widgets/Segment.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"
#include "widgets/WidgetTest.h"

#include <QLineEdit>

#include <algorithm>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::UnorderedElementsAre;

struct QuickCreatePanelViewTest : WidgetTest, FakeCreationController {
    QuickCreatePanelViewTest() {
        view.resize(560, 600);
        show(view);
        controller.showQuickCreatePanel();
        events.clear();
    }

    QLineEdit& search() { return *view.findChild<QLineEdit*>(); }

    /// The tiles that are shown, in reading order.
    std::vector<FileTypeTileButton*> tiles() {
        auto all = view.findChildren<FileTypeTileButton*>();
        all.removeIf([](const auto* tile) { return !tile->isVisible(); });
        std::vector<FileTypeTileButton*> sorted(all.begin(), all.end());
        std::ranges::sort(sorted, {},
                          [](const auto* tile) { return std::pair(tile->y(), tile->x()); });
        return sorted;
    }

    FileTypeTileButton& tile(const std::string& id) {
        const auto all = tiles();
        return **std::ranges::find_if(all, [&](const auto* tile) { return tile->type().id == id; });
    }

    std::vector<std::string> shownTypes() {
        std::vector<std::string> ids;
        for (const auto* const tile : tiles()) {
            ids.push_back(tile->type().id);
        }
        return ids;
    }

    std::vector<std::string> shownTexts() {
        std::vector<std::string> texts;
        for (const auto* const label : view.findChildren<TextLabel*>()) {
            if (label->isVisible() && !label->visibleRegion().isEmpty()) {
                texts.push_back(label->text().toStdString());
            }
        }
        return texts;
    }

    void typeText(const QString& text) {
        QTest::keyClicks(QApplication::focusWidget(), text);
        mainQueue.run();
    }

    void press(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        mainQueue.run();
    }

    std::string focusedType() {
        const auto* const tile = qobject_cast<FileTypeTileButton*>(QApplication::focusWidget());
        return tile == nullptr ? "" : tile->type().id;
    }

    QuickCreatePanelView view{
        {.controller = controller, .settings = settings, .mainQueue = mainQueue, .theme = theme}};
};

TEST_F(QuickCreatePanelViewTest, ShowsTheSectionsWithTheirTitles) {
    EXPECT_EQ(tiles().size(), 16U);
    for (const auto* title : {"Create File", "Plain Text", "Code", "Office"}) {
        EXPECT_THAT(shownTexts(), Contains(title));
    }
    EXPECT_THAT(shownTexts(), Not(Contains("No file types found")));
}

TEST_F(QuickCreatePanelViewTest, TypingFiltersAtOnce) {
    typeText(" json ");
    EXPECT_EQ(controller.searchText.get(), " json ");
    EXPECT_THAT(shownTypes(), ElementsAre("json"));
    EXPECT_THAT(shownTexts(), Not(Contains("Plain Text")));
    search().clear();
    typeText("TEXT");
    EXPECT_THAT(shownTypes(), ElementsAre("txt", "rtf"));
}

TEST_F(QuickCreatePanelViewTest, ASearchWithoutMatchShowsOnlyThatNothingWasFound) {
    typeText("zzz");
    QCoreApplication::processEvents(); // the layout follows
    EXPECT_THAT(shownTypes(), IsEmpty());
    EXPECT_THAT(shownTexts(), UnorderedElementsAre("No file types found", "Desktop",
                                                   "/Users/u/Desktop", "Create File"));
}

TEST_F(QuickCreatePanelViewTest, ATextThatIsNotTypedFiltersToo) {
    search().setText("json"); // as screen readers and input aids do
    mainQueue.run();
    EXPECT_EQ(controller.searchText.get(), "json");
    EXPECT_THAT(shownTypes(), ElementsAre("json"));
}

TEST_F(QuickCreatePanelViewTest, AClickCreatesAndThePanelStaysOpen) {
    QTest::mouseClick(&tile("md"), Qt::LeftButton);
    mainQueue.run();
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.md"));
    EXPECT_THAT(events, Not(Contains("hide panel")));
    EXPECT_THAT(shownTexts(), Contains("Created Untitled.md in Desktop"));
}

TEST_F(QuickCreatePanelViewTest, ReturnInTheSearchFieldCreatesTheFirstTypeShown) {
    typeText("script");
    press(Qt::Key_Return);
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.js"));
    EXPECT_THAT(events, Not(Contains("hide panel")));
}

TEST_F(QuickCreatePanelViewTest, ReturnCreatesNothingWhereNothingIsFound) {
    typeText("zzz");
    press(Qt::Key_Return);
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(QuickCreatePanelViewTest, ReturnBeforeTheListFollowsCreatesWhatTheTextFinds) {
    QTest::keyClicks(&search(), "csv");
    QTest::keyClick(&search(), Qt::Key_Return); // the list still shows all types
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.csv"));
}

TEST_F(QuickCreatePanelViewTest, SpaceAndReturnCreateTheTileThatHasTheKeyboard) {
    tile("md").setFocus();
    press(Qt::Key_Space);
    tile("csv").setFocus();
    press(Qt::Key_Return);
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.md"));
    EXPECT_THAT(events, Contains("reveal /Users/u/Desktop/Untitled.csv"));
}

TEST_F(QuickCreatePanelViewTest, ArrowsMoveThroughTheTilesAndBackToTheSearchField) {
    press(Qt::Key_Down);
    EXPECT_EQ(focusedType(), "txt");
    press(Qt::Key_Right);
    EXPECT_EQ(focusedType(), "md");
    press(Qt::Key_Down);
    EXPECT_EQ(focusedType(), "csv");
    press(Qt::Key_Down);
    EXPECT_EQ(focusedType(), "json");
    press(Qt::Key_Left);
    EXPECT_EQ(focusedType(), "csv");
    press(Qt::Key_Up);
    EXPECT_EQ(focusedType(), "txt");
    press(Qt::Key_Up);
    EXPECT_TRUE(search().hasFocus());
}

TEST_F(QuickCreatePanelViewTest, FromRightToLeftLeftIsTheNextTile) {
    view.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(tile("txt").x(), tile("md").x());
    press(Qt::Key_Down);
    press(Qt::Key_Left);
    EXPECT_EQ(focusedType(), "md");
}

TEST_F(QuickCreatePanelViewTest, TabGoesThroughTheTilesInReadingOrderAlsoWhenThatChanges) {
    auto reversed = settings.fileTypeOrder.get();
    std::ranges::reverse(reversed);
    settings.fileTypeOrder.set(reversed);
    mainQueue.run();
    const auto types = shownTypes();
    EXPECT_EQ(types.front(), "csv");
    for (const auto& type : types) {
        press(Qt::Key_Tab);
        EXPECT_EQ(focusedType(), type);
    }
}

TEST_F(QuickCreatePanelViewTest, TabLeadsFromTheLastTileToTheTop) {
    tile("pptx").setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), view.findChild<Segment*>());
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), view.findChild<IconButton*>());
    press(Qt::Key_Tab);
    EXPECT_TRUE(search().hasFocus());
}

TEST_F(QuickCreatePanelViewTest, WhoGivesThePanelTheKeyboardGivesItToTheSearchField) {
    tile("pptx").setFocus();
    view.setFocus(Qt::ActiveWindowFocusReason);
    EXPECT_TRUE(search().hasFocus());
}

TEST_F(QuickCreatePanelViewTest, LettersTypedOnATileGoOnWithTheSearch) {
    typeText("sc");
    press(Qt::Key_Down);
    ASSERT_FALSE(search().hasFocus());
    typeText("r");
    EXPECT_TRUE(search().hasFocus());
    EXPECT_EQ(controller.searchText.get(), "scr");
}

TEST_F(QuickCreatePanelViewTest, EscapeClosesThePanelFromEverywhere) {
    press(Qt::Key_Escape);
    EXPECT_THAT(events, ElementsAre("hide panel"));
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    EXPECT_THAT(events, ElementsAre("hide panel", "hide panel"));
}

TEST_F(QuickCreatePanelViewTest, TheCloseButtonClosesThePanel) {
    auto& close = *view.findChild<IconButton*>();
    EXPECT_EQ(accessibleName(close), "Close");
    QTest::mouseClick(&close, Qt::LeftButton);
    EXPECT_THAT(events, ElementsAre("hide panel"));
}

TEST_F(QuickCreatePanelViewTest, ThePickerSetsTheDestinationAndFollowsIt) {
    const auto segments = view.findChildren<Segment*>();
    QTest::mouseClick(segments[1], Qt::LeftButton);
    mainQueue.run();
    EXPECT_EQ(controller.destinationMode.get(), CreationDestinationMode::frontFinderFolder);
    EXPECT_THAT(shownTexts(), Contains("Finder Folder"));
    EXPECT_THAT(shownTexts(), Contains("Front Finder folder"));
    auto& footer = *view.findChild<QuickCreateFooterView*>();
    EXPECT_EQ(footer.findChild<SymbolLabel*>()->symbol(), "folder");
    controller.destinationMode.set(CreationDestinationMode::desktop);
    mainQueue.run();
    EXPECT_TRUE(segments[0]->isChecked());
    EXPECT_THAT(shownTexts(), Contains("/Users/u/Desktop"));
}

TEST_F(QuickCreatePanelViewTest, EachShowingGivesTheSearchFieldTheKeyboardAndKeepsTheRest) {
    typeText("py");
    press(Qt::Key_Down);
    view.hide();
    show(view);
    EXPECT_EQ(view.focusWidget(), &search());
    EXPECT_EQ(search().text(), "py");
    EXPECT_THAT(shownTypes(), ElementsAre("py"));
    QTest::keyClicks(&search(), "css"); // replaces the old search
    mainQueue.run();
    EXPECT_THAT(shownTypes(), ElementsAre("css"));
}

TEST_F(QuickCreatePanelViewTest, EachShowingTellsWhereTheDesktopIsNow) {
    view.hide();
    folders.desktopName = "Schreibtisch";
    show(view);
    EXPECT_THAT(shownTexts(), Contains("/Users/u/Schreibtisch"));
    EXPECT_THAT(shownTexts(), Not(Contains("/Users/u/Desktop")));
}

TEST_F(QuickCreatePanelViewTest, ATypeThatIsSwitchedOffGoesAtOnce) {
    settings.setEnabled(false, "md");
    mainQueue.run();
    EXPECT_THAT(shownTypes(), Not(Contains("md")));
    settings.setEnabled(true, "md");
    mainQueue.run();
    EXPECT_EQ(shownTypes()[1], "md");
}

TEST_F(QuickCreatePanelViewTest, TilesAreKeptFromSearchToSearch) {
    const auto before = tiles();
    typeText("zzz");
    search().clear();
    controller.searchText.set("");
    mainQueue.run();
    EXPECT_EQ(tiles(), before);
}

TEST_F(QuickCreatePanelViewTest, TheTilesStandInThreeEqualColumns) {
    const auto& first = tile("txt");
    const auto& second = tile("md");
    const auto& third = tile("rtf");
    EXPECT_EQ(second.x() - first.geometry().right() - 1, 12);
    EXPECT_EQ(third.x() - second.geometry().right() - 1, 12);
    EXPECT_NEAR(first.width(), third.width(), 1);
    EXPECT_EQ(tile("csv").y() - first.geometry().bottom() - 1, 10);
}

TEST_F(QuickCreatePanelViewTest, SectionsAreSixteenPointsApart) {
    const auto titles = view.findChildren<Heading*>();
    const auto code = std::ranges::find(titles, QString("Code"), &Heading::text);
    EXPECT_EQ((*code)->y() - tile("csv").geometry().bottom() - 1, 16);
}

TEST_F(QuickCreatePanelViewTest, TheTileThatHasTheKeyboardIsScrolledIntoView) {
    enlargeFont(1.5);
    QTest::qWait(20);
    for (std::size_t i = 0; i < tiles().size(); ++i) {
        press(i == 0 ? Qt::Key_Down : Qt::Key_Right);
        EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty()) << i;
    }
    EXPECT_EQ(focusedType(), "pptx");
}

TEST_F(QuickCreatePanelViewTest, ScreenReadersSeeEachTileAsAButtonWithNameAndExtension) {
    EXPECT_EQ(accessible(tile("md")).role(), QAccessible::PushButton);
    EXPECT_EQ(accessibleName(tile("md")), "Markdown, .md");
}

TEST_F(QuickCreatePanelViewTest, NothingCoversTheLineAroundIt) {
    const auto image = imageOf(view);
    for (int y = metrics::panelRadius; y < view.height() - metrics::panelRadius; ++y) {
        ASSERT_EQ(image.pixelColor(0, y), theme.color(ColorRole::separator)) << y;
        ASSERT_EQ(image.pixelColor(view.width() - 1, y), theme.color(ColorRole::separator)) << y;
    }
}

TEST_F(QuickCreatePanelViewTest, ScreenReadersComeToEverythingInReadingOrder) {
    using Role = QAccessible::Role;
    const auto read = [&] {
        auto texts = readTexts(view);
        std::erase_if(texts, [](const auto& text) {
            return text.first != Role::Heading && text.first != Role::PushButton;
        });
        return texts;
    };
    typeText("te");
    EXPECT_THAT(read(),
                ElementsAre(Pair(Role::Heading, "Create File"), Pair(Role::PushButton, "Close"),
                            Pair(Role::Heading, "Plain Text"), Pair(Role::PushButton, "Text, .txt"),
                            Pair(Role::PushButton, "Rich Text, .rtf")));
    settings.fileTypeOrder.set({"rtf", "txt", "json"});
    search().setText("t");
    mainQueue.run();
    EXPECT_THAT(read(),
                ElementsAre(Pair(Role::Heading, "Create File"), Pair(Role::PushButton, "Close"),
                            Pair(Role::Heading, "Plain Text"),
                            Pair(Role::PushButton, "Rich Text, .rtf"),
                            Pair(Role::PushButton, "Text, .txt")));
}

TEST_F(QuickCreatePanelViewTest, AHoveredTileIsTintedWithTheAccent) {
    auto& markdown = tile("md");
    markdown.setAttribute(Qt::WA_UnderMouse, false);
    const auto ground = [&] { return imageOf(markdown).pixelColor(5, markdown.height() / 2); };
    const auto calm = ground();
    markdown.setAttribute(Qt::WA_UnderMouse);
    EXPECT_NE(ground(), calm);
}

} // namespace
} // namespace blankwell
