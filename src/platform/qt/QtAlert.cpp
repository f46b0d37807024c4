#include "platform/qt/QtAlert.h"

#include "platform/qt/QtText.h"
#include "platform/qt/WindowPresentation.h"

#include <QFont>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

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

/// Adds the buttons to `box` in their order of importance: the first is the one to go on with.
std::vector<QPushButton*> addButtons(QMessageBox& box, const std::vector<std::string>& titles) {
    if (titles.empty()) {
        return {box.addButton(QMessageBox::Ok)};
    }
    std::vector<QPushButton*> buttons;
    for (const auto& title : titles) {
        const auto role = buttons.empty() ? QMessageBox::AcceptRole : QMessageBox::RejectRole;
        buttons.push_back(box.addButton(qtText(title), role));
    }
    return buttons;
}

} // namespace

std::size_t QtAlert::runModal(const AlertContent& content) {
    // The title is what task bars show; the box itself shows it as the first line of its text.
    QMessageBox box(iconOf(content.style), qtText(content.messageText),
                    qtText(content.messageText));
    box.setTextFormat(Qt::PlainText); // names of files may look like markup
    box.setInformativeText(qtText(content.informativeText));
    const auto buttons = addButtons(box, content.buttons);
    styleTexts(box);
    box.setDefaultButton(buttons.front());
    box.setEscapeButton(buttons.back());
    runInFront(box);
    const auto pressed = std::ranges::find(buttons, box.clickedButton());
    return static_cast<std::size_t>(std::ranges::distance(buttons.begin(), pressed));
}

} // namespace blankwell
