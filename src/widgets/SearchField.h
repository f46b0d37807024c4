#pragma once

#include <QWidget>

#include <string_view>

class QLineEdit;

namespace blankwell {

class Theme;

/// A field to type a search into. While it has the keyboard a ring shows that, for which it is
/// `metrics::focusRing` larger on each side than its frame.
class SearchField : public QWidget {
    Q_OBJECT

public:
    /// `prompt` is shown while nothing is typed, and is the name for screen readers.
    SearchField(const Theme& theme, std::string_view prompt, QWidget* parent = nullptr);

    /// Where the text is; it has the keyboard for the field.
    [[nodiscard]] QLineEdit& edit() { return *edit_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void alignText();

    const Theme& theme_;
    QLineEdit* edit_;
};

} // namespace blankwell
