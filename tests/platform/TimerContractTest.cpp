#include "contract/TimerContract.h"
#include "support/FakeTimer.h"

namespace blankwell {
namespace {

class FakeTimerWorld {
public:
    Timer& timer() { return timer_; }

    void letTimePass() {
        while (timer_.ring()) {
        }
    }

private:
    FakeTimer timer_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Double, TimerContract, FakeTimerWorld);

} // namespace
} // namespace blankwell
