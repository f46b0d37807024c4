#pragma once

#include "platform/MainQueue.h"

#include <QObject>

#include <deque>

namespace blankwell {

/// The event loop of the application as the main queue. Takes work from every thread.
///
/// Work is done one piece after the other: while a piece waits in a dialog, the rest waits with it.
/// Work that is left when it is destroyed never runs. Belongs to the thread of the application.
class QtMainQueue : public MainQueue {
public:
    void async(std::move_only_function<void()> work) override;

private:
    /// Receives the work as events, on the thread that it was made on.
    class Receiver : public QObject {
    public:
        bool event(QEvent* event) override;

    private:
        void work();

        std::deque<std::move_only_function<void()>> waiting_;
        bool isWorking_ = false;
    };

    Receiver receiver_;
};

} // namespace blankwell
