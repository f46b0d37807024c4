#include "platform/qt/QtAlert.h"

#include "contract/AlertContract.h"
#include "platform/qt/Dialogs.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <map>

namespace blankwell {
namespace {

const AlertContent failure{
    .style = AlertContent::Style::warning,
    .messageText = "Could not create file",
    .informativeText = "The disk <b>x</b> is full.",
};

/// Reads what a box shows, in the words of its labels.
AlertContent contentOf(const QMessageBox& box) {
    using enum AlertContent::Style;
    const std::map<QMessageBox::Icon, AlertContent::Style> styles{
        {QMessageBox::Warning, warning},
        {QMessageBox::Information, informational},
        {QMessageBox::Critical, critical}};
    const auto text = [&](const char* name) {
        const auto* const label = box.findChild<QLabel*>(name);
        return label == nullptr ? "" : label->text().toStdString();
    };
    std::vector<std::string> buttons;
    if (box.standardButtons() == QMessageBox::NoButton) {
        for (const auto* const button : box.buttons()) {
            buttons.push_back(button->text().toStdString());
        }
    }
    return {
        .style = styles.at(box.icon()),
        .messageText = text("qt_msgbox_label"),
        .informativeText = text("qt_msgbox_informativelabel"),
        .buttons = buttons,
    };
}

/// A user who reads an alert and presses a key.
class QtAlertWorld {
public:
    Alert& alert() { return alertBefore(Qt::Key_Return); }

    Alert& dismissed() { return alertBefore(Qt::Key_Escape); }

    const std::vector<AlertContent>& read() const { return read_; }

private:
    Alert& alertBefore(Qt::Key key) {
        whenShown<QMessageBox>([this, key](QMessageBox& box) {
            read_.push_back(contentOf(box));
            QTest::keyClick(&box, key);
        });
        return alert_;
    }

    QtAlert alert_;
    std::vector<AlertContent> read_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, AlertContract, QtAlertWorld);

/// Shows the failure, presses `key`, and tells whether that closed the box.
bool closes(Qt::Key key) {
    QElapsedTimer time;
    time.start();
    whenShown<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, key); });
    QtAlert().runModal(failure);
    return time.elapsed() < 2500;
}

TEST(QtAlertTest, ShowsBothTextsAsTheyAreWithTheSignOfTheStyle) {
    QString texts;
    auto icon = QMessageBox::NoIcon;
    auto format = Qt::AutoText;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        texts = box.text() + '|' + box.informativeText();
        icon = box.icon();
        format = box.textFormat();
        box.accept();
    });
    QtAlert().runModal(failure);
    EXPECT_EQ(texts, "Could not create file|The disk <b>x</b> is full.");
    EXPECT_EQ(icon, QMessageBox::Warning);
    EXPECT_EQ(format, Qt::PlainText);
}

TEST(QtAlertTest, IsModalWithTheKeyboardOnItsOnlyButton) {
    bool isModal = false;
    bool hasFocus = false;
    bool keepsFocus = false;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        const auto* const button = box.button(QMessageBox::Ok);
        isModal = box.isModal();
        hasFocus = box.focusWidget() == button;
        QTest::keyClick(&box, Qt::Key_Tab);
        keepsFocus = box.focusWidget() == button;
        box.accept();
    });
    QtAlert().runModal(failure);
    EXPECT_TRUE(isModal);
    EXPECT_TRUE(hasFocus);
    EXPECT_TRUE(keepsFocus);
}

TEST(QtAlertTest, EnterAndEscapeTakeNote) {
    EXPECT_TRUE(closes(Qt::Key_Return));
    EXPECT_TRUE(closes(Qt::Key_Enter));
    EXPECT_TRUE(closes(Qt::Key_Escape));
}

} // namespace
} // namespace blankwell
