#include "views/EdgeScrolling.h"

#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <chrono>

namespace blankwell {
namespace {

using namespace std::chrono_literals;

constexpr auto interval = 16ms;
/// How far from the edge it begins.
constexpr int reach = 48;
/// In pixels of an interval, at the edge and beyond it.
constexpr int greatestSpeed = 14;

} // namespace

void EdgeScrolling::dragTo(QPoint place) {
    place_ = place;
    if (speed() != 0) {
        if (!timer_.isActive()) {
            timer_.start(interval);
        }
    } else {
        timer_.stop();
    }
}

QScrollArea* EdgeScrolling::area() const {
    for (auto* widget = widget_.parentWidget(); widget != nullptr;
         widget = widget->parentWidget()) {
        if (auto* const area = qobject_cast<QScrollArea*>(widget)) {
            return area;
        }
    }
    return nullptr;
}

/// Downwards; below zero it is upwards.
int EdgeScrolling::speed() const {
    const auto* const scrollArea = area();
    if (scrollArea == nullptr) {
        return 0;
    }
    const auto* const viewport = scrollArea->viewport();
    const int fromTop = viewport->mapFromGlobal(place_).y();
    const int fromBottom = viewport->height() - fromTop;
    const auto speedAt = [](int distance) {
        return std::clamp((reach - distance) * greatestSpeed / reach, 0, greatestSpeed);
    };
    return speedAt(fromBottom) - speedAt(fromTop);
}

void EdgeScrolling::step() {
    auto& bar = *area()->verticalScrollBar();
    const int before = bar.value();
    bar.setValue(before + speed());
    if (bar.value() == before) {
        timer_.stop();
    } else {
        emit scrolled(place_);
    }
}

} // namespace blankwell
