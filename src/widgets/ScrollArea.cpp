#include "widgets/ScrollArea.h"

#include "widgets/ScrollBarStyle.h"

#include <QScrollBar>

namespace blankwell {

ScrollArea::ScrollArea(const Theme& theme, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    auto* const style = new ScrollBarStyle(theme, barWidth);
    style->setParent(verticalScrollBar());
    verticalScrollBar()->setStyle(style);
    verticalScrollBar()->setAttribute(Qt::WA_Hover);
}

} // namespace blankwell
