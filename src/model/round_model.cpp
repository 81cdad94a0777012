#include "model/round_model.h"

#include "core/runtime/arithmetic.h"

namespace tellux {

namespace {

float resistivity_factor(double v) {
  float f = 1;
  if (v < 10) f = 10;
  if (v < 1) f = 100;
  if (v < 0.1) f = 1000;
  return f;
}

float thickness_factor(double v, int16_t decimals) {
  float f = 1;
  switch (decimals) {
    case 0:
      if (v < 10) f = 10;
      if (v < 1) f = 100;
      break;
    case 1:
      f = 10;
      break;
    case 2:
      f = 100;
      break;
    default:
      break;
  }
  return f;
}

}  // namespace

void RoundModelValue(SoundingState& s, const int16_t& column, const int16_t& row) {
  Cell& cell = s.LayerModel(row, column);
  const double v = cell.num();
  const float f = column == 1 ? resistivity_factor(v) : thickness_factor(v, s.ThicknessDecimals);
  // The product is taken in the precision the cell holds; the quotient in double.
  cell = static_cast<double>(rt::CLng(cell.times(f))) / static_cast<double>(f);
}

}  // namespace tellux
