#include "platform/qt/QtMainQueue.h"

#include <QCoreApplication>
#include <QEvent>

#include <memory>
#include <utility>

namespace blankwell {
namespace {

class WorkEvent : public QEvent {
public:
    explicit WorkEvent(std::move_only_function<void()> toDo)
        : QEvent(registeredType()), work(std::move(toDo)) {}

    static Type registeredType() {
        static const auto type = static_cast<Type>(registerEventType());
        return type;
    }

    std::move_only_function<void()> work;
};

} // namespace

void QtMainQueue::async(std::move_only_function<void()> work) {
    auto event = std::make_unique<WorkEvent>(std::move(work));
    QCoreApplication::postEvent(&receiver_, event.release()); // which takes it over
}

void QtMainQueue::drain() {
    receiver_.drain();
}

QtMainQueue::Receiver::Receiver() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool QtMainQueue::Receiver::event(QEvent* event) {
    if (event->type() != WorkEvent::registeredType()) {
        return QObject::event(event);
    }
    waiting_.push_back(std::move(static_cast<WorkEvent*>(event)->work));
    if (!isWorking_) {
        work();
    }
    return true;
}

bool QtMainQueue::Receiver::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Quit) {
        return false;
    }
    // From here on a dialog would come back at once, as if cancelled. A window may refuse, though.
    watched->event(event);
    isQuitting_ = event->isAccepted();
    return true;
}

void QtMainQueue::Receiver::drain() {
    isQuitting_ = false;
    QCoreApplication::sendPostedEvents(this);
    while (!waiting_.empty()) {
        isQuitting_ = false;
        work();
        QCoreApplication::sendPostedEvents(this);
    }
}

void QtMainQueue::Receiver::work() {
    isWorking_ = true;
    while (!waiting_.empty() && !isQuitting_) {
        auto next = std::move(waiting_.front());
        waiting_.pop_front();
        next(); // a dialog that it opens runs the event loop, which may bring more work
    }
    isWorking_ = false;
}

} // namespace blankwell
