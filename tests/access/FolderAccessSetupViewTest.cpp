#include "access/FolderAccessSetupView.h"

#include "access/FolderRootLabel.h"
#include "support/FakeFolderAccess.h"
#include "widgets/IconButton.h"
#include "widgets/PushButton.h"
#include "widgets/ReadTexts.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"
#include "widgets/WidgetTest.h"

#include <algorithm>

namespace blankwell {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

struct FolderAccessSetupViewTest : WidgetTest {
    void save(const std::string& path) {
        ASSERT_TRUE(platform.store.saveBookmark(FileUrl(path), FileUrl(path)));
    }

    void open(int width = 640) {
        view.resize(width, 300);
        show(view);
    }

    /// The texts outside of the roots, in the order in which they stand.
    std::vector<std::string> texts() {
        std::vector<std::string> result;
        for (const auto* const label : view.findChildren<TextLabel*>()) {
            const bool isOfRoot = qobject_cast<FolderRootLabel*>(label->parent()) != nullptr;
            if (!isOfRoot && label->isVisibleTo(&view)) {
                result.push_back(label->text().toStdString());
            }
        }
        return result;
    }

    std::vector<FolderRootLabel*> roots() {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const auto labels = view.findChildren<FolderRootLabel*>();
        return {labels.begin(), labels.end()};
    }

    std::vector<std::string> rootNames() {
        std::vector<std::string> result;
        for (const auto* const root : roots()) {
            result.push_back(root->findChild<TextLabel*>()->text().toStdString());
        }
        return result;
    }

    PushButton& button(const QString& title) {
        const auto buttons = view.findChildren<PushButton*>();
        return **std::ranges::find(buttons, title, &PushButton::text);
    }

    FakeFolderAccess platform;
    FolderAccessSetupView view{theme,
                               {.folderAccess = platform.access,
                                .store = platform.store,
                                .fileSystem = platform.files,
                                .account = platform.account,
                                .folders = platform.folders}};
};

TEST_F(FolderAccessSetupViewTest, WithoutRootsThereAreTheTitleTheSummaryAndTheButtons) {
    open();
    EXPECT_THAT(texts(), ElementsAre("Folder Access", "No saved folder roots."));
    EXPECT_THAT(readTexts(view, QAccessible::Heading), ElementsAre("Folder Access"));
    EXPECT_THAT(roots(), IsEmpty());
    std::vector<std::pair<int, std::string>> titles;
    for (auto* const grant : view.findChildren<PushButton*>()) {
        titles.emplace_back(grant->x(), grant->text().toStdString());
    }
    EXPECT_TRUE(std::ranges::is_sorted(titles));
    EXPECT_THAT(titles, ElementsAre(testing::Pair(0, "Grant Home Folder..."),
                                    testing::Pair(testing::_, "Add Other Folders..."),
                                    testing::Pair(testing::_, "Add Cloud Folders..."),
                                    testing::Pair(testing::_, "Add External Volumes...")));
}

TEST_F(FolderAccessSetupViewTest, TheRootsAreReadWheneverTheSectionAppears) {
    save("/Users/u/a");
    open();
    EXPECT_THAT(rootNames(), ElementsAre("a"));
    view.hide();
    save("/Users/u/b");
    open();
    EXPECT_THAT(rootNames(), ElementsAre("a", "b"));
    EXPECT_THAT(texts(), ElementsAre("Folder Access", "2 saved folder roots."));
}

TEST_F(FolderAccessSetupViewTest, ARootHasItsSymbolAndItsPathAsToolTip) {
    save("/Volumes/Backup");
    open();
    auto& root = *roots().at(0);
    EXPECT_EQ(root.findChild<SymbolLabel*>()->symbol(), "externaldrive");
    EXPECT_EQ(root.findChild<TextLabel*>()->toolTip(), "/Volumes/Backup");
    EXPECT_EQ(root.forgetButton().toolTip(), "Forget Access");
    EXPECT_EQ(accessibleName(root.forgetButton()), "Forget Access");
    EXPECT_EQ(accessible(root.forgetButton()).text(QAccessible::Description), "Backup");
}

TEST_F(FolderAccessSetupViewTest, GrantingAndForgettingTellWhatBecameOfThem) {
    open();
    platform.openPanel.willChoose({FileUrl("/Users/u")});
    QTest::mouseClick(&button("Grant Home Folder..."), Qt::LeftButton);
    EXPECT_THAT(texts(),
                ElementsAre("Folder Access", "1 saved folder root.", "Saved access to u."));
    EXPECT_THAT(rootNames(), ElementsAre("u"));

    QTest::mouseClick(&roots().at(0)->forgetButton(), Qt::LeftButton);
    EXPECT_THAT(texts(),
                ElementsAre("Folder Access", "No saved folder roots.", "Removed access to u."));
    EXPECT_THAT(roots(), IsEmpty());
}

TEST_F(FolderAccessSetupViewTest, ACancelledGrantIsTold) {
    open();
    QTest::mouseClick(&button("Grant Home Folder..."), Qt::LeftButton);
    EXPECT_EQ(texts().back(), "Blankwell+ needs access to u before it can create files there.");
}

TEST_F(FolderAccessSetupViewTest, EachButtonOpensItsOwnPanel) {
    platform.files.addFolder("/Users/u/Library/CloudStorage");
    open();
    for (auto* const grant : view.findChildren<PushButton*>()) {
        grant->click();
    }
    EXPECT_THAT(
        platform.openPanel.shown,
        ElementsAre(testing::Field(&OpenPanelConfiguration::title, "Allow Home Folder Access"),
                    testing::Field(&OpenPanelConfiguration::title, "Add Other Folders"),
                    testing::Field(&OpenPanelConfiguration::title, "Add Cloud Folder Access"),
                    testing::Field(&OpenPanelConfiguration::title, "Add External Volume Access")));
}

TEST_F(FolderAccessSetupViewTest, TheKeyboardStaysNearAForgottenRoot) {
    save("/Users/u/a");
    save("/Users/u/b");
    open();
    roots().at(1)->forgetButton().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&roots().at(1)->forgetButton(), Qt::Key_Space);
    EXPECT_TRUE(roots().at(0)->forgetButton().hasFocus());
    QTest::keyClick(&roots().at(0)->forgetButton(), Qt::Key_Space);
    EXPECT_TRUE(button("Add External Volumes...").hasFocus());
}

TEST_F(FolderAccessSetupViewTest, ALongNameStaysWithinTheSection) {
    save("/Users/u/" + std::string(200, 'x'));
    open(400);
    auto& root = *roots().at(0);
    EXPECT_LE(root.width(), 400);
    EXPECT_LE(root.forgetButton().geometry().right(), root.width());
    EXPECT_EQ(root.findChild<TextLabel*>()->text().size(), 200);
}

TEST_F(FolderAccessSetupViewTest, ButtonsThatDoNotFitGoToTheNextLine) {
    open(300);
    EXPECT_GT(button("Add External Volumes...").y(), button("Grant Home Folder...").y());
    EXPECT_LE(button("Add External Volumes...").geometry().right(), 300);
}

} // namespace
} // namespace blankwell
