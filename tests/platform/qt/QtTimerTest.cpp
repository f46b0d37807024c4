#include "platform/qt/QtTimer.h"

#include "contract/TimerContract.h"

#include <QEventLoop>
#include <QTest>

namespace blankwell {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

class QtTimerWorld {
public:
    Timer& timer() { return timer_; }

    static void letTimePass() { QTest::qWait(200); }

private:
    QtTimer timer_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, TimerContract, QtTimerWorld);

TEST(QtTimerTest, WorkNeverRunsBeforeItsTime) {
    QtTimer timer;
    for (const milliseconds delay : {milliseconds(30), milliseconds(100)}) {
        QEventLoop loop;
        const auto start = Clock::now();
        const auto subscription = timer.after(delay, [&] { loop.quit(); });
        loop.exec();
        EXPECT_GE(Clock::now() - start, delay);
    }
}

} // namespace
} // namespace blankwell
