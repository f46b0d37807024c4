#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace blankwell {

/// Nanoseconds that one call of `work` takes.
template <typename Work>
double nanosecondsOf(Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
        .count();
}

/// The value that the share `share` of the values lies below: the median for 0.5. There must be
/// one.
inline double quantileOf(std::vector<double>& values, double share) {
    const auto place =
        values.begin() + static_cast<std::ptrdiff_t>(static_cast<double>(values.size()) * share);
    std::ranges::nth_element(values, place);
    return *place;
}

inline double medianOf(std::vector<double>& values) {
    return quantileOf(values, 0.5);
}

/// Times `work` and `floor` in turn, so that a machine whose speed drifts is equally slow for both,
/// and reports the median of each as the counters "work" and "floor", in nanoseconds. `tidyUp` runs
/// after each of them and is not counted; it returns whether the work was done.
template <typename Work, typename Floor, typename TidyUp>
void measurePaired(benchmark::State& state, Work work, Floor floor, TidyUp tidyUp) {
    std::vector<double> workTimes;
    std::vector<double> floorTimes;
    for (auto each : state) {
        workTimes.push_back(nanosecondsOf(work));
        const bool isWorkDone = tidyUp();
        floorTimes.push_back(nanosecondsOf(floor));
        if (!isWorkDone || !tidyUp()) {
            state.SkipWithError("the work was not done");
            return;
        }
    }
    state.counters["work"] = medianOf(workTimes);
    state.counters["floor"] = medianOf(floorTimes);
}

/// As above, for work that leaves nothing behind.
template <typename Work, typename Floor>
void measurePaired(benchmark::State& state, Work work, Floor floor) {
    measurePaired(state, work, floor, [] { return true; });
}

} // namespace blankwell
