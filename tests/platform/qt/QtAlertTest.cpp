#include "platform/qt/QtAlert.h"

#include "platform/qt/Dialogs.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QMessageBox>
#include <QTest>

namespace blankwell {
namespace {

const AlertContent failure{
    .style = AlertContent::Style::warning,
    .messageText = "Could not create file",
    .informativeText = "The disk <b>x</b> is full.",
};

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

TEST(QtAlertTest, EnterAndEscapeTakeNote) {
    EXPECT_TRUE(closes(Qt::Key_Return));
    EXPECT_TRUE(closes(Qt::Key_Enter));
    EXPECT_TRUE(closes(Qt::Key_Escape));
}

} // namespace
} // namespace blankwell
