#include "platform/qt/ScreenCoordinates.h"

#include <gtest/gtest.h>

#include <array>

namespace blankwell {
namespace {

constexpr QRect primary(0, 0, 1920, 1080);
constexpr QRect taller(1920, -200, 1600, 1400);
constexpr QRect above(100, -900, 1440, 900);

TEST(ScreenCoordinatesTest, ThePrimaryScreenStandsOnZero) {
    EXPECT_EQ(ScreenCoordinates(primary).rectOf(primary), (Rect{{0, 0}, {1920, 1080}}));
}

TEST(ScreenCoordinatesTest, AScreenAboveLiesHigherAndOneThatReachesLowerIsNegative) {
    const ScreenCoordinates coordinates(primary);
    EXPECT_EQ(coordinates.rectOf(above), (Rect{{100, 1080}, {1440, 900}}));
    EXPECT_EQ(coordinates.rectOf(taller), (Rect{{1920, -120}, {1600, 1400}}));
}

TEST(ScreenCoordinatesTest, APrimaryScreenThatIsNotAtTheOriginStandsOnZeroToo) {
    EXPECT_EQ(ScreenCoordinates(taller).rectOf(taller), (Rect{{1920, 0}, {1600, 1400}}));
}

TEST(ScreenCoordinatesTest, EveryCornerPixelOfAScreenIsInsideItAndInNoOther) {
    const ScreenCoordinates coordinates(primary);
    const std::array screens{primary, taller, above};
    for (const auto& screen : screens) {
        for (const auto corner :
             {screen.topLeft(), screen.topRight(), screen.bottomLeft(), screen.bottomRight()}) {
            for (const auto& other : screens) {
                EXPECT_EQ(coordinates.rectOf(other).contains(coordinates.pointOf(corner)),
                          screen == other);
            }
        }
    }
}

TEST(ScreenCoordinatesTest, ARectangleComesBackAsThePixelsItWas) {
    const ScreenCoordinates coordinates(primary);
    const QRect panel(1800, -150, 560, 600);
    EXPECT_EQ(coordinates.pixelsOf(coordinates.rectOf(panel)), panel);
}

} // namespace
} // namespace blankwell
