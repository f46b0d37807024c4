#include "views/OnboardingView.h"

#include "settings/AppSettings.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"
#include "widgets/PageTurn.h"
#include "widgets/PushButton.h"
#include "widgets/ReadTexts.h"
#include "widgets/WidgetTest.h"

#include <QTest>

namespace blankwell {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

struct OnboardingViewTest : WidgetTest {
    OnboardingViewTest() { desktop.set({.reducesMotion = true}); }

    void open() {
        window.resize(770, 600);
        show(window);
        sheet.open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet));
    }

    [[nodiscard]] std::vector<std::string> shownButtons() const {
        std::vector<std::string> titles;
        for (const auto* const button : sheet.findChildren<PushButton*>()) {
            if (button->isVisible()) {
                titles.push_back(button->text().toStdString());
            }
        }
        return titles;
    }

    [[nodiscard]] PushButton& button(const QString& title) const {
        for (auto* const button : sheet.findChildren<PushButton*>()) {
            if (button->text() == title) {
                return *button;
            }
        }
        ADD_FAILURE() << "no button " << title.toStdString();
        return *sheet.findChild<PushButton*>();
    }

    void click(const QString& title) const { QTest::mouseClick(&button(title), Qt::LeftButton); }

    void press(Qt::Key key) { QTest::keyClick(sheet.focusWidget(), key); }

    [[nodiscard]] std::string title() { return readTexts(sheet, QAccessible::Heading).front(); }

    [[nodiscard]] bool isCompleted() const { return settings.hasCompletedOnboarding.get(); }

    [[nodiscard]] PageTurn& turn() const { return *sheet.findChild<PageTurn*>(); }

    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
    QWidget window;
    OnboardingView sheet{theme, settings, &window};
};

TEST_F(OnboardingViewTest, ItIsASheetOverItsWindow) {
    open();
    EXPECT_EQ(sheet.windowModality(), Qt::WindowModal);
    EXPECT_TRUE(sheet.isWindow());
    EXPECT_EQ(sheet.parentWidget(), &window);
    EXPECT_EQ(sheet.size(), QSize(560, 520));
    EXPECT_EQ(sheet.windowTitle(), "Welcome to Blankwell+");
}

TEST_F(OnboardingViewTest, TheFirstPageWelcomes) {
    using enum QAccessible::Role;
    open();
    EXPECT_THAT(readTexts(sheet),
                ElementsAre(Pair(Heading, "Welcome to Blankwell+"),
                            Pair(StaticText,
                                 "Create new blank files anywhere on your Mac — from Finder, the "
                                 "menu bar, or a keyboard shortcut. Here are the three ways to use "
                                 "it."),
                            Pair(StaticText, "Page 1 of 4"), Pair(Button, "Skip"),
                            Pair(Button, "Next")));
}

TEST_F(OnboardingViewTest, TheSecondPageTellsOfTheFileManagersMenu) {
    using enum QAccessible::Role;
    open();
    click("Next");
    EXPECT_THAT(
        readTexts(sheet),
        ElementsAre(Pair(Heading, "Right-click in Finder"),
                    Pair(StaticText, "The fastest way — in the folders macOS allows."),
                    Pair(Graphic, "Documents, New Folder, Get Info, Create File"),
                    Pair(StaticText, "Works in Dropbox, Downloads, and your own folders."),
                    Pair(StaticText,
                         "Right-click an empty spot in a folder → Create File → choose a type. "
                         "The new file appears right there."),
                    Pair(Button, "Back"), Pair(StaticText, "Page 2 of 4"), Pair(Button, "Skip"),
                    Pair(Button, "Next")));
}

TEST_F(OnboardingViewTest, TheThirdPageTellsOfFoldersWithoutTheMenu) {
    using enum QAccessible::Role;
    open();
    click("Next");
    click("Next");
    EXPECT_THAT(
        readTexts(sheet),
        ElementsAre(
            Pair(Heading, "OneDrive, iCloud, Desktop & Documents"),
            Pair(StaticText, "macOS blocks the right-click menu here — but two easy ways still "
                             "work everywhere."),
            Pair(StaticText, "1. Add the Finder toolbar button"),
            Pair(StaticText,
                 "In Finder, choose View ▸ Customize Toolbar…, then drag the Create File button "
                 "into the toolbar. It then works in every folder, including cloud and system "
                 "folders."),
            Pair(StaticText, "Or press the Quick Create shortcut"),
            Pair(StaticText,
                 "Press ⌃ + ⌥ + N anytime to open Quick Create — it works in every folder too."),
            Pair(Button, "Back"), Pair(StaticText, "Page 3 of 4"), Pair(Button, "Skip"),
            Pair(Button, "Next")));
}

TEST_F(OnboardingViewTest, TheLastPageTellsOfTheShortcut) {
    using enum QAccessible::Role;
    open();
    for (int i = 0; i < 3; ++i) {
        click("Next");
    }
    EXPECT_THAT(
        readTexts(sheet),
        ElementsAre(
            Pair(Heading, "Quick Create shortcut"),
            Pair(StaticText, "Create a file from anywhere — no Finder window needed."),
            Pair(StaticText, "Press"), Pair(StaticText, "⌃ + ⌥ + N"),
            Pair(StaticText, "anytime to open Quick Create:"),
            Pair(Graphic, "Desktop, Finder Folder, Search file types, Markdown .md, JSON .json, "
                          "Word .docx"),
            Pair(StaticText,
                 "Choose a destination: Desktop, or the front Finder folder you're viewing."),
            Pair(StaticText, "Type to filter, then click a file type — it's created instantly and "
                             "revealed in Finder."),
            Pair(Button, "Back"), Pair(StaticText, "Page 4 of 4"), Pair(Button, "Get Started")));
}

TEST_F(OnboardingViewTest, TheShortcutIsThatOfTheMoment) {
    open();
    for (int i = 0; i < 3; ++i) {
        click("Next");
    }
    settings.quickCreateShortcut.set({.keyCode = 46, .carbonModifiers = 0x100});
    QCoreApplication::processEvents();
    EXPECT_EQ(title(), "Quick Create shortcut");
    EXPECT_THAT(readTexts(sheet, QAccessible::StaticText), Contains("⌘ + M"));
    click("Back");
    EXPECT_THAT(
        readTexts(sheet, QAccessible::StaticText),
        Contains("Press ⌘ + M anytime to open Quick Create — it works in every folder too."));
}

TEST_F(OnboardingViewTest, TheButtonsTurnThePages) {
    open();
    EXPECT_THAT(shownButtons(), ElementsAre("Skip", "Next"));
    click("Next");
    EXPECT_THAT(shownButtons(), ElementsAre("Back", "Skip", "Next"));
    click("Next");
    click("Next");
    EXPECT_THAT(shownButtons(), ElementsAre("Back", "Get Started"));
    click("Back");
    EXPECT_EQ(title(), "OneDrive, iCloud, Desktop & Documents");
    EXPECT_FALSE(isCompleted());
}

TEST_F(OnboardingViewTest, SkippingCompletesItAndClosesTheSheet) {
    open();
    click("Skip");
    EXPECT_TRUE(isCompleted());
    EXPECT_EQ(defaults.values.at("hasCompletedOnboarding"), PropertyValue(true));
    EXPECT_FALSE(sheet.isVisible());
}

TEST_F(OnboardingViewTest, ReturnGoesThroughAllPagesAndCompletesIt) {
    open();
    for (int i = 0; i < 3; ++i) {
        press(Qt::Key_Return);
        EXPECT_FALSE(isCompleted());
    }
    EXPECT_EQ(title(), "Quick Create shortcut");
    press(Qt::Key_Enter);
    EXPECT_TRUE(isCompleted());
    EXPECT_FALSE(sheet.isVisible());
}

TEST_F(OnboardingViewTest, TheArrowKeysTurnThePagesAndCompleteNothing) {
    open();
    press(Qt::Key_Left);
    EXPECT_EQ(title(), "Welcome to Blankwell+");
    press(Qt::Key_Right);
    EXPECT_EQ(title(), "Right-click in Finder");
    press(Qt::Key_Left);
    EXPECT_EQ(title(), "Welcome to Blankwell+");
    for (int i = 0; i < 5; ++i) {
        press(Qt::Key_Right);
    }
    EXPECT_EQ(title(), "Quick Create shortcut");
    EXPECT_TRUE(sheet.isVisible());
    EXPECT_FALSE(isCompleted());
}

TEST_F(OnboardingViewTest, FromRightToLeftTheArrowKeysAreExchanged) {
    sheet.setLayoutDirection(Qt::RightToLeft);
    open();
    press(Qt::Key_Left);
    EXPECT_EQ(title(), "Right-click in Finder");
    press(Qt::Key_Right);
    EXPECT_EQ(title(), "Welcome to Blankwell+");
}

TEST_F(OnboardingViewTest, EscapeAndTheCloseButtonPutItAwayUncompletedAndItGoesOnWhereItWas) {
    open();
    click("Next");
    press(Qt::Key_Escape);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_FALSE(isCompleted());
    sheet.open();
    EXPECT_EQ(title(), "Right-click in Finder");
    sheet.close();
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_FALSE(isCompleted());
}

TEST_F(OnboardingViewTest, ItClosesWhenItIsCompletedElsewhereAndBeginsAnewWhenItIsShownAgain) {
    open();
    click("Next");
    click("Skip");
    settings.hasCompletedOnboarding.set(false);
    sheet.open();
    EXPECT_EQ(title(), "Welcome to Blankwell+");
    EXPECT_THAT(shownButtons(), ElementsAre("Skip", "Next"));
    settings.hasCompletedOnboarding.set(true);
    EXPECT_FALSE(sheet.isVisible());
}

TEST_F(OnboardingViewTest, TheKeyboardIsOnTheButtonThatGoesOn) {
    open();
    EXPECT_EQ(sheet.focusWidget(), &button("Next"));
    for (int i = 0; i < 3; ++i) {
        press(Qt::Key_Space);
    }
    EXPECT_EQ(sheet.focusWidget(), &button("Get Started"));
    press(Qt::Key_Backtab);
    EXPECT_EQ(sheet.focusWidget(), &button("Back"));
    for (int i = 0; i < 3; ++i) {
        press(Qt::Key_Return);
    }
    EXPECT_EQ(title(), "Welcome to Blankwell+");
    EXPECT_EQ(sheet.focusWidget(), &button("Next"));
}

TEST_F(OnboardingViewTest, ScreenReadersHearOfThePageAtTheButtonWithTheKeyboard) {
    open();
    const auto description = [this] {
        return accessible(*sheet.focusWidget()).text(QAccessible::Description);
    };
    EXPECT_EQ(description(), "Page 1 of 4: Welcome to Blankwell+");
    press(Qt::Key_Return);
    EXPECT_EQ(description(), "Page 2 of 4: Right-click in Finder");
}

TEST_F(OnboardingViewTest, PagesMoveWhereThingsMayMove) {
    desktop.set({.reducesMotion = false});
    open();
    click("Next");
    EXPECT_TRUE(turn().isTurning());
    EXPECT_TRUE(turn().isVisible());
    EXPECT_EQ(title(), "Right-click in Finder");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !turn().isVisible(); }, 2000));
}

TEST_F(OnboardingViewTest, WithReducedMotionTheyDoNot) {
    open();
    click("Next");
    EXPECT_FALSE(turn().isTurning());
    EXPECT_FALSE(turn().isVisible());
}

TEST_F(OnboardingViewTest, AnImpatientUserSeesThePageThatWasAskedForLast) {
    desktop.set({.reducesMotion = false});
    open();
    for (int i = 0; i < 3; ++i) {
        press(Qt::Key_Right);
    }
    press(Qt::Key_Left);
    EXPECT_EQ(title(), "OneDrive, iCloud, Desktop & Documents");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !turn().isVisible(); }, 2000));
}

TEST_F(OnboardingViewTest, NoTextIsCutOffOnAnyPageAlsoWithLargerFonts) {
    for (const double factor : {1.0, 1.5}) {
        enlargeFont(factor);
        OnboardingView large(theme, settings, nullptr);
        show(large);
        for (int i = 0; i < 4; ++i) {
            EXPECT_THAT(badlyPlacedTexts(large), IsEmpty()) << factor << " page " << i + 1;
            QTest::keyClick(&large, Qt::Key_Right);
            QCoreApplication::processEvents();
        }
    }
}

TEST_F(OnboardingViewTest, BoldRunsAreBold) {
    open();
    click("Next");
    for (const auto* const label : sheet.findChildren<TextLabel*>()) {
        if (label->text() == "Works in Dropbox, Downloads, and your own folders.") {
            const TextLabel plain(theme, label->text().toStdString(), {});
            EXPECT_GT(label->sizeHint().width(), plain.sizeHint().width());
            return;
        }
    }
    ADD_FAILURE() << "the row is not there";
}

} // namespace
} // namespace blankwell
