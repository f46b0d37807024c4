#include "views/ShortcutLine.h"

#include "widgets/Metrics.h"
#include "widgets/Painting.h"
#include "widgets/TextLabel.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>
#include <QPainter>

namespace blankwell {
namespace {

constexpr int capPadding = 2 * metrics::grid;

} // namespace

ShortcutLine::ShortcutLine(const Theme& theme, const OnboardingShortcutLine& content,
                           QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      shortcut_(new TextLabel(theme, content.shortcut, {.style = TextStyle::monospaced})) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, metrics::grid, 0, metrics::grid);
    row->setSpacing(capPadding + metrics::grid + 2);
    row->addStretch();
    row->addWidget(new TextLabel(theme, content.before, {}));
    row->addWidget(shortcut_);
    row->addWidget(new TextLabel(theme, content.after, {}));
    row->addStretch();
}

void ShortcutLine::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawShape(painter, shortcut_->geometry().adjusted(-capPadding, -3, capPadding, 3),
              {.radius = 6,
               .fill = theme_.color(ColorRole::controlBackground),
               .outline = theme_.color(ColorRole::separator)});
}

} // namespace blankwell
