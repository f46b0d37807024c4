#include "platform/qt/QtTimer.h"

#include <QTimer>

#include <memory>
#include <utility>

namespace blankwell {

Subscription QtTimer::after(std::chrono::milliseconds delay, std::move_only_function<void()> work) {
    struct DeleteLater {
        void operator()(QTimer* timer) const { timer->deleteLater(); } // it may be what ends it
    };

    std::unique_ptr<QTimer, DeleteLater> timer(new QTimer);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer); // the others may ring early
    QObject::connect(
        timer.get(), &QTimer::timeout, timer.get(),
        [work = std::make_shared<std::move_only_function<void()>>(std::move(work))] { (*work)(); });
    timer->start(delay);
    return Subscription([timer = std::move(timer)] { timer->stop(); });
}

} // namespace blankwell
