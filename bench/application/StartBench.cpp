#include "bench/Paired.h"
#include "bench/application/ScreenWatch.h"
#include "bench/application/Session.h"
#include "desktop/Desktop.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <thread>
#include <vector>

namespace blankwell {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

double nanoseconds(Clock::duration time) {
    return std::chrono::duration<double, std::nano>(time).count();
}

/// How long the application takes from its start to the last of its hot keys.
double timeToHotKeys(HotKeyProbe& probe) {
    const auto start = Clock::now();
    Program application({BLANKWELL_APPLICATION, "--background"});
    const auto end = probe.awaitTaken(textFileShortcut);
    // Ended in the middle of its start it would leave what a crash leaves.
    std::this_thread::sleep_for(milliseconds(300));
    application.terminate();
    return nanoseconds(end - start);
}

/// How long the least of windows takes from its start to its picture on the screen.
double timeToWindow(ScreenWatch& screen, const ScreenWatch::Picture& window) {
    const auto before = screen.settle(milliseconds(50));
    const auto start = Clock::now();
    const Program program({BLANKWELL_MINIMAL_WINDOW});
    const auto seen = screen.awaitPicture(before, window);
    if (!seen) {
        throw std::runtime_error("the window looks different each time");
    }
    return nanoseconds(*seen - start);
}

ScreenWatch::Picture pictureOfWindow(ScreenWatch& screen) {
    const Program program({BLANKWELL_MINIMAL_WINDOW});
    return screen.settle(milliseconds(1'000));
}

void start(benchmark::State& state) {
    storeBenchSettings();
    ScreenWatch screen;
    HotKeyProbe probe;
    const auto window = pictureOfWindow(screen);
    std::vector<double> hotKeyTimes;
    std::vector<double> windowTimes;
    for (auto each : state) {
        hotKeyTimes.push_back(timeToHotKeys(probe));
        windowTimes.push_back(timeToWindow(screen, window));
    }
    state.counters["work"] = medianOf(hotKeyTimes);
    state.counters["floor"] = medianOf(windowTimes);
}

BENCHMARK(start)->Iterations(20);

} // namespace
} // namespace blankwell
