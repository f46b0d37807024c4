#pragma once

#include "platform/BackgroundWork.h"

#include <atomic>
#include <list>
#include <memory>
#include <thread>

namespace blankwell {

/// A thread for each piece of work. Belongs to one thread.
class ThreadedWork : public BackgroundWork {
public:
    Subscription run(std::move_only_function<void(std::stop_token)> work) override;

private:
    struct Piece {
        std::jthread thread;
        std::shared_ptr<std::atomic<bool>> isDone;
    };

    void forgetDone();

    std::list<Piece> pieces_;
};

} // namespace blankwell
