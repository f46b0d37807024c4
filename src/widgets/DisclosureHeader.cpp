#include "widgets/DisclosureHeader.h"

#include "widgets/FocusVisibility.h"
#include "widgets/Keys.h"
#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/QtStrings.h"
#include "widgets/Symbols.h"
#include "widgets/Theme.h"
#include "widgets/Typography.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>

namespace blankwell {
namespace {

constexpr int chevronSize = 12;
constexpr int symbolSize = metrics::symbolSize;
constexpr int gap = 2 * metrics::grid;
constexpr double openTurn = 90;

class AccessibleHeader : public QAccessibleWidget {
public:
    explicit AccessibleHeader(DisclosureHeader& header)
        : QAccessibleWidget(&header, QAccessible::Button), header_(header) {}

    [[nodiscard]] QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = header_.isChecked();
        state.collapsed = !header_.isChecked();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction()) {
            header_.click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

private:
    DisclosureHeader& header_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    auto* const header = qobject_cast<DisclosureHeader*>(object);
    return header == nullptr ? nullptr : new AccessibleHeader(*header);
}

void tellOfExpansion(DisclosureHeader& header) {
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(&header, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

DisclosureHeader::DisclosureHeader(const Theme& theme, std::string_view title,
                                   std::string_view symbol, QWidget* parent)
    : QAbstractButton(parent),
      theme_(theme),
      title_(qString(title)),
      symbol_(symbol),
      turn_(theme, *this, 0) {
    QAccessible::installFactory(makeAccessible);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(title_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::toggled, this, [this](bool isOpen) {
        turn_.moveTo(isOpen ? openTurn : 0);
        tellOfExpansion(*this);
    });
}

QSize DisclosureHeader::sizeHint() const {
    const QFontMetrics metrics(fontOf(TextStyle::headline));
    const int symbol = symbol_.empty() ? 0 : symbolSize + gap;
    return {chevronSize + gap + symbol + metrics.horizontalAdvance(title_),
            std::max(metrics::buttonHeight, metrics.height() + metrics::grid)};
}

void DisclosureHeader::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const auto square = [this](double left, double side) {
        return mirrored({left, (height() - side) / 2, side, side}, *this);
    };
    const auto chevron = square(0, chevronSize);
    painter.save();
    painter.translate(chevron.center());
    painter.rotate(isRightToLeft() ? 180 - turn_.value() : turn_.value());
    drawSymbol(
        painter, "chevron.right", chevron.translated(-chevron.center()),
        theme_.color(underMouse() || isDown() ? ColorRole::label : ColorRole::secondaryLabel));
    painter.restore();
    double left = chevronSize + gap;
    if (!symbol_.empty()) {
        drawSymbol(painter, symbol_, square(left, symbolSize), theme_.color(ColorRole::accent));
        left += symbolSize + gap;
    }
    painter.setPen(theme_.color(ColorRole::label));
    painter.setFont(fontOf(TextStyle::headline));
    drawLine(painter, mirrored({left, 0, width() - left, double(height())}, *this),
             Qt::AlignLeading, title_, *this);
    if (showsFocus(*this)) {
        drawFocusOutline(painter, rect(), metrics::buttonRadius, theme_.color(ColorRole::accent));
    }
}

void DisclosureHeader::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event)) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

} // namespace blankwell
