#include "platform/qt/QtMainQueue.h"

#include "contract/MainQueueContract.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <vector>

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

TEST(QtMainQueueTest, WhenTheApplicationQuitsTheRestIsLeftToBeDrained) {
    QtMainQueue queue;
    std::vector<int> done;
    queue.async([&] {
        queue.async([&] {
            done.push_back(2);
            queue.async([&] { done.push_back(4); });
        });
        queue.async([&] { done.push_back(3); });
        QCoreApplication::processEvents(); // as the loop of a dialog does
        QCoreApplication::quit();
        done.push_back(1);
    });
    QCoreApplication::exec();
    EXPECT_THAT(done, testing::ElementsAre(1));
    queue.drain();
    EXPECT_THAT(done, testing::ElementsAre(1, 2, 3, 4));
    queue.drain();
    EXPECT_EQ(done.size(), 4U);
}

TEST(QtMainQueueTest, ADialogThatDrainedWorkOpensIsNotTakenForCancelled) {
    QtMainQueue queue;
    int answer = 0;
    queue.async([] { QCoreApplication::quit(); });
    queue.async([&] {
        QEventLoop dialog;
        QTimer::singleShot(0, &dialog, [&] { dialog.exit(7); });
        answer = dialog.exec();
    });
    QCoreApplication::exec();
    EXPECT_EQ(answer, 0);
    queue.drain();
    EXPECT_EQ(answer, 7);
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
