#pragma once

#include "settings/RecordingSuspension.h"
#include "settings/ShortcutRecorder.h"
#include "settings/ShortcutRecorderServices.h"

#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

class QKeyEvent;

namespace blankwell {

class Theme;

/// The field in which the user sets a shortcut: click it, press a key combination, and the
/// combination is taken.
///
/// While it waits it takes every key, those of menus and for moving around included; Escape ends
/// that, as does a click elsewhere. While it has the keyboard and does not wait, any key that
/// reaches it is taken as well, which begins the wait where the key is no shortcut. What the
/// application does with a key comes first then: its menus, and Tab, by which the keyboard leaves.
/// Screen readers see a button, which begins the wait, and read what it shows as its description.
class ShortcutRecorderControl : public QWidget {
    Q_OBJECT

public:
    /// `name` is what screen readers call it.
    ShortcutRecorderControl(const Theme& theme, std::string_view name,
                            ShortcutRecorderServices services, QWidget* parent = nullptr);

    /// `onChange` takes each recorded shortcut. It must not destroy the control.
    void setOnChange(std::function<void(const QuickCreateShortcut&)> onChange);

    [[nodiscard]] const std::optional<QuickCreateShortcut>& shortcut() const {
        return recorder_.shortcut();
    }

    void setShortcut(const std::optional<QuickCreateShortcut>& shortcut);

    /// What is shown where there is no shortcut.
    void setPlaceholder(std::string placeholder);

    [[nodiscard]] bool isRecording() const { return recorder_.isRecording(); }

    /// Takes the keyboard and waits for a key combination.
    void beginRecording(Qt::FocusReason reason);

    [[nodiscard]] ShortcutRecorderAppearance appearance() const { return recorder_.appearance(); }

    /// The size at the desktop's usual font; it grows only where a larger one needs that.
    void setUsualSize(const QSize& size);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] bool movesFocus(const QKeyEvent& event) const;
    void keyPressed(const QKeyEvent& event);
    void keyReleased(const QKeyEvent& event);
    void showChange();
    void tell(const QuickCreateShortcut& recorded);
    void follow(bool isRecording);

    const Theme& theme_;
    ShortcutRecorderServices services_;
    RecordingSuspension suspension_;
    std::function<void(const QuickCreateShortcut&)> onChange_ = [](const auto&) {};
    ShortcutRecorder recorder_;
    std::string toldText_;
    QSize usualSize_;
};

} // namespace blankwell
