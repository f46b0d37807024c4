#include "platform/linux/update/ThreadedWork.h"

#include <utility>

namespace blankwell {

Subscription ThreadedWork::run(std::move_only_function<void(std::stop_token)> work) {
    forgetDone();
    auto isDone = std::make_shared<std::atomic<bool>>(false);
    std::jthread thread([work = std::move(work), isDone](const std::stop_token& stop) mutable {
        work(stop);
        work = nullptr; // what it holds goes on this thread
        isDone->store(true);
    });
    auto source = thread.get_stop_source();
    pieces_.push_back({std::move(thread), std::move(isDone)});
    return Subscription([source = std::move(source)]() mutable { source.request_stop(); });
}

void ThreadedWork::forgetDone() {
    std::erase_if(pieces_, [](const Piece& piece) { return piece.isDone->load(); });
}

} // namespace blankwell
