#pragma once

#include "platform/MainQueue.h"

#include <QObject>

#include <deque>

namespace blankwell {

/// The event loop of the application as the main queue. Takes work from every thread.
///
/// Work is done one piece after the other: while a piece waits in a dialog, the rest waits with it.
/// Once the application quits, no further piece begins: `drain` does what is left. Work that is
/// left when the queue is destroyed never runs. Belongs to the thread of the application, which
/// must exist.
class QtMainQueue : public MainQueue {
public:
    void async(std::move_only_function<void()> work) override;

    /// Does the work that is left, and what that adds, after the event loop has ended. Dialogs that
    /// it opens are answered by the user as always; another wish to quit cancels them.
    void drain();

private:
    /// Receives the work as events, on the thread that it was made on.
    class Receiver : public QObject {
    public:
        Receiver();

        bool event(QEvent* event) override;
        bool eventFilter(QObject* watched, QEvent* event) override;
        void drain();

    private:
        void work();

        std::deque<std::move_only_function<void()>> waiting_;
        bool isQuitting_ = false;
        bool isWorking_ = false;
    };

    Receiver receiver_;
};

} // namespace blankwell
