#include "views/ContentView.h"

#include "access/FolderAccessSetupView.h"
#include "shell/UninstallView.h"
#include "views/AppPresenceView.h"
#include "views/ExtensionStatusView.h"
#include "views/FileTypesListView.h"
#include "views/MainHeaderView.h"
#include "views/MainWindowLayout.h"
#include "widgets/Card.h"
#include "widgets/Metrics.h"
#include "widgets/ScrollArea.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

namespace blankwell {
namespace {

/// Lines longer than that are no good to read, however wide the window is.
constexpr int greatestWidth = 880;

class ContentScrollArea : public ScrollArea {
public:
    explicit ContentScrollArea(const Theme& theme) : ScrollArea(theme) {
        setMinimumHeight(static_cast<int>(mainwindow::scrollAreaMinimumHeight));
        setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {static_cast<int>(mainwindow::contentMinimumSize.width),
                static_cast<int>(mainwindow::scrollAreaIdealHeight)};
    }

protected:
    /// Those of the arrows and of whole pages it knows by itself.
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Home:
            verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
            break;
        case Qt::Key_End:
            verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
            break;
        default:
            ScrollArea::keyPressEvent(event);
        }
    }
};

QWidget* inCard(const Theme& theme, QWidget* view) {
    auto* const card = new Card(theme);
    card->content().addWidget(view);
    return card;
}

} // namespace

ContentView::ContentView(const Services& services, QWidget* parent) : QWidget(parent) {
    auto* const content = new QWidget;
    content->setMaximumWidth(greatestWidth);
    constexpr int margin = metrics::mainWindowMargin;
    auto* const row = new QHBoxLayout(content);
    row->setContentsMargins(0, margin, 0, margin);
    row->setSpacing(0);
    auto* const sections = new QVBoxLayout;
    row->addSpacing(margin);
    row->addLayout(sections, 1);
    row->addSpacing(margin - ScrollArea::barWidth);
    sections->setSpacing(metrics::cardSpacing);
    for (const auto section : allMainWindowSections) {
        sections->addWidget(makeSection(section, services));
    }
    sections->addStretch(1);

    auto* const area = new ContentScrollArea(services.theme);
    area->setWidget(content);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(area);
}

QWidget* ContentView::makeSection(MainWindowSection section, const Services& services) {
    const auto& theme = services.theme;
    switch (section) {
    case MainWindowSection::header:
        return new MainHeaderView(theme, services.bundle);
    case MainWindowSection::appPresence:
        return new AppPresenceView(theme, services.settings, services.loginItem);
    case MainWindowSection::fileTypes:
        return new FileTypesListView(theme, services.settings, services.mainQueue);
    case MainWindowSection::shortcuts:
        return inCard(theme, new ShortcutSettingsView(theme, services.shortcuts));
    case MainWindowSection::folderAccess:
        return inCard(theme, new FolderAccessSetupView(theme, services.folderAccess));
    case MainWindowSection::finderExtension:
        return new ExtensionStatusView(theme, services.extensionStatus);
    case MainWindowSection::uninstall:
        return new UninstallView(theme, services.uninstaller);
    }
    std::unreachable();
}

} // namespace blankwell
