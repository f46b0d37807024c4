#include "platform/linux/RunLoop.h"

#include "contract/MainQueueContract.h"
#include "contract/TimerContract.h"

#include <chrono>
#include <thread>
#include <utility>

namespace blankwell {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

/// A loop that works off what there is.
struct DrainedRunLoop : RunLoop {
    void run() {
        while (!isIdle()) {
            runNext();
        }
    }
};

INSTANTIATE_TYPED_TEST_SUITE_P(RunLoop, MainQueueContract, DrainedRunLoop);

class RunLoopWorld {
public:
    Timer& timer() { return loop_; }

    void letTimePass() { loop_.run(); }

private:
    DrainedRunLoop loop_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(RunLoop, TimerContract, RunLoopWorld);

struct RunLoopTest : testing::Test {
    std::move_only_function<void()> note(int number) {
        return [this, number] { done.push_back(number); };
    }

    DrainedRunLoop loop;
    std::vector<int> done;
};

TEST_F(RunLoopTest, WorkDoesNotWaitForADelay) {
    const auto later = loop.after(milliseconds(1), note(2));
    loop.async(note(1));
    loop.run();
    EXPECT_THAT(done, ElementsAre(1, 2));
}

TEST_F(RunLoopTest, ADelayLastsAsLongAsWasAsked) {
    const auto start = std::chrono::steady_clock::now();
    const auto later = loop.after(milliseconds(30), note(1));
    loop.runNext();
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(30));
}

TEST_F(RunLoopTest, WorkOfAnotherThreadEndsTheWait) {
    const auto later = loop.after(std::chrono::hours(1), note(2));
    const std::jthread other([this] { loop.async(note(1)); });
    loop.runNext();
    EXPECT_THAT(done, ElementsAre(1));
    EXPECT_FALSE(loop.isIdle());
}

} // namespace
} // namespace blankwell
