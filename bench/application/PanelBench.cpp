#include "bench/Paired.h"
#include "bench/application/ScreenWatch.h"
#include "bench/application/Session.h"
#include "desktop/Desktop.h"
#include "desktop/TestKeyboard.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

using std::chrono::milliseconds;

constexpr std::uint32_t keyM = 46;
constexpr std::uint32_t escape = 53;

/// Something that comes up on an empty screen and goes away at Escape, timed from what brings it up
/// to its picture on the screen.
class Appearance {
public:
    /// `bringUp` is timed, `prepare` and `cleanUp` around it are not.
    struct Steps {
        std::function<void()> prepare;
        std::function<void()> bringUp;
        std::function<void()> cleanUp;
    };

    Appearance(ScreenWatch& screen, TestKeyboard& keyboard, Steps steps)
        : screen_(screen), keyboard_(keyboard), steps_(std::move(steps)) {
        const auto before = screen_.settle(milliseconds(500));
        for (int time = 0; time < 3; ++time) {
            steps_.prepare();
            steps_.bringUp();
            picture_ = screen_.settle(milliseconds(300));
            takeAway(before);
        }
        if (picture_ == before) {
            throw std::runtime_error("nothing comes up");
        }
    }

    void measure() {
        const auto before = screen_.settle(milliseconds(50));
        steps_.prepare();
        const auto start = ScreenWatch::Clock::now();
        steps_.bringUp();
        const auto seen = screen_.awaitPicture(before, picture_);
        if (!seen) {
            throw std::runtime_error("what comes up looks different each time");
        }
        times_.push_back(std::chrono::duration<double, std::nano>(*seen - start).count());
        takeAway(before);
    }

    [[nodiscard]] double quantile(double share) { return quantileOf(times_, share); }

private:
    void takeAway(const ScreenWatch::Picture& before) {
        const bool isAway = eventually([&] {
            screen_.settle(milliseconds(30));
            keyboard_.hit(escape);
            return screen_.settle(milliseconds(60)) == before;
        });
        steps_.cleanUp();
        if (!isAway) {
            throw std::runtime_error("what came up does not go away");
        }
    }

    ScreenWatch& screen_;
    TestKeyboard& keyboard_;
    Steps steps_;
    ScreenWatch::Picture picture_;
    std::vector<double> times_;
};

/// Presses `key` while Control and Option are held, which is not timed.
Appearance::Steps byKey(TestKeyboard& keyboard, std::uint32_t key) {
    return {
        .prepare =
            [&keyboard] {
                keyboard.down(TestKeyboard::control);
                keyboard.down(TestKeyboard::option);
                keyboard.settle();
            },
        .bringUp =
            [&keyboard, key] {
                keyboard.down(key);
                keyboard.up(key);
                keyboard.up(TestKeyboard::option);
                keyboard.up(TestKeyboard::control);
            },
        .cleanUp = [] {},
    };
}

Appearance::Steps byStart(std::optional<Program>& program, const Arguments& command) {
    return {
        .prepare = [] {},
        .bringUp = [&program, command] { program.emplace(command); },
        .cleanUp = [&program] { program.reset(); },
    };
}

/// A file of as many lines as the panel has types.
std::string makeLines() {
    auto path = makeFile("lines").path();
    std::ofstream file(path);
    for (int number = 1; number <= 16; ++number) {
        file << "Line " << number << '\n';
    }
    return path;
}

void panelByKey(benchmark::State& state) {
    const RunningApplication application;
    const Program labels({BLANKWELL_LABEL_WINDOW});
    ScreenWatch screen;
    TestKeyboard keyboard;
    std::optional<Program> launcher;
    Appearance panel(screen, keyboard, byKey(keyboard, defaultQuickCreateShortcut.keyCode));
    Appearance window(screen, keyboard, byKey(keyboard, keyM));
    Appearance rofi(screen, keyboard, byStart(launcher, {"rofi", "-dmenu", "-input", makeLines()}));
    for (auto each : state) {
        panel.measure();
        window.measure();
        rofi.measure();
    }
    state.counters["work"] = panel.quantile(0.5);
    state.counters["work95"] = panel.quantile(0.95);
    state.counters["window"] = window.quantile(0.5);
    state.counters["window95"] = window.quantile(0.95);
    state.counters["rofi"] = rofi.quantile(0.5);
}

BENCHMARK(panelByKey)->Iterations(40);

} // namespace
} // namespace blankwell
