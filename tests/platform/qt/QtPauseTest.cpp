#include "platform/qt/QtPause.h"

#include "contract/PauseContract.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <optional>
#include <utility>

namespace blankwell {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

class QtPauseWorld {
public:
    Pause& pause() { return *pause_; }

    void end() { pause_.reset(); }

    static void letTimePass() {
        const QDeadlineTimer time(200);
        while (!time.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
    }

private:
    std::optional<QtPause> pause_{std::in_place};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, PauseContract, QtPauseWorld);

TEST(QtPauseTest, WorkNeverRunsBeforeItsTime) {
    for (const milliseconds duration : {milliseconds(30), milliseconds(100)}) {
        QtPause pause;
        QEventLoop loop;
        const auto start = Clock::now();
        pause.after(duration, [&] { loop.quit(); });
        loop.exec();
        EXPECT_GE(Clock::now() - start, duration);
    }
}

} // namespace
} // namespace blankwell
