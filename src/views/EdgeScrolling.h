#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

class QScrollArea;
class QWidget;

namespace blankwell {

/// Scrolls the area around a widget while something is dragged to the area's upper or lower edge:
/// the closer to the edge, the faster.
class EdgeScrolling : public QObject {
    Q_OBJECT

public:
    /// `widget` must outlive this object. Does nothing where it is in no scroll area.
    explicit EdgeScrolling(const QWidget& widget) : widget_(widget) {
        connect(&timer_, &QTimer::timeout, this, &EdgeScrolling::step);
    }

    /// Something is dragged; `place` is where the pointer is on the desktop.
    void dragTo(QPoint place);

    void stop() { timer_.stop(); }

signals:
    /// The content has moved under the pointer, which still is at `place`.
    void scrolled(QPoint place);

private:
    [[nodiscard]] QScrollArea* area() const;
    [[nodiscard]] int speed() const;
    void step();

    const QWidget& widget_;
    QPoint place_;
    QTimer timer_;
};

} // namespace blankwell
