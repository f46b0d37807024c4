#include "settings/ShortcutRecorderControl.h"

#include "widgets/FocusVisibility.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Theme.h"
#include "widgets/Typography.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace blankwell {
namespace {

/// Screen readers read the text as the description: the value of a button is not passed on to them.
class AccessibleRecorder : public QAccessibleWidget {
public:
    explicit AccessibleRecorder(ShortcutRecorderControl& control)
        : QAccessibleWidget(&control, QAccessible::Button), control_(control) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value || kind == QAccessible::Description) {
            return qString(control_.appearance().text);
        }
        return QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.pressed = control_.isRecording();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name != pressAction()) {
            QAccessibleWidget::doAction(name);
            return;
        }
        // Where no key can arrive, nothing would end the wait.
        if (control_.isEnabled() && control_.isActiveWindow()) {
            control_.beginRecording(Qt::OtherFocusReason);
        }
    }

private:
    ShortcutRecorderControl& control_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const control = qobject_cast<ShortcutRecorderControl*>(object);
    return control == nullptr ? nullptr : new AccessibleRecorder(*control);
}

std::uint64_t modifierFlags(Qt::KeyboardModifiers modifiers) {
    std::uint64_t flags = 0;
    flags |= modifiers.testFlag(Qt::MetaModifier) ? modifierflags::command : 0;
    flags |= modifiers.testFlag(Qt::ControlModifier) ? modifierflags::control : 0;
    flags |= modifiers.testFlag(Qt::AltModifier) ? modifierflags::option : 0;
    flags |= modifiers.testFlag(Qt::ShiftModifier) ? modifierflags::shift : 0;
    return flags;
}

/// Keys that change what others mean. A shortcut has them, and is none of them.
bool isModifierKey(const QKeyEvent& event) {
    static constexpr std::array keys{
        Qt::Key_Shift,   Qt::Key_Control,  Qt::Key_Meta,        Qt::Key_Alt,
        Qt::Key_AltGr,   Qt::Key_Super_L,  Qt::Key_Super_R,     Qt::Key_Hyper_L,
        Qt::Key_Hyper_R, Qt::Key_CapsLock, Qt::Key_Mode_switch,
    };
    return std::ranges::find(keys, event.key()) != keys.end();
}

/// Likewise, by the places of the keys, for layouts that give them other meanings.
bool isModifierKey(std::uint32_t keyCode) {
    constexpr std::uint32_t rightCommand = 54;
    constexpr std::uint32_t function = 63;
    return keyCode >= rightCommand && keyCode <= function;
}

QRectF qRect(const Rect& rect) {
    return {rect.minX(), rect.minY(), rect.size.width, rect.size.height};
}

/// The font of the text, smaller where that is too wide.
QFont fitting(const QString& text, double width) {
    auto font = fontOf(TextStyle::monospaced);
    constexpr double step = 0.25;
    constexpr double smallest = 6;
    // Step by step: glyphs are not in proportion to their size.
    while (QFontMetricsF(font).horizontalAdvance(text) > width && font.pointSizeF() > smallest) {
        font.setPointSizeF(font.pointSizeF() - step);
    }
    return font;
}

} // namespace

ShortcutRecorderControl::ShortcutRecorderControl(const Theme& theme, std::string_view name,
                                                 ShortcutRecorderServices services, QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      services_(std::move(services)),
      suspension_(services_.suspendHotKeys),
      recorder_({
          .onChange = [this](const auto& recorded) { onChange_(recorded); },
          .beep = services_.beep,
          .needsDisplay = [this] { showChange(); },
          .recordingChanged = [this](bool isRecording) { follow(isRecording); },
      }),
      toldText_(recorder_.appearance().text),
      usualSize_(static_cast<int>(ShortcutRecorder::intrinsicContentSize.width),
                 static_cast<int>(ShortcutRecorder::intrinsicContentSize.height)) {
    QAccessible::installFactory(makeAccessible);
    setAccessibleName(qString(name));
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ShortcutRecorderControl::setOnChange(
    std::function<void(const QuickCreateShortcut&)> onChange) {
    onChange_ = std::move(onChange);
}

void ShortcutRecorderControl::setShortcut(const std::optional<QuickCreateShortcut>& shortcut) {
    recorder_.setShortcut(shortcut);
}

void ShortcutRecorderControl::setPlaceholder(std::string placeholder) {
    recorder_.setPlaceholder(std::move(placeholder));
}

void ShortcutRecorderControl::beginRecording(Qt::FocusReason reason) {
    setFocus(reason);
    recorder_.mouseDown();
}

void ShortcutRecorderControl::setUsualSize(const QSize& size) {
    usualSize_ = size;
    updateGeometry();
}

QSize ShortcutRecorderControl::sizeHint() const {
    const QFontMetricsF font(fontOf(TextStyle::monospaced));
    const auto hint = qString(message(ShortcutRefusal::needsModifier));
    const auto padding = -ShortcutRecorder::textRect({}, 0).size.width;
    return usualSize_.expandedTo(
        {static_cast<int>(std::ceil(font.horizontalAdvance(hint) + padding)),
         static_cast<int>(std::ceil(font.height())) + 2 * metrics::grid});
}

bool ShortcutRecorderControl::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (isRecording()) {
            event->accept(); // so that it comes as a key press, whatever menus do with it
            return true;
        }
        break;
    case QEvent::KeyPress:
        if (const auto& key = static_cast<const QKeyEvent&>(*event); !movesFocus(key)) {
            keyPressed(key);
            event->accept();
            return true;
        }
        break;
    case QEvent::KeyRelease:
        keyReleased(static_cast<const QKeyEvent&>(*event));
        event->accept();
        return true;
    default:
        break;
    }
    return QWidget::event(event);
}

bool ShortcutRecorderControl::movesFocus(const QKeyEvent& event) const {
    const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    const auto modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier);
    return !isRecording() && isTab && modifierFlags(modifiers) == 0;
}

void ShortcutRecorderControl::keyPressed(const QKeyEvent& event) {
    if (event.isAutoRepeat() || isModifierKey(event)) {
        return;
    }
    const auto keyCode = services_.keyCodeOf(event.nativeScanCode());
    if (!keyCode) {
        services_.beep();
        return;
    }
    if (isModifierKey(*keyCode)) {
        return;
    }
    // Also while idle: the recorded key is still down, and must not act as the hot key it becomes.
    suspension_.keyPressed(*keyCode);
    suspension_.recordingBegan();
    recorder_.keyDown(*keyCode, modifierFlags(event.modifiers()));
    follow(isRecording());
}

void ShortcutRecorderControl::keyReleased(const QKeyEvent& event) {
    if (event.isAutoRepeat()) {
        return;
    }
    if (const auto keyCode = services_.keyCodeOf(event.nativeScanCode())) {
        suspension_.keyReleased(*keyCode);
    }
}

void ShortcutRecorderControl::follow(bool isRecording) {
    if (isRecording) {
        suspension_.recordingBegan();
    } else {
        suspension_.recordingEnded();
    }
}

void ShortcutRecorderControl::showChange() {
    update();
    auto text = appearance().text;
    if (text == toldText_) {
        return;
    }
    toldText_ = std::move(text);
    QAccessibleEvent change(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&change);
}

void ShortcutRecorderControl::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        beginRecording(Qt::MouseFocusReason);
    }
}

void ShortcutRecorderControl::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    qApp->installEventFilter(this);
}

void ShortcutRecorderControl::focusOutEvent(QFocusEvent* event) {
    qApp->removeEventFilter(this);
    recorder_.resignFirstResponder();
    suspension_.focusLost();
    QWidget::focusOutEvent(event);
}

// A click on what does not take the keyboard leaves it where it is. It would go on to record keys
// that the user thinks go elsewhere.
bool ShortcutRecorderControl::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType() && watched != this) {
        clearFocus();
    }
    return QWidget::eventFilter(watched, event);
}

void ShortcutRecorderControl::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    painter.setRenderHint(QPainter::Antialiasing);
    const auto look = recorder_.appearance();
    const Rect bounds{.origin = {}, .size = {.width = Points(width()), .height = Points(height())}};
    const auto outline = qRect(ShortcutRecorder::outline(bounds));
    const auto radius = ShortcutRecorder::cornerRadius;
    painter.setPen(QPen(theme_.color(look.stroke), look.lineWidth));
    painter.setBrush(theme_.color(look.fill, look.fillOpacity));
    painter.drawRoundedRect(outline, radius, radius);
    if (isEnabled() && underMouse() && !isRecording()) {
        drawShape(painter, rect(),
                  {.radius = radius, .fill = theme_.color(ColorRole::label, 0.04)});
    }
    if (showsFocus(*this) && !isRecording()) {
        drawFocusOutline(painter, rect(), radius, theme_.color(ColorRole::accent));
    }

    const auto text = qString(look.text);
    const auto font = fitting(text, qRect(ShortcutRecorder::textRect(bounds, 0)).width());
    const auto place = qRect(ShortcutRecorder::textRect(bounds, QFontMetricsF(font).height()));
    painter.setFont(font);
    painter.setPen(theme_.color(look.textColor));
    // A shortcut is read from left to right in any language.
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.drawText(mirrored(place, *this),
                     Qt::TextSingleLine | Qt::AlignVCenter |
                         (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft),
                     text);
}

} // namespace blankwell
