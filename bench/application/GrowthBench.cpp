#include "bench/application/ProcessFigures.h"
#include "bench/application/Session.h"
#include "desktop/Desktop.h"
#include "platform/Identifiers.h"
#include "platform/linux/StandardErrorLog.h"
#include "platform/linux/XdgPreferenceDomains.h"
#include "settings/AppSettings.h"

#include <benchmark/benchmark.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace blankwell {
namespace {

using std::chrono::milliseconds;

/// Hears of each change of a status menu on the session bus.
class MenuWatch {
public:
    MenuWatch() {
        constexpr auto match =
            "type='signal',interface='com.canonical.dbusmenu',member='LayoutUpdated'";
        sd_bus* opened = nullptr;
        if (sd_bus_open_user(&opened) < 0) {
            throw std::runtime_error("no session bus");
        }
        bus_.reset(opened);
        if (sd_bus_add_match(opened, nullptr, match, heard, this) < 0) {
            throw std::runtime_error("the bus does not tell of signals");
        }
    }

    /// Waits until a menu changed, and then until nothing more of it changes.
    void awaitChange() {
        if (!hearsWithin(milliseconds(20'000))) {
            throw std::runtime_error(isOnBus("org.kde.StatusNotifierWatcher")
                                         ? "the menu was not rebuilt"
                                         : "the bar is gone, and with it the menu");
        }
        while (hearsWithin(milliseconds(3))) {
        }
    }

private:
    static int heard(sd_bus_message*, void* self, sd_bus_error*) {
        ++static_cast<MenuWatch*>(self)->count_;
        return 0;
    }

    bool hearsWithin(milliseconds time) {
        const auto known = count_;
        const auto end = std::chrono::steady_clock::now() + time;
        while (count_ == known) {
            const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
                end - std::chrono::steady_clock::now());
            if (left.count() <= 0) {
                return false;
            }
            const int result = sd_bus_process(bus_.get(), nullptr);
            if (result < 0) {
                throw std::runtime_error("the session bus is gone");
            }
            if (result == 0) {
                sd_bus_wait(bus_.get(), static_cast<std::uint64_t>(left.count()));
            }
        }
        return true;
    }

    struct Close {
        void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    };

    std::unique_ptr<sd_bus, Close> bus_;
    std::size_t count_ = 0;
};

/// By how much the values grow from one to the next, by the method of least squares.
double slopeOf(const std::vector<double>& values) {
    const auto count = static_cast<double>(values.size());
    double numerator = 0;
    double denominator = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double place = static_cast<double>(i) - (count - 1) / 2;
        numerator += place * values[i];
        denominator += place * place;
    }
    return numerator / denominator;
}

/// Puts the first type last: after any number of these but one round the menu is another one.
void rotate(AppSettings& settings) {
    auto order = settings.fileTypeOrder.get();
    std::ranges::rotate(order, order.begin() + 1);
    settings.fileTypeOrder.set(std::move(order));
}

void changeSettings(benchmark::State& state) {
    constexpr int changes = 10'000;
    constexpr int step = 100;
    constexpr int warmUp = 1'000;
    const StatusBarPanel bar;
    const RunningApplication application(AppPresence::menuBarOnly);
    StandardErrorLog log;
    XdgPreferenceDomains domains(desktopHome().appending(".config").path(), bundleIdentifier);
    AppSettings settings(sharedDefaults(domains), log);
    MenuWatch menu;
    std::vector<double> sizes;
    for (auto each : state) {
        for (int change = 0; change < warmUp + changes; ++change) {
            rotate(settings);
            menu.awaitChange();
            if (change >= warmUp && change % step == 0) {
                sizes.push_back(ownData(application.process()));
            }
        }
    }
    state.counters["growth"] = slopeOf(sizes) / step;
    state.counters["before"] = sizes.front();
    state.counters["after"] = sizes.back();
}

BENCHMARK(changeSettings)->Iterations(1)->Repetitions(1);

} // namespace
} // namespace blankwell
