#include "bench/application/ProcessFigures.h"
#include "bench/application/Session.h"
#include "desktop/Desktop.h"
#include "desktop/TestKeyboard.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace blankwell {
namespace {

using std::chrono::seconds;

constexpr std::uint32_t keyM = 46;
constexpr std::uint32_t escape = 53;

bool isShown(const std::string& title) {
    const auto titles = windowTitles();
    return std::ranges::find(titles, title) != titles.end();
}

/// Shows the window `title` three times by `key`, and hides it again.
void showThreeTimes(TestKeyboard& keyboard, std::uint32_t key, const std::string& title) {
    for (int time = 0; time < 3; ++time) {
        keyboard.hit(key, carbon::controlKey | carbon::optionKey);
        const bool isUp = eventually([&] { return isShown(title); });
        std::this_thread::sleep_for(seconds(1));
        const bool isAway = eventually([&] {
            keyboard.hit(escape);
            return !isShown(title);
        });
        if (!isUp || !isAway) {
            throw std::runtime_error(title + " does not come and go");
        }
    }
}

struct Rest {
    double size = 0;
    double waitsPerSecond = 0;
};

/// What a program costs that shows nothing and has nothing to do.
Rest measureRest(pid_t process) {
    constexpr seconds duration{10};
    std::this_thread::sleep_for(seconds(2));
    const Rest rest{.size = proportionalSize(process)};
    const double before = waits(process);
    std::this_thread::sleep_for(duration);
    return {.size = rest.size,
            .waitsPerSecond = (waits(process) - before) / static_cast<double>(duration.count())};
}

Rest restOfApplication(TestKeyboard& keyboard) {
    const RunningApplication application(AppPresence::menuBarOnly);
    showThreeTimes(keyboard, defaultQuickCreateShortcut.keyCode, "Create File");
    return measureRest(application.process());
}

Rest restOfTrayWindow(TestKeyboard& keyboard) {
    const Program program({BLANKWELL_TRAY_WINDOW});
    std::this_thread::sleep_for(seconds(1));
    showThreeTimes(keyboard, keyM, "Tray window");
    return measureRest(program.process());
}

void rest(benchmark::State& state) {
    const StatusBarPanel bar;
    TestKeyboard keyboard;
    Rest ours;
    Rest least;
    for (auto each : state) {
        ours = restOfApplication(keyboard);
        least = restOfTrayWindow(keyboard);
    }
    state.counters["waits"] = ours.waitsPerSecond;
    state.counters["floorWaits"] = least.waitsPerSecond;
    state.counters["size"] = ours.size;
    state.counters["floorSize"] = least.size;
}

BENCHMARK(rest)->Iterations(1)->Repetitions(3);

} // namespace
} // namespace blankwell
