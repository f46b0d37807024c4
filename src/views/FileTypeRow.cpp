#include "views/FileTypeRow.h"

#include "widgets/AccessibleRole.h"
#include "widgets/FocusVisibility.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Switch.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"
#include "widgets/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>

namespace blankwell {
namespace {

constexpr int gripWidth = 3 * metrics::grid;

} // namespace

FileTypeRow::FileTypeRow(const Theme& theme, const FileTypeDefinition& type, QWidget* parent)
    : QWidget(parent), theme_(theme), id_(type.id), toggle_(new Switch(theme, type.displayName)) {
    setAccessibleRole(*this, QAccessible::ListItem);
    setAccessibleName(qString(type.displayName));
    setToolTip("Drag to change the order, or press Alt+Up or Alt+Down.");
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::OpenHandCursor);
    layOut(type);
    toggle_->setCursor(Qt::ArrowCursor);
    toggle_->installEventFilter(this);
    connect(toggle_, &Switch::toggled, this, [this](bool isOn) {
        if (isOn != isOn_) {
            isOn_ = isOn;
            emit switchedByUser(isOn);
        }
    });
}

void FileTypeRow::layOut(const FileTypeDefinition& type) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addStrut(metrics::rowHeight);
    row->setSpacing(metrics::symbolGap);
    row->addSpacing(Switch::ringMargin);
    row->addWidget(
        new SymbolLabel(theme_, type.sfSymbolName,
                        {.size = metrics::symbolSize, .columnWidth = metrics::symbolColumn}));
    row->addWidget(
        new TextLabel(theme_, type.displayName, {.overflow = TextLabel::Overflow::elideMiddle}));
    row->addWidget(new TextLabel(theme_, "." + type.fileExtension,
                                 {.style = TextStyle::caption, .color = ColorRole::tertiaryLabel}));
    row->addStretch(1);
    row->addSpacing(gripWidth);
    row->addWidget(toggle_);
}

void FileTypeRow::setOn(bool isOn) {
    isOn_ = isOn;
    toggle_->setChecked(isOn);
}

void FileTypeRow::setPosition(int position, int count) {
    isFirst_ = position == 1;
    toggle_->setAccessibleDescription(
        QString("%1 of %2. Alt+Up and Alt+Down change the order.").arg(position).arg(count));
    update();
}

bool FileTypeRow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        update(); // the grip comes and goes with the focus
        break;
    case QEvent::KeyPress: {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        if (isDragged_ && key.key() == Qt::Key_Escape) {
            endDrag();
            emit dragCancelled();
            return true;
        }
        return watched == toggle_ && requestMove(key);
    }
    default:
        break;
    }
    return false;
}

bool FileTypeRow::requestMove(const QKeyEvent& event) {
    if (event.modifiers().testFlag(Qt::AltModifier)) {
        if (event.key() == Qt::Key_Up) {
            emit moveRequested(FileTypesListModel::Direction::up);
            return true;
        }
        if (event.key() == Qt::Key_Down) {
            emit moveRequested(FileTypesListModel::Direction::down);
            return true;
        }
    }
    return false;
}

void FileTypeRow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        pressedAt_ = event->position().toPoint();
    } else {
        QWidget::mousePressEvent(event);
    }
}

void FileTypeRow::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const auto way = (event->position().toPoint() - pressedAt_).manhattanLength();
    if (!isDragged_ && way >= QApplication::startDragDistance()) {
        beginDrag();
    }
    if (isDragged_) {
        emit dragged(event->globalPosition().toPoint());
    }
}

void FileTypeRow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && isDragged_) {
        endDrag();
        emit dropped();
    }
}

void FileTypeRow::beginDrag() {
    isDragged_ = true;
    setCursor(Qt::ClosedHandCursor);
    qApp->installEventFilter(this); // Escape reaches whoever has the keyboard
    update();
}

void FileTypeRow::endDrag() {
    isDragged_ = false;
    qApp->removeEventFilter(this);
    setCursor(Qt::OpenHandCursor);
    update();
}

void FileTypeRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (isDragged_) {
        drawShape(painter, rect(),
                  {.radius = metrics::buttonRadius, .fill = theme_.color(ColorRole::accent, 0.16)});
    } else if (!isFirst_) {
        constexpr int inset = Switch::ringMargin;
        painter.fillRect(inset, 0, width() - 2 * inset, 1, theme_.color(ColorRole::separator));
    }
    if (isDragged_ || underMouse() || showsFocus(*toggle_)) {
        drawGrip(painter);
    }
}

/// Six dots, which say that there is something to drag.
void FileTypeRow::drawGrip(QPainter& painter) const {
    constexpr double dot = 2.4;
    constexpr double distance = 5;
    const auto place =
        mirrored(QRectF(width() - toggle_->width() - 2 * gripWidth, 0, gripWidth, height()), *this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme_.color(ColorRole::tertiaryLabel));
    for (const double x : {-distance / 2, distance / 2}) {
        for (const double y : {-distance, 0.0, distance}) {
            painter.drawEllipse(place.center() + QPointF(x, y), dot / 2, dot / 2);
        }
    }
}

} // namespace blankwell
