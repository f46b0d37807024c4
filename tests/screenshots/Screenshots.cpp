#include "settings/AppSettings.h"
#include "support/FakeAppearance.h"
#include "support/FakeLog.h"
#include "support/FakeUserDefaults.h"
#include "views/CreationGuideView.h"
#include "views/HelpContent.h"
#include "views/HelpView.h"
#include "views/OnboardingView.h"
#include "widgets/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QTest>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace blankwell {
namespace {

using View = std::unique_ptr<QWidget>;

/// What the views show: the settings that a new user has, on a desktop without motion.
struct Stage {
    explicit Stage(ColorScheme scheme) { desktop.set({.scheme = scheme, .reducesMotion = true}); }

    FakeAppearance desktop;
    Theme theme{desktop};
    FakeUserDefaults defaults;
    FakeLog log;
    AppSettings settings{defaults, log};
};

/// Presses the button titled `title`, which must be there.
void press(QWidget& view, const QString& title) {
    for (auto* const button : view.findChildren<QAbstractButton*>()) {
        if (button->text() == title) {
            button->click();
            return;
        }
    }
    qFatal("no button is titled %s", qPrintable(title));
}

View onboarding(Stage& stage, int page) {
    auto view = std::make_unique<OnboardingView>(stage.theme, stage.settings, nullptr);
    for (int shown = 1; shown < page; ++shown) {
        press(*view, "Next");
    }
    return view;
}

View help(Stage& stage) {
    return std::make_unique<HelpView>(stage.theme, helpContent("Version 1.0"));
}

View creationGuide(Stage& stage) {
    auto view = std::make_unique<CreationGuideView>(stage.theme, stage.settings);
    view->resize(560, view->heightForWidth(560));
    return view;
}

struct Picture {
    const char* name;
    std::function<View(Stage&)> make;
};

/// To show another view in the documentation, add it here.
const std::vector<Picture>& pictures() {
    static const std::vector<Picture> all{
        {"onboarding-1", [](Stage& stage) { return onboarding(stage, 1); }},
        {"onboarding-2", [](Stage& stage) { return onboarding(stage, 2); }},
        {"onboarding-3", [](Stage& stage) { return onboarding(stage, 3); }},
        {"onboarding-4", [](Stage& stage) { return onboarding(stage, 4); }},
        {"help", help},
        {"creation-guide", creationGuide},
    };
    return all;
}

bool save(QWidget& view, const QString& file) {
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) {
        return false;
    }
    QCoreApplication::processEvents();
    // As small as a picture without loss gets.
    return view.grab().toImage().convertToFormat(QImage::Format_RGB888).save(file, "PNG", 0);
}

bool makePictures(const QDir& folder, ColorScheme scheme) {
    const QString suffix = scheme == ColorScheme::dark ? "-dark.png" : "-light.png";
    for (const auto& picture : pictures()) {
        Stage stage(scheme);
        const auto view = picture.make(stage);
        const auto file = folder.filePath(picture.name + suffix);
        if (!save(*view, file)) {
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
    const auto rest = QApplication::arguments();
    if (rest.size() != 2 || !QDir().mkpath(rest.back())) {
        std::fputs("usage: blankwell_screenshots FOLDER\n", stderr);
        return 2;
    }
    const bool isDone = makePictures(rest.back(), ColorScheme::light) &&
                        makePictures(rest.back(), ColorScheme::dark);
    return isDone ? 0 : 1;
}
