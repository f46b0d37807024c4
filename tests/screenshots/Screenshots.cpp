#include "screenshots/ShownViews.h"
#include "support/Stage.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QScreen>
#include <QTest>

#include <cstdio>

namespace blankwell {
namespace {

/// That of many desktops, so that the pictures are the same wherever they are made.
QFont font() {
    QFont result("Inter");
    result.setPointSizeF(9.75);
    return result;
}

bool save(QWidget& view, Stage& stage, const QString& file) {
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) {
        return false;
    }
    stage.mainQueue.run();
    QCoreApplication::processEvents();
    return view.grab().toImage().convertToFormat(QImage::Format_RGB888).save(file, "PNG", 0);
}

bool makePictures(const QDir& folder, ColorScheme scheme) {
    const QString suffix = scheme == ColorScheme::dark ? "-dark.png" : "-light.png";
    for (const auto& shown : shownViews()) {
        Stage stage(scheme);
        const auto view = shown.make(stage);
        const auto file = folder.filePath(shown.name + suffix);
        if (!save(*view, stage, file)) {
            std::fprintf(stderr, "cannot make %s\n", qPrintable(file));
            return false;
        }
    }
    return true;
}

} // namespace
} // namespace blankwell

/// Makes a picture of every view, in light and in dark, in the folder that is its argument.
int main(int argumentCount, char** arguments) {
    using namespace blankwell;
    const QApplication application(argumentCount, arguments);
    QApplication::setFont(font());
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight()); // out of the way
    const auto rest = QApplication::arguments();
    if (rest.size() != 2 || !QDir().mkpath(rest.back())) {
        std::fputs("usage: blankwell_screenshots FOLDER\n", stderr);
        return 2;
    }
    const bool isDone = makePictures(rest.back(), ColorScheme::light) &&
                        makePictures(rest.back(), ColorScheme::dark);
    return isDone ? 0 : 1;
}
