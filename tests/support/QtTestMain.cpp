#include <gtest/gtest.h>

#include <QApplication>

/// The tests of this program need Qt's event loop and no display.
int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    return RUN_ALL_TESTS();
}
