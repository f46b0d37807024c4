#include "platform/qt/QtAlert.h"

#include "platform/qt/QtText.h"
#include "platform/qt/WindowPresentation.h"

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

} // namespace

void QtAlert::runModal(const AlertContent& content) {
    // The title is what task bars show; the box itself shows it as the first line of its text.
    QMessageBox box(iconOf(content.style), qtText(content.messageText), qtText(content.messageText),
                    QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText); // names of files may look like markup
    box.setInformativeText(qtText(content.informativeText));
    box.setDefaultButton(QMessageBox::Ok);
    box.setEscapeButton(QMessageBox::Ok);
    runInFront(box);
}

} // namespace blankwell
