#include "app/WindowScenes.h"
#include "app/application/SceneWindow.h"
#include "bench/Paired.h"
#include "desktop/OwnDesktop.h"
#include "support/Stage.h"
#include "views/ContentView.h"
#include "views/OnboardingView.h"
#include "widgets/PageTurn.h"
#include "widgets/PushButton.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <QWindow>

#include <xcb/xcb.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <vector>

namespace blankwell {
namespace {

/// Waits until the X server has done all that it was asked for.
void awaitServer() {
    auto* const connection =
        qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

/// A window that is there, laid out, and has been on the screen before.
class HiddenWindow {
public:
    explicit HiddenWindow(QWidget& window) : window_(window) {
        show();
        hide();
    }

    /// Until its picture is on the screen.
    void show() {
        window_.show();
        const bool isShown = QTest::qWaitForWindowExposed(&window_);
        QCoreApplication::processEvents();
        awaitServer();
        if (!isShown) {
            throw std::runtime_error("a window does not appear");
        }
    }

    void hide() {
        window_.hide();
        awaitServer();
        QTest::qWait(60); // for the window manager
    }

private:
    QWidget& window_;
};

/// The main window as it opens from hidden, beside an empty window of the same size.
void openMainWindow(benchmark::State& state) {
    Stage stage(ColorScheme::light);
    SceneWindow main(mainWindowScene, new ContentView(stage.contentServices()));
    QWidget empty;
    empty.resize(main.size());
    HiddenWindow hiddenMain(main);
    HiddenWindow hiddenEmpty(empty);
    std::vector<double> workTimes;
    std::vector<double> floorTimes;
    for (auto each : state) {
        auto work = [&] { hiddenMain.show(); };
        auto floor = [&] { hiddenEmpty.show(); };
        workTimes.push_back(nanosecondsOf(work));
        hiddenMain.hide();
        floorTimes.push_back(nanosecondsOf(floor));
        hiddenEmpty.hide();
    }
    state.counters["work"] = medianOf(workTimes);
    state.counters["floor"] = medianOf(floorTimes);
}

BENCHMARK(openMainWindow)->Iterations(40)->Unit(benchmark::kMillisecond);

/// Hears when a widget is painted.
class Frames : public QObject {
public:
    explicit Frames(QObject& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            times_.push_back(std::chrono::steady_clock::now());
        }
        return false;
    }

    [[nodiscard]] std::size_t count() const { return times_.size(); }

    /// How many frames of a display at 60 Hz passed without a new picture between two pictures.
    [[nodiscard]] double dropped() const {
        constexpr std::chrono::duration<double> frame(1.0 / 60);
        double dropped = 0;
        for (std::size_t i = 1; i < times_.size(); ++i) {
            const auto frames = std::round((times_[i] - times_[i - 1]) / frame);
            dropped += std::max(0.0, frames - 1);
        }
        return dropped;
    }

private:
    std::vector<std::chrono::steady_clock::time_point> times_;
};

PushButton& buttonOf(const QWidget& view, const QString& title) {
    for (auto* const button : view.findChildren<PushButton*>()) {
        if (button->text() == title) {
            return *button;
        }
    }
    throw std::runtime_error("there is no such button");
}

/// The walkthrough turns a page forward, and back.
void turnPage(benchmark::State& state) {
    Stage stage(ColorScheme::light);
    stage.desktop.set({.scheme = ColorScheme::light});
    OnboardingView sheet(stage.theme, stage.settings, nullptr);
    sheet.resize(770, 600);
    sheet.show();
    if (!QTest::qWaitForWindowExposed(&sheet)) {
        throw std::runtime_error("the walkthrough does not appear");
    }
    auto& turn = *sheet.findChild<PageTurn*>();
    std::vector<double> dropped;
    std::vector<double> frames;
    const auto press = [&](const QString& title) {
        const Frames seen(turn);
        buttonOf(sheet, title).click();
        const bool isOver = QTest::qWaitFor([&] { return !turn.isTurning(); });
        if (!isOver || seen.count() < 2) {
            throw std::runtime_error("the page did not turn");
        }
        dropped.push_back(seen.dropped());
        frames.push_back(static_cast<double>(seen.count()));
    };
    for (auto each : state) {
        press("Next");
        press("Back");
    }
    state.counters["work"] = quantileOf(dropped, 0.95);
    state.counters["floor"] = medianOf(frames);
}

BENCHMARK(turnPage)->Iterations(10);

} // namespace
} // namespace blankwell

int main(int argumentCount, char** arguments) {
    if (!blankwell::isOnOwnDesktop()) {
        blankwell::runOnOwnDesktop({arguments + 1, arguments + argumentCount});
        return 125;
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
