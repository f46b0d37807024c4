#include "bench/Paired.h"
#include "bench/application/Session.h"
#include "desktop/Desktop.h"
#include "desktop/TestKeyboard.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <thread>
#include <vector>

namespace blankwell {
namespace {

using Clock = std::chrono::steady_clock;

/// Takes the created file away, and lets the application come to rest.
void removeFile(const FileUrl& folder) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ::unlink(folder.appending("Untitled.txt").path().c_str());
}

double nanosecondsSince(Clock::time_point start, Clock::time_point end) {
    return std::chrono::duration<double, std::nano>(end - start).count();
}

void createByKey(benchmark::State& state) {
    const RunningApplication application;
    const auto desktop = makeFolder("Desktop");
    FolderWatch folder(desktop);
    TestKeyboard keyboard;
    std::vector<double> times;
    for (auto each : state) {
        keyboard.down(TestKeyboard::control);
        keyboard.down(TestKeyboard::option);
        keyboard.settle();
        const auto start = Clock::now();
        keyboard.down(textFileShortcut.keyCode);
        times.push_back(nanosecondsSince(start, folder.awaitFile()));
        keyboard.up(textFileShortcut.keyCode);
        keyboard.up(TestKeyboard::option);
        keyboard.up(TestKeyboard::control);
        removeFile(desktop);
    }
    state.counters["work"] = medianOf(times);
}

/// Runs `command` and returns how long it takes from its start to the complete file.
double timeToFile(const Arguments& command, FolderWatch& folder) {
    const auto start = Clock::now();
    Program program(command);
    const auto end = folder.awaitFile();
    program.exitStatus();
    return nanosecondsSince(start, end);
}

void openUrl(benchmark::State& state) {
    const RunningApplication application;
    const auto target = makeFolder("requests");
    FolderWatch folder(target);
    const auto url = "blankwellplus://create?type=txt&directory=" + target.path();
    const Arguments open{BLANKWELL_COMMAND_LINE, "open", url};
    const Arguments gdbus{"gdbus",
                          "call",
                          "--session",
                          "--dest=app.blankwell.BlankwellPlus",
                          "--object-path=/app/blankwell/BlankwellPlus",
                          "--method=org.freedesktop.Application.Open",
                          "['" + url + "']",
                          "{}"};
    std::vector<double> openTimes;
    std::vector<double> gdbusTimes;
    for (auto each : state) {
        openTimes.push_back(timeToFile(open, folder));
        removeFile(target);
        gdbusTimes.push_back(timeToFile(gdbus, folder));
        removeFile(target);
    }
    state.counters["work"] = medianOf(openTimes);
    state.counters["floor"] = medianOf(gdbusTimes);
}

BENCHMARK(createByKey)->Iterations(100);
BENCHMARK(openUrl)->Iterations(100);

} // namespace
} // namespace blankwell
