#include "platform/qt/QtAlert.h"

#include "platform/qt/QtText.h"
#include "platform/qt/WindowPresentation.h"

#include <QFont>
#include <QLabel>
#include <QMessageBox>

namespace blankwell {
namespace {

QMessageBox::Icon iconOf(AlertContent::Style style) {
    switch (style) {
    case AlertContent::Style::warning:
        return QMessageBox::Warning;
    case AlertContent::Style::informational:
        return QMessageBox::Information;
    case AlertContent::Style::critical:
        break;
    }
    return QMessageBox::Critical;
}

/// Gives the texts of `box` their weight, and lines of a length that reads well.
void styleTexts(const QMessageBox& box) {
    constexpr int lineWidth = 340;
    auto* const message = box.findChild<QLabel*>("qt_msgbox_label");
    auto headline = message->font();
    headline.setWeight(QFont::DemiBold);
    message->setFont(headline);
    // Without a text there is no such label.
    if (auto* const informative = box.findChild<QLabel*>("qt_msgbox_informativelabel")) {
        informative->setMinimumWidth(lineWidth);
    }
}

} // namespace

void QtAlert::runModal(const AlertContent& content) {
    // The title is what task bars show; the box itself shows it as the first line of its text.
    QMessageBox box(iconOf(content.style), qtText(content.messageText), qtText(content.messageText),
                    QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText); // names of files may look like markup
    box.setInformativeText(qtText(content.informativeText));
    styleTexts(box);
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    runInFront(box);
}

} // namespace blankwell
