#include "widgets/TextLabel.h"

#include "base/StyledText.h"
#include "widgets/QtStrings.h"
#include "widgets/Theme.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <utility>

namespace blankwell {
namespace {

/// Widths that no text reaches.
constexpr double endless = 1'000'000;

class AccessibleText : public QAccessibleWidget {
public:
    explicit AccessibleText(TextLabel& label)
        : QAccessibleWidget(&label, QAccessible::StaticText), label_(label) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? label_.text() : QAccessibleWidget::text(kind);
    }

private:
    TextLabel& label_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const label = qobject_cast<TextLabel*>(object);
    return label == nullptr ? nullptr : new AccessibleText(*label);
}

struct FormattedText {
    QString text;
    QList<QTextLayout::FormatRange> boldRuns;
};

FormattedText formatted(std::string_view marked, TextLabel::Markup markup) {
    if (markup == TextLabel::Markup::none) {
        return {.text = qString(marked), .boldRuns = {}};
    }
    FormattedText result;
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    for (const auto& run : styledText(marked)) {
        const auto text = qString(run.text);
        if (run.isBold) {
            result.boldRuns.push_back({.start = static_cast<int>(result.text.size()),
                                       .length = static_cast<int>(text.size()),
                                       .format = bold});
        }
        result.text += text;
    }
    return result;
}

} // namespace

TextLabel::TextLabel(const Theme& theme, std::string_view text, const Look& look, QWidget* parent)
    : QWidget(parent), theme_(theme), look_(look) {
    QAccessible::installFactory(makeAccessible);
    take(text);
    const bool isWrapped = look.overflow == Overflow::wrap;
    QSizePolicy policy(isWrapped || isElided() ? QSizePolicy::Preferred : QSizePolicy::Fixed,
                       isWrapped ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    policy.setHeightForWidth(isWrapped);
    setSizePolicy(policy);
}

/// Returns whether that changes anything.
bool TextLabel::take(std::string_view text) {
    auto styled = formatted(text, look_.markup);
    if (styled.text == text_ && styled.boldRuns == boldRuns_) {
        return false;
    }
    text_ = std::move(styled.text);
    boldRuns_ = std::move(styled.boldRuns);
    return true;
}

void TextLabel::setText(std::string_view text) {
    if (!take(text)) {
        return;
    }
    updateGeometry();
    update();
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void TextLabel::setColor(ColorRole color) {
    look_.color = color;
    update();
}

QSize TextLabel::sizeHint() const {
    QTextLayout layout(text_, fontOf(look_.style));
    const auto size = layOut(layout, endless);
    return {static_cast<int>(std::ceil(size.width())), static_cast<int>(std::ceil(size.height()))};
}

QSize TextLabel::minimumSizeHint() const {
    const auto size = sizeHint();
    if (look_.overflow == Overflow::none) {
        return size;
    }
    const auto shortest = QFontMetrics(fontOf(look_.style)).averageCharWidth() * 6;
    return {std::min(size.width(), shortest), size.height()};
}

bool TextLabel::hasHeightForWidth() const {
    return look_.overflow == Overflow::wrap;
}

int TextLabel::heightForWidth(int width) const {
    QTextLayout layout(text_, fontOf(look_.style));
    return static_cast<int>(std::ceil(layOut(layout, width).height()));
}

bool TextLabel::isElided() const {
    return look_.overflow == Overflow::elideEnd || look_.overflow == Overflow::elideMiddle;
}

QString TextLabel::shownText() const {
    if (!isElided()) {
        return text_;
    }
    const auto mode = look_.overflow == Overflow::elideEnd ? Qt::ElideRight : Qt::ElideMiddle;
    return QFontMetrics(fontOf(look_.style)).elidedText(text_, mode, width());
}

/// Breaks the text of `layout` into lines of at most `width` and returns the size of all.
QSizeF TextLabel::layOut(QTextLayout& layout, double width) const {
    QTextOption option(QStyle::visualAlignment(layoutDirection(), look_.alignment) |
                       Qt::AlignAbsolute);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(look_.overflow == Overflow::wrap ? QTextOption::WordWrap
                                                        : QTextOption::ManualWrap);
    layout.setTextOption(option);
    if (layout.text() == text_) {
        layout.setFormats(boldRuns_);
    }
    QSizeF size;
    layout.beginLayout();
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, size.height()});
        size = {std::max(size.width(), line.naturalTextWidth()), size.height() + line.height()};
    }
    layout.endLayout();
    return size;
}

void TextLabel::paintEvent(QPaintEvent* /*event*/) {
    QTextLayout layout(shownText(), fontOf(look_.style));
    const auto size = layOut(layout, width());
    QPainter painter(this);
    painter.setPen(theme_.color(look_.color));
    layout.draw(&painter, {0, (height() - size.height()) / 2});
}

} // namespace blankwell
