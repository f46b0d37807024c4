#include "platform/qt/QtOpenPanel.h"

#include "contract/OpenPanelContract.h"
#include "platform/qt/Dialogs.h"
#include "platform/qt/FolderDialog.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QTest>
#include <QToolButton>

namespace blankwell {
namespace {

using Response = OpenPanelResult::Response;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

QPushButton* acceptButton(const FolderDialog& dialog) {
    for (auto* const button : dialog.findChild<QDialogButtonBox*>()->buttons()) {
        if (button->text() == "Allow") {
            return qobject_cast<QPushButton*>(button);
        }
    }
    return nullptr;
}

QAbstractItemView& view(const FolderDialog& dialog) {
    return *dialog.findChild<QAbstractItemView*>("listView");
}

/// Waits until the folder's three folders are read, and gives the names shown. They come one after
/// the other and are sorted later, so their order is not yet the one that a user sees.
QStringList names(const FolderDialog& dialog) {
    const auto& items = view(dialog);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return items.model()->rowCount(items.rootIndex()) >= 3; }, 5000));
    QStringList names;
    for (int row = 0; row < items.model()->rowCount(items.rootIndex()); ++row) {
        names << items.model()->index(row, 0, items.rootIndex()).data().toString();
    }
    return names;
}

void select(const FolderDialog& dialog, const QStringList& wanted) {
    const auto shown = names(dialog);
    for (const auto& name : wanted) {
        view(dialog).selectionModel()->select(
            view(dialog).model()->index(static_cast<int>(shown.indexOf(name)), 0,
                                        view(dialog).rootIndex()),
            QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
}

/// A user of the panel, who works in its list of folders and presses its buttons.
class QtOpenPanelWorld {
public:
    QtOpenPanelWorld() {
        for (const auto& url : folders()) {
            folder_.addFolder(url.lastPathComponent());
        }
    }

    OpenPanel& panel() { return panel_; }

    std::vector<FileUrl> folders() const {
        return {folder_.at("apples"), folder_.at("pears"), folder_.at("plums")};
    }

    static void willChoose(const std::vector<FileUrl>& folders) {
        whenShown<QDialog>([folders](QDialog& shown) {
            const auto& dialog = static_cast<FolderDialog&>(shown);
            QStringList wanted;
            for (const auto& url : folders) {
                wanted << QString::fromStdString(std::string(url.lastPathComponent()));
            }
            select(dialog, wanted);
            acceptButton(dialog)->click();
        });
    }

    static void willCancel() {
        whenShown<QDialog>([](QDialog& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
    }

private:
    TemporaryFolder folder_;
    QtOpenPanel panel_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, OpenPanelContract, QtOpenPanelWorld);

struct QtOpenPanelTest : testing::Test {
    QtOpenPanelTest() {
        for (const auto* const name : {"apples", "pears", "plums"}) {
            folder.addFolder(name);
        }
        folder.addFile("notes.txt");
    }

    OpenPanelConfiguration configuration() const {
        return {.title = "Allow Folder",
                .message = "Choose a <folder>.",
                .prompt = "Allow",
                .allowsMultipleSelection = true,
                .directory = folder.url()};
    }

    TemporaryFolder folder;
};

TEST_F(QtOpenPanelTest, ShowsTitleMessageAndPromptInTheGivenFolderAndNoFiles) {
    QString title;
    QString message;
    QStringList shown;
    bool hasPrompt = false;
    whenShown<QDialog>([&](QDialog& shownDialog) {
        auto& dialog = static_cast<FolderDialog&>(shownDialog);
        title = dialog.windowTitle();
        message = dialog.findChild<QLabel*>("message")->text();
        shown = names(dialog);
        hasPrompt = acceptButton(dialog) != nullptr;
        dialog.reject();
    });
    EXPECT_EQ(QtOpenPanel().runModal(configuration()).response, Response::cancelled);
    EXPECT_EQ(title, "Allow Folder");
    EXPECT_EQ(message, "Choose a <folder>.");
    EXPECT_THAT(shown, UnorderedElementsAre("apples", "pears", "plums"));
    EXPECT_TRUE(hasPrompt);
}

TEST_F(QtOpenPanelTest, SeveralFoldersCanBeSelectedAndAreChosen) {
    QList<QAbstractItemView::SelectionMode> modes;
    whenShown<QDialog>([&](QDialog& shownDialog) {
        auto& dialog = static_cast<FolderDialog&>(shownDialog);
        for (const auto* const name : {"listView", "treeView"}) {
            modes << dialog.findChild<QAbstractItemView*>(name)->selectionMode();
        }
        select(dialog, {"apples", "plums"});
        acceptButton(dialog)->click();
    });
    const auto result = QtOpenPanel().runModal(configuration());
    EXPECT_EQ(result.response, Response::confirmed);
    EXPECT_THAT(result.urls, UnorderedElementsAre(folder.at("apples"), folder.at("plums")));
    EXPECT_THAT(modes, ElementsAre(QAbstractItemView::ExtendedSelection,
                                   QAbstractItemView::ExtendedSelection));
}

TEST_F(QtOpenPanelTest, OnlyOneFolderCanBeSelectedWhereOneIsAskedFor) {
    auto mode = QAbstractItemView::NoSelection;
    whenShown<QDialog>([&](QDialog& shownDialog) {
        mode = view(static_cast<FolderDialog&>(shownDialog)).selectionMode();
        shownDialog.reject();
    });
    auto single = configuration();
    single.allowsMultipleSelection = false;
    EXPECT_EQ(QtOpenPanel().runModal(single).response, Response::cancelled);
    EXPECT_EQ(mode, QAbstractItemView::SingleSelection);
}

TEST_F(QtOpenPanelTest, WithoutASelectionTheShownFolderIsChosen) {
    whenShown<QDialog>([&](QDialog& shownDialog) {
        auto& dialog = static_cast<FolderDialog&>(shownDialog);
        names(dialog);
        acceptButton(dialog)->click();
    });
    const auto result = QtOpenPanel().runModal(configuration());
    EXPECT_EQ(result.response, Response::confirmed);
    EXPECT_THAT(result.urls, ElementsAre(folder.url()));
}

TEST_F(QtOpenPanelTest, TheKeyboardAloneReachesTheListAndBothButtons) {
    QSet<QWidget*> reached;
    QSet<QWidget*> wanted;
    bool isModal = false;
    whenShown<QDialog>([&](QDialog& shown) {
        const auto& dialog = static_cast<FolderDialog&>(shown);
        isModal = shown.isModal();
        for (const auto* const name : {"listView", "treeView"}) {
            if (auto* const list = dialog.findChild<QWidget*>(name); list->isVisible()) {
                wanted << list;
            }
        }
        for (auto* const button : dialog.findChild<QDialogButtonBox*>()->buttons()) {
            wanted << button;
        }
        names(dialog);
        select(dialog, {"pears"}); // without a choice there is nothing to confirm
        for (int press = 0; press < 20; ++press) {
            reached << shown.focusWidget();
            QTest::keyClick(shown.focusWidget(), Qt::Key_Tab);
        }
        shown.reject();
    });
    EXPECT_EQ(QtOpenPanel().runModal(configuration()).response, Response::cancelled);
    EXPECT_TRUE(isModal);
    EXPECT_EQ(wanted.size(), 3) << "one list and two buttons";
    EXPECT_TRUE(reached.contains(wanted));
}

TEST_F(QtOpenPanelTest, ReturnConfirmsWhatIsTyped) {
    whenShown<QDialog>([](QDialog& shown) {
        names(static_cast<FolderDialog&>(shown));
        auto* const field = shown.findChild<QLineEdit*>("fileNameEdit");
        field->setFocus();
        QTest::keyClicks(field, "pears");
        QTest::keyClick(field, Qt::Key_Return);
    });
    const auto result = QtOpenPanel().runModal(configuration());
    EXPECT_EQ(result.response, Response::confirmed);
    EXPECT_THAT(result.urls, ElementsAre(folder.at("pears")));
}

TEST_F(QtOpenPanelTest, EscapeCancels) {
    whenShown<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    const auto result = QtOpenPanel().runModal(configuration());
    EXPECT_EQ(result.response, Response::cancelled);
    EXPECT_THAT(result.urls, IsEmpty());
}

TEST_F(QtOpenPanelTest, OffersNoNewFolder) {
    bool isEnabled = true;
    whenShown<QDialog>([&](QDialog& dialog) {
        isEnabled = dialog.findChild<QToolButton*>("newFolderButton")->isEnabled();
        dialog.reject();
    });
    EXPECT_EQ(QtOpenPanel().runModal(configuration()).response, Response::cancelled);
    EXPECT_FALSE(isEnabled);
}

} // namespace
} // namespace blankwell
