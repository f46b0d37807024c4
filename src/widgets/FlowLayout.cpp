#include "widgets/FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace blankwell {

FlowLayout::FlowLayout(int spacing, QWidget* parent) : QLayout(parent) {
    setContentsMargins({});
    setSpacing(spacing);
}

void FlowLayout::addItem(QLayoutItem* item) {
    items_.emplace_back(item);
}

int FlowLayout::count() const {
    return static_cast<int>(items_.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    const auto i = static_cast<std::size_t>(index);
    return index >= 0 && i < items_.size() ? items_[i].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (itemAt(index) == nullptr) {
        return nullptr;
    }
    const auto place = items_.begin() + index;
    auto* const taken = place->release(); // to the caller, as layouts do
    items_.erase(place);
    return taken;
}

std::vector<FlowLayout::Line> FlowLayout::lines(int width) const {
    std::vector<Line> result;
    int used = 0;
    for (const auto& item : items_) {
        if (item->isEmpty()) {
            continue;
        }
        const auto size = item->sizeHint();
        if (result.empty() || used + spacing() + size.width() > width) {
            result.emplace_back();
            used = -spacing();
        }
        used += spacing() + size.width();
        result.back().items.push_back(item.get());
        result.back().height = std::max(result.back().height, size.height());
    }
    return result;
}

int FlowLayout::heightForWidth(int width) const {
    const auto margins = contentsMargins();
    int height = 0;
    for (const auto& line : lines(width - margins.left() - margins.right())) {
        height += (height > 0 ? spacing() : 0) + line.height;
    }
    return height + margins.top() + margins.bottom();
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const auto& item : items_) {
        size = size.expandedTo(item->minimumSize());
    }
    return size.grownBy(contentsMargins());
}

QSize FlowLayout::sizeHint() const {
    int width = 0;
    for (const auto& item : items_) {
        if (!item->isEmpty()) {
            width += (width > 0 ? spacing() : 0) + item->sizeHint().width();
        }
    }
    return {QSize(width, 0).grownBy(contentsMargins()).width(), minimumSize().height()};
}

void FlowLayout::setGeometry(const QRect& geometry) {
    QLayout::setGeometry(geometry);
    const auto area = contentsRect();
    const auto direction = parentWidget()->layoutDirection();
    int top = area.top();
    for (const auto& line : lines(area.width())) {
        int left = area.left();
        for (auto* const item : line.items) {
            const auto size = item->sizeHint().boundedTo({area.width(), line.height});
            const QRect place({left, top + (line.height - size.height()) / 2}, size);
            item->setGeometry(QStyle::visualRect(direction, area, place));
            left += size.width() + spacing();
        }
        top += line.height + spacing();
    }
}

} // namespace blankwell
