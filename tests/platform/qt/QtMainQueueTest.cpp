#include "platform/qt/QtMainQueue.h"

#include "contract/MainQueueContract.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <thread>

namespace blankwell {
namespace {

struct ProcessedQtMainQueue : QtMainQueue {
    void run() { QCoreApplication::processEvents(QEventLoop::AllEvents, 20); }
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, MainQueueContract, ProcessedQtMainQueue);

TEST(QtMainQueueTest, WorkThatWaitsInADialogHoldsBackTheRest) {
    ProcessedQtMainQueue queue;
    std::vector<int> done;
    queue.async([&] {
        queue.async([&] { done.push_back(2); });
        QCoreApplication::processEvents(); // as the loop of a dialog does
        done.push_back(1);
    });
    queue.run();
    EXPECT_THAT(done, testing::ElementsAre(1, 2));
}

TEST(QtMainQueueTest, WorkOfAnotherThreadRunsOnTheMainThread) {
    ProcessedQtMainQueue queue;
    std::thread::id workedOn;
    std::thread([&] { queue.async([&] { workedOn = std::this_thread::get_id(); }); }).join();
    EXPECT_EQ(workedOn, std::thread::id());
    queue.run();
    EXPECT_EQ(workedOn, std::this_thread::get_id());
}

TEST(QtMainQueueTest, WorkLeftInAQueueThatIsGoneNeverRuns) {
    bool ran = false;
    {
        QtMainQueue queue;
        queue.async([&] { ran = true; });
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace blankwell
