#include "platform/linux/update/SpeedMeter.h"

#include <gtest/gtest.h>

namespace blankwell {
namespace {

using namespace std::chrono_literals;

TEST(SpeedMeterTest, TellsTheBytesPerSecond) {
    SpeedMeter meter;
    const SpeedMeter::Time begin{};
    EXPECT_EQ(meter.update(500, begin), 0U);
    EXPECT_EQ(meter.update(1500, begin + 1s), 1000U);
    EXPECT_EQ(meter.update(1500, begin + 2s), 500U);
}

TEST(SpeedMeterTest, ForgetsWhatIsLongAgo) {
    SpeedMeter meter;
    const SpeedMeter::Time begin{};
    meter.update(0, begin);
    meter.update(1'000'000, begin + 1s);
    EXPECT_EQ(meter.update(1'000'000, begin + 4s), 0U);
}

} // namespace
} // namespace blankwell
