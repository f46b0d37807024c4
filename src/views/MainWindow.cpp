#include "views/MainWindow.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace blankwell {
namespace {

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

MainWindow::MainWindow(const std::function<void()>& showQuickCreate) : shortcut_(new QLabel(this)) {
    setWindowTitle(qt(title));
    auto* const quickCreate = new QPushButton("Quick Create...");
    connect(quickCreate, &QPushButton::clicked, this, showQuickCreate);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 28, 28, 28);
    layout->setSpacing(16);
    layout->addWidget(shortcut_);
    layout->addWidget(quickCreate, 0, Qt::AlignLeft);
    layout->addStretch();
    resize(480, 240);
}

void MainWindow::setShortcutText(std::string_view displayString) {
    shortcut_->setText("Create a file anywhere: " + qt(displayString));
}

} // namespace blankwell
