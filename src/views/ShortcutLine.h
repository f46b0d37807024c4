#pragma once

#include "views/OnboardingPages.h"

#include <QWidget>

namespace blankwell {

class Theme;

/// A line in whose middle a key combination looks like keys to press.
class ShortcutLine : public QWidget {
    Q_OBJECT

public:
    ShortcutLine(const Theme& theme, const OnboardingShortcutLine& content,
                 QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
    QWidget* shortcut_;
};

} // namespace blankwell
