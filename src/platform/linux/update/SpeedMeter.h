#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <utility>

namespace blankwell {

/// How fast something comes in, over the last three seconds.
class SpeedMeter {
public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr std::chrono::seconds span{3};

    /// At `now`, `total` bytes have come in altogether. Gives the bytes per second.
    std::uint64_t update(std::uint64_t total, Time now) {
        samples_.emplace_back(now, total);
        while (samples_.size() > 2 && samples_[1].first <= now - span) {
            samples_.pop_front();
        }
        const auto& [begin, before] = samples_.front();
        const auto elapsed = std::chrono::duration<double>(now - begin).count();
        return elapsed > 0
                   ? static_cast<std::uint64_t>(static_cast<double>(total - before) / elapsed)
                   : 0;
    }

private:
    std::deque<std::pair<Time, std::uint64_t>> samples_;
};

} // namespace blankwell
