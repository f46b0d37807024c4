#pragma once

/// Lengths in pixels of an unscaled display. Everything stands on a grid of 4.
namespace blankwell::metrics {

inline constexpr int grid = 4;

inline constexpr int mainWindowMargin = 7 * grid;
inline constexpr int panelMargin = 5 * grid;
inline constexpr int panelRadius = 3 * grid;

inline constexpr int cardPadding = 4 * grid;
inline constexpr int cardSpacing = 4 * grid;
inline constexpr int cardRadius = 10;

inline constexpr int rowHeight = 9 * grid;
inline constexpr int symbolColumn = 22;
inline constexpr int symbolGap = 3 * grid;

inline constexpr int tilePadding = 10;
inline constexpr int tileSymbolSquare = 30;
inline constexpr int tileSymbolRadius = 7;
inline constexpr int tileRadius = 8;

inline constexpr int fieldHeight = 34;
inline constexpr int fieldRadius = 8;
/// The ring around the field that has the focus.
inline constexpr int focusRing = 3;

inline constexpr int buttonHeight = 7 * grid;
inline constexpr int buttonRadius = 7;
inline constexpr int buttonPadding = 3 * grid;

inline constexpr int switchWidth = 34;
inline constexpr int switchHeight = 20;

inline constexpr int symbolSize = 16;
inline constexpr int smallSymbolSize = 14;

} // namespace blankwell::metrics
