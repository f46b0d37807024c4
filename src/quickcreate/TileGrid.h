#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace blankwell {

/// A step of the keyboard from tile to tile.
enum class TileStep { next, previous, down, up };

/// The arrangement of tiles in sections, each of which begins a new row. Tiles are counted in
/// reading order, from 0, over all sections.
class TileGrid {
public:
    static constexpr std::size_t columns = 3;

    TileGrid() = default;

    /// The number of tiles in each section, none of them 0.
    explicit TileGrid(const std::vector<std::size_t>& sectionSizes);

    /// The first tile of each row, in order.
    [[nodiscard]] const std::vector<std::size_t>& rowStarts() const { return rowStarts_; }

    [[nodiscard]] std::size_t tileCount() const { return tileCount_; }

    /// The tile that `step` leads to from `tile`, which is one of the grid; nothing where it leads
    /// out of it. Up and down keep the column, as far as the row has it.
    [[nodiscard]] std::optional<std::size_t> after(std::size_t tile, TileStep step) const;

private:
    [[nodiscard]] std::size_t rowOf(std::size_t tile) const;
    [[nodiscard]] std::size_t endOfRow(std::size_t row) const;
    [[nodiscard]] std::optional<std::size_t> inRow(std::size_t row, std::size_t column) const;

    std::vector<std::size_t> rowStarts_;
    std::size_t tileCount_ = 0;
};

} // namespace blankwell
