#include "platform/qt/QtPause.h"

#include <QTimer>

#include <memory>
#include <utility>

namespace blankwell {

void QtPause::after(std::chrono::milliseconds duration, std::move_only_function<void()> work) {
    // Shared, since Qt copies what a timer calls.
    auto shared = std::make_shared<std::move_only_function<void()>>(std::move(work));
    // Of the kinds of timers, only the precise one never comes early.
    QTimer::singleShot(duration, Qt::PreciseTimer, &waiting_, [shared] { (*shared)(); });
}

} // namespace blankwell
