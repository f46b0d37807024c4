#include "app/application/UpdateWindow.h"

#include "platform/qt/QtApplication.h"
#include "support/FakeApplication.h"
#include "updates/UpdatePage.h"
#include "widgets/PushButton.h"
#include "widgets/QtStrings.h"
#include "widgets/TextLabel.h"
#include "widgets/WidgetTest.h"

#include <algorithm>

namespace blankwell {
namespace {

using testing::ElementsAre;

struct UpdateWindowTest : WidgetTest {
    UpdateWindowTest() {
        updates.setListener({
            .answered = [this](UpdateAnswer answer) { answers.push_back(answer); },
            .setChecksAutomatically = [](bool) {},
        });
    }

    /// The window that is shown; nullptr where none is.
    static QWidget* shown() {
        for (auto* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->windowTitle() == qString(updateWindowTitle)) {
                return widget;
            }
        }
        return nullptr;
    }

    QtApplication application;
    EventLog events;
    FakeWorkspace workspace{events};
    UpdateWindow updates{theme, application, workspace, "1.1"};
    std::vector<UpdateAnswer> answers;
};

TEST_F(UpdateWindowTest, IsOpenFromTheFirstStateToTheEnd) {
    EXPECT_EQ(shown(), nullptr);
    updates.show(CheckingForUpdate{}, false);
    auto* const window = shown();
    ASSERT_NE(window, nullptr);
    updates.show(NoUpdateFound{}, false);
    EXPECT_EQ(shown(), window);
    updates.close();
    EXPECT_EQ(shown(), nullptr);
    EXPECT_THAT(answers, ElementsAre());
    updates.show(CheckingForUpdate{}, false);
    EXPECT_EQ(shown(), window);
}

TEST_F(UpdateWindowTest, AButtonsAnswerIsPassedOn) {
    updates.show(NoUpdateFound{}, false);
    shown()->findChild<PushButton*>()->click();
    EXPECT_THAT(answers, ElementsAre(UpdateAnswer::close));
}

TEST_F(UpdateWindowTest, EscapeClosesIt) {
    updates.show(CheckingForUpdate{}, false);
    ASSERT_TRUE(QTest::qWaitForWindowActive(shown()));
    QTest::keyClick(shown(), Qt::Key_Escape);
    EXPECT_THAT(answers, ElementsAre(UpdateAnswer::close));
}

TEST_F(UpdateWindowTest, TheReleaseNotesOpenInTheBrowserOrItSaysThatTheyDoNot) {
    constexpr auto address = "https://example.org/notes";
    updates.show(UpdateFound{{.version = "2", .releaseNotesLink = address}}, false);
    const auto saysSo = [] {
        const auto labels = shown()->findChildren<TextLabel*>();
        return std::ranges::any_of(labels, [](const TextLabel* label) {
            return label->isVisible() && label->text() == qString(unopenedLinkText(address));
        });
    };
    auto* const link = shown()->findChild<PushButton*>();
    workspace.handledSchemes = {"https"};
    link->click();
    EXPECT_THAT(events, ElementsAre("open https://example.org/notes"));
    EXPECT_FALSE(saysSo());
    workspace.handledSchemes.clear();
    link->click();
    EXPECT_TRUE(saysSo());
    EXPECT_THAT(answers, ElementsAre());
}

TEST_F(UpdateWindowTest, NobodyHearsOfItAfterTheUpdaterIsGone) {
    updates.show(NoUpdateFound{}, false);
    updates.setListener({});
    shown()->findChild<PushButton*>()->click();
    EXPECT_THAT(answers, ElementsAre());
}

} // namespace
} // namespace blankwell
