#include "updates/UpdateView.h"

#include "widgets/PushButton.h"
#include "widgets/Switch.h"
#include "widgets/TextLabel.h"
#include "widgets/WidgetTest.h"

#include <QPointer>
#include <QProgressBar>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

struct UpdateViewTest : WidgetTest {
    UpdateViewTest() {
        QObject::connect(&view, &UpdateView::answered,
                         [this](UpdateAnswer answer) { answers.push_back(answer); });
    }

    void render(const UpdateState& state, bool checks = false) {
        view.show(pageFor(state, "1.1"), checks);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const auto* label : view.findChildren<TextLabel*>()) {
            result.push_back(label->text().toStdString());
        }
        return result;
    }

    std::vector<std::string> shownTexts() const {
        std::vector<std::string> result;
        for (const auto* label : view.findChildren<TextLabel*>()) {
            if (label->isVisible()) {
                result.push_back(label->text().toStdString());
            }
        }
        return result;
    }

    PushButton* button(const char* title) const {
        for (auto* button : view.findChildren<PushButton*>()) {
            if (button->text() == title) {
                return button;
            }
        }
        return nullptr;
    }

    AppcastItem item{
        .version = "2", .shortVersion = "1.2", .description = "<p>Faster</p><p>Smaller</p>"};
    UpdateView view{theme};
    std::vector<UpdateAnswer> answers;
};

TEST_F(UpdateViewTest, ShowsTheTextsOfThePage) {
    render(UpdateFound{item});
    const auto page = pageFor(UpdateFound{item}, "1.1");
    EXPECT_THAT(texts(), testing::UnorderedElementsAre(page.title, page.text, "Faster", "Smaller",
                                                       automaticChecksTitle));
    EXPECT_THAT(view.findChildren<QProgressBar*>(), IsEmpty());
}

TEST_F(UpdateViewTest, EachButtonGivesItsAnswer) {
    render(UpdateFound{item});
    for (const auto* title : {"Install Update", "Later", "Skip This Version"}) {
        ASSERT_NE(button(title), nullptr) << title;
        button(title)->click();
    }
    EXPECT_THAT(answers,
                ElementsAre(UpdateAnswer::install, UpdateAnswer::close, UpdateAnswer::skipVersion));
}

TEST_F(UpdateViewTest, TheKeyboardStartsAtTheDefaultButton) {
    render(UpdateFound{item});
    show(view);
    ASSERT_TRUE(QTest::qWaitFor([&] { return button("Install Update")->hasFocus(); }));
    QTest::keyClick(button("Install Update"), Qt::Key_Return);
    EXPECT_THAT(answers, ElementsAre(UpdateAnswer::install));
}

TEST_F(UpdateViewTest, AutomaticChecksAreOffUntilTheUserTurnsThemOn) {
    std::vector<bool> wishes;
    QObject::connect(&view, &UpdateView::checksAutomaticallyChanged,
                     [&](bool checks) { wishes.push_back(checks); });
    render(NoUpdateFound{}, false);
    auto* const toggle = view.findChild<Switch*>();
    EXPECT_FALSE(toggle->isChecked());
    EXPECT_EQ(accessibleName(*toggle), automaticChecksTitle);
    toggle->click();
    EXPECT_THAT(wishes, ElementsAre(true));
    render(UpdateFailed{"No server."}, true);
    EXPECT_THAT(view.findChildren<Switch*>(), IsEmpty());
    render(NoUpdateFound{}, true);
    EXPECT_TRUE(view.findChild<Switch*>()->isChecked());
}

TEST_F(UpdateViewTest, ProgressMovesWithoutMakingThePageAnew) {
    render(DownloadingUpdate{item, {0, 1'000'000, 0}});
    const QPointer<PushButton> cancel = button("Cancel");
    render(DownloadingUpdate{item, {500'000, 1'000'000, 250'000}});
    const auto* const bar = view.findChild<QProgressBar*>();
    EXPECT_EQ(bar->value() * 2, bar->maximum());
    EXPECT_THAT(texts(), Contains("0.5 MB of 1.0 MB (0.2 MB per second)"));
    EXPECT_EQ(button("Cancel"), cancel.data());
    render(InstallingUpdate{item});
    EXPECT_EQ(cancel, nullptr);
    EXPECT_EQ(view.findChild<QProgressBar*>()->maximum(), 0);
}

TEST_F(UpdateViewTest, NotesOnTheWebAreReachedByKeyboard) {
    std::vector<std::string> pressed;
    QObject::connect(&view, &UpdateView::linkPressed,
                     [&](const std::string& url) { pressed.push_back(url); });
    item.description = "";
    item.releaseNotesLink = "https://example.org/notes";
    render(UpdateFound{item});
    show(view);
    auto* const link = button("Read the Release Notes");
    ASSERT_NE(link, nullptr);
    EXPECT_EQ(accessible(*link).text(QAccessible::Description), "https://example.org/notes");
    link->setFocus();
    QTest::keyClick(link, Qt::Key_Return);
    EXPECT_THAT(pressed, ElementsAre("https://example.org/notes"));
    EXPECT_THAT(answers, IsEmpty());
    EXPECT_THAT(shownTexts(), Not(Contains(unopenedLinkText(item.releaseNotesLink))));
    view.tellOfUnopenedLink();
    EXPECT_THAT(shownTexts(), Contains(unopenedLinkText(item.releaseNotesLink)));
    render(NoUpdateFound{});
    view.tellOfUnopenedLink();
    EXPECT_THAT(shownTexts(), Not(Contains(unopenedLinkText(item.releaseNotesLink))));
}

TEST_F(UpdateViewTest, NotesTakeTheRoomThatTheyNeedAndLeaveTheButtonsInSight) {
    const auto heightWith = [this](int lines) {
        item.description.clear();
        for (int i = 0; i < lines; ++i) {
            item.description += "<p>And more.</p>";
        }
        render(UpdateFound{item});
        return view.sizeHint().height();
    };
    const auto most = heightWith(50);
    EXPECT_EQ(heightWith(500), most);
    EXPECT_LT(heightWith(5), most);
    EXPECT_LT(heightWith(1), heightWith(5));
}

} // namespace
} // namespace blankwell
