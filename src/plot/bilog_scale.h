#pragma once
// The two mappings from a data point to drawing coordinates. On the screen the logical
// coordinates are the logarithms themselves; on the report page (twips, ordinate downward) the
// frame's corner (DecadeStart, RhoDecadeStart) stands at (PlotOriginX, PlotOriginY) and a decade
// is PlotScale millimetres long on both axes.
#include "core/runtime/arithmetic.h"
#include "core/sounding_state.h"

namespace tellux {

// The program's log10(e), written with four digits. Points and minor lines are placed with it;
// their small shift against the decade lines is part of the picture. Keep it.
inline constexpr double kDrawLogFactor = 0.4343;
// Twips in a millimetre as the program counts them (not the exact 56.6929).
inline constexpr double kTwipsPerMm = 56.7;

// The logarithm for drawing; error 5 for a value at or below 0.
inline double draw_log(double v) { return rt::Log(v) * kDrawLogFactor; }

// Page position of a logarithm on the abscissa and on the ordinate.
inline double page_x(const SoundingState& s, double lx) {
  return (lx - s.DecadeStart) * s.PlotScale * kTwipsPerMm + s.PlotOriginX;
}
inline double page_y(const SoundingState& s, double ly) {
  return s.PlotOriginY - (ly - s.RhoDecadeStart) * s.PlotScale * kTwipsPerMm;
}

// The classic sixteen-colour PC palette (0 black, 1 blue, ... 15 bright white) as 24-bit colours;
// error 5 for an index outside 0..15.
int32_t palette_colour(int index);

}  // namespace tellux
