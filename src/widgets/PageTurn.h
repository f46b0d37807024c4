#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

#include <functional>

namespace blankwell {

class Theme;

/// Moves what a widget showed out to one side while what it shows now comes in from the other: a
/// picture of both, that lies over the widget as long as it moves.
class PageTurn : public QWidget {
    Q_OBJECT

public:
    enum class Direction { forward, back };

    /// `page`, the widget, must outlive this object and have the same parent.
    PageTurn(const Theme& theme, QWidget& page);

    /// Calls `change`, which makes the widget show something else. That is seen at once where
    /// nothing should move.
    void turn(Direction direction, const std::function<void()>& change);

    [[nodiscard]] bool isTurning() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
    QWidget& page_;
    QVariantAnimation progress_;
    QPixmap before_;
    QPixmap after_;
    Direction direction_ = Direction::forward;
};

} // namespace blankwell
