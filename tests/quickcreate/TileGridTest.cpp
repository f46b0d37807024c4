#include "quickcreate/TileGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace blankwell {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum TileStep;

/// 0 1 2 / 3 | 4 5 | 6 7 8
struct TileGridTest : testing::Test {
    TileGrid grid{{4, 2, 3}};
};

TEST_F(TileGridTest, EachSectionBeginsARow) {
    EXPECT_THAT(grid.rowStarts(), ElementsAre(0, 3, 4, 6));
    EXPECT_EQ(grid.tileCount(), 9U);
}

TEST_F(TileGridTest, NextAndPreviousFollowTheReadingOrderOverSections) {
    for (std::size_t tile = 0; tile + 1 < 9; ++tile) {
        EXPECT_EQ(grid.after(tile, next), tile + 1);
        EXPECT_EQ(grid.after(tile + 1, previous), tile);
    }
    EXPECT_EQ(grid.after(8, next), std::nullopt);
    EXPECT_EQ(grid.after(0, previous), std::nullopt);
}

TEST_F(TileGridTest, UpAndDownKeepTheColumnAcrossSections) {
    EXPECT_EQ(grid.after(0, down), 3U);
    EXPECT_EQ(grid.after(3, down), 4U);
    EXPECT_EQ(grid.after(5, down), 7U);
    EXPECT_EQ(grid.after(7, up), 5U);
    EXPECT_EQ(grid.after(4, up), 3U);
}

TEST_F(TileGridTest, AShorterRowGivesItsLastTile) {
    EXPECT_EQ(grid.after(2, down), 3U);
    EXPECT_EQ(grid.after(8, up), 5U);
    EXPECT_EQ(grid.after(5, up), 3U);
}

TEST_F(TileGridTest, TheFirstAndTheLastRowAreTheEnd) {
    EXPECT_EQ(grid.after(1, up), std::nullopt);
    EXPECT_EQ(grid.after(6, down), std::nullopt);
}

TEST_F(TileGridTest, AGridMayBeEmpty) {
    EXPECT_THAT(TileGrid().rowStarts(), IsEmpty());
    EXPECT_EQ(TileGrid().tileCount(), 0U);
}

} // namespace
} // namespace blankwell
