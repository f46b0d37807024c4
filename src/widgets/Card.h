#pragma once

#include <QWidget>

class QVBoxLayout;

namespace blankwell {

class Theme;

/// A group of controls on a rounded ground of their own.
class Card : public QWidget {
    Q_OBJECT

public:
    explicit Card(const Theme& theme, QWidget* parent = nullptr);

    /// Where the content goes, from top to bottom.
    [[nodiscard]] QVBoxLayout& content() { return *content_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& theme_;
    QVBoxLayout* content_;
};

} // namespace blankwell
