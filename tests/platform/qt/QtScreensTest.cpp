#include "platform/qt/QtScreens.h"

#include "contract/ScreensContract.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace blankwell {
namespace {

class QtScreensWorld {
public:
    const Screens& screens() const { return screens_; }

    static void movePointer(Point to) {
        // The middle of a pixel counts; its y is the distance from the top edge.
        const auto bottom = QGuiApplication::primaryScreen()->geometry().height();
        QCursor::setPos(static_cast<int>(to.x), bottom - 1 - static_cast<int>(to.y));
    }

private:
    QtScreens screens_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Qt, ScreensContract, QtScreensWorld);

} // namespace
} // namespace blankwell
