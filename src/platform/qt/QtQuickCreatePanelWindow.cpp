#include "platform/qt/QtQuickCreatePanelWindow.h"

#include "platform/qt/QtApplication.h"
#include "platform/qt/QtText.h"
#include "platform/qt/ScreenCoordinates.h"
#include "platform/qt/X11WindowHints.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPixmap>
#include <QRegion>
#include <QResizeEvent>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>

#include <cmath>

namespace blankwell {
namespace {

/// The pixels whose middles are inside of a rectangle with round corners.
QRegion roundedRegion(const QSize& size, int radius) {
    QRegion region(0, radius, size.width(), size.height() - 2 * radius);
    for (int row = 0; row < radius; ++row) {
        const auto rise = radius - row - 0.5; // from the centre of a corner to the row's middle
        const auto inset = qRound(radius - std::sqrt(radius * radius - rise * rise));
        const auto width = size.width() - 2 * inset;
        region += QRect(inset, row, width, 1);
        region += QRect(inset, size.height() - 1 - row, width, 1);
    }
    return region;
}

class PanelWindow : public QWidget {
public:
    PanelWindow(const QuickCreatePanelConfiguration& configuration, int cornerRadius)
        : QWidget(nullptr, flags(configuration)),
          cornerRadius_(cornerRadius),
          isOnAllDesktops_(configuration.canJoinAllSpaces),
          isMovable_(configuration.isMovableByWindowBackground) {}

protected:
    void showEvent(QShowEvent* event) override {
        if (!event->spontaneous()) {
            announce();
        }
        QWidget::showEvent(event);
    }

    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        if (windowFlags().testFlag(Qt::FramelessWindowHint)) {
            setMask(roundedRegion(size(), cornerRadius_));
        }
    }

    void mousePressEvent(QMouseEvent* event) override {
        // What the content does not take for itself is background.
        if (isMovable_ && event->button() == Qt::LeftButton) {
            windowHandle()->startSystemMove();
        }
    }

private:
    static Qt::WindowFlags flags(const QuickCreatePanelConfiguration& configuration) {
        Qt::WindowFlags result = Qt::Tool;
        result.setFlag(Qt::FramelessWindowHint, configuration.hasFullSizeContentView &&
                                                    configuration.titlebarAppearsTransparent);
        result.setFlag(Qt::WindowStaysOnTopHint, configuration.isFloatingPanel);
        return result;
    }

    /// Tells the window manager what it has to know before it shows the window.
    void announce() {
        setWindowStates(*windowHandle(), {WindowState::skipTaskbar, WindowState::skipPager},
                        WindowStatePresence::present);
        if (isOnAllDesktops_) {
            putOnAllDesktops(*windowHandle());
        }
    }

    int cornerRadius_;
    bool isOnAllDesktops_;
    bool isMovable_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const window = dynamic_cast<PanelWindow*>(object);
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Dialog);
}

QSize pixels(Size size) {
    return {qRound(size.width), qRound(size.height)};
}

ScreenCoordinates coordinates() {
    const auto* const primary = QGuiApplication::primaryScreen();
    return ScreenCoordinates(primary == nullptr ? QRect() : primary->geometry());
}

} // namespace

QtQuickCreatePanelWindow::QtQuickCreatePanelWindow(
    const QuickCreatePanelConfiguration& configuration, std::unique_ptr<QWidget> content,
    int cornerRadius, QtApplication& application)
    : window_(std::make_unique<PanelWindow>(configuration, cornerRadius)),
      content_(content.get()),
      application_(application) {
    QAccessible::installFactory(makeAccessible);
    auto* const layout = new QVBoxLayout(window_.get());
    layout->setContentsMargins({});
    layout->addWidget(content.release()); // which the window owns now
    window_->setWindowTitle(qtText(configuration.title));
    window_->setMinimumSize(pixels(configuration.minimumSize));
    window_->resize(pixels(configuration.contentSize));
    window_->winId(); // the window exists before it is shown
    window_->grab();  // styles, fonts and symbols are loaded
}

QtQuickCreatePanelWindow::~QtQuickCreatePanelWindow() = default;

Rect QtQuickCreatePanelWindow::frame() const {
    return coordinates().rectOf(window_->frameGeometry());
}

void QtQuickCreatePanelWindow::setFrame(const Rect& frame) {
    const auto place = coordinates().pixelsOf(frame);
    const auto borders = window_->frameGeometry().size() - window_->size();
    window_->move(place.topLeft());
    window_->resize(place.size() - borders);
    window_->update();
}

void QtQuickCreatePanelWindow::makeKeyAndOrderFront() {
    application_.bringToFront(*window_);
    // Each widget asks for its painting once it is shown. Asked now, while nothing of the window is
    // on the screen, all of them are painted together and not a second time.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    content_->setFocus(Qt::ActiveWindowFocusReason);
}

void QtQuickCreatePanelWindow::orderOut() {
    window_->hide();
}

bool QtQuickCreatePanelWindow::isVisible() const {
    return window_->isVisible();
}

} // namespace blankwell
