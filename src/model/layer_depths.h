#pragma once
// The depths of the model: how many layers it has, where each layer's top lies and at what
// altitude, and the text of a thickness with the decimals the diagram's setup asks for.
#include <string>

#include "core/session.h"

namespace tellux {

// Works out `LayerCount` (the first row without a thickness is the half space), the depth of
// each layer's top in `LayerModel` column 3 and `LayerAltitudes` (when `LocationZ` is not empty),
// rounding every cell on the way. A layer with a thickness but no resistivity gets 0.001. Rows
// below the half space are emptied. In the work mode "SUPERPOSE" the overlay's model is walked
// instead. Raises error 6 when a value is too large to round.
void ComputeDepths(Session& session);

// The altitude of layer r's top: `LocationZ` minus the depth in `LayerModel` column 3, rounded to
// the decimals of the thicknesses. Raises error 6 when it is too large to round.
double LayerAltitude(const SoundingState& s, int r);

// The plain text of `value` with the decimals of `ThicknessDecimals`: "3", "3.0" or "3.00". A
// text with more decimals is not cut; it just gets nothing added.
std::string FormatThickness(const SoundingState& s, const Cell& value);
inline std::string FormatThickness(const SoundingState& s, double value) {
  return FormatThickness(s, Cell(value));
}

}  // namespace tellux
