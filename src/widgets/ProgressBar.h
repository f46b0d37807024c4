#pragma once

#include <QBasicTimer>
#include <QProgressBar>

namespace blankwell {

class Theme;

/// A bar that shows how far something has come, without a text. Where its range is empty it says
/// that something goes on for a time that is not known.
class ProgressBar : public QProgressBar {
    Q_OBJECT

public:
    explicit ProgressBar(const Theme& theme, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    [[nodiscard]] bool isTimeKnown() const { return maximum() > minimum(); }

    [[nodiscard]] QRectF doneRect() const;
    [[nodiscard]] QRectF movingRect() const;

    const Theme& theme_;
    QBasicTimer frames_;
};

} // namespace blankwell
