#include "quickcreate/TileGrid.h"

#include <algorithm>

namespace blankwell {

TileGrid::TileGrid(const std::vector<std::size_t>& sectionSizes) {
    for (const auto size : sectionSizes) {
        for (std::size_t start = 0; start < size; start += columns) {
            rowStarts_.push_back(tileCount_ + start);
        }
        tileCount_ += size;
    }
}

std::optional<std::size_t> TileGrid::after(std::size_t tile, TileStep step) const {
    const auto row = rowOf(tile);
    const auto column = tile - rowStarts_[row];
    switch (step) {
    case TileStep::next:
        return tile + 1 < tileCount_ ? std::optional(tile + 1) : std::nullopt;
    case TileStep::previous:
        return tile > 0 ? std::optional(tile - 1) : std::nullopt;
    case TileStep::down:
        return inRow(row + 1, column);
    case TileStep::up:
        return row > 0 ? inRow(row - 1, column) : std::nullopt;
    }
    return std::nullopt;
}

std::size_t TileGrid::rowOf(std::size_t tile) const {
    const auto next = std::ranges::upper_bound(rowStarts_, tile);
    return static_cast<std::size_t>(next - rowStarts_.begin()) - 1;
}

std::size_t TileGrid::endOfRow(std::size_t row) const {
    return row + 1 < rowStarts_.size() ? rowStarts_[row + 1] : tileCount_;
}

std::optional<std::size_t> TileGrid::inRow(std::size_t row, std::size_t column) const {
    if (row >= rowStarts_.size()) {
        return std::nullopt;
    }
    return std::min(rowStarts_[row] + column, endOfRow(row) - 1);
}

} // namespace blankwell
