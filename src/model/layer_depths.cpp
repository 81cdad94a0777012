#include "model/layer_depths.h"

#include "core/runtime/arithmetic.h"
#include "core/runtime/number_text.h"
#include "model/round_model.h"

namespace tellux {

namespace {

// The smallest value a layer may have: an empty cell inside the model becomes this.
constexpr double kLeast = 0.001;

void round_cell(SoundingState& s, int16_t column, int16_t row) { RoundModelValue(s, column, row); }

// The overlay's model, in the mode no command sets: it stops at the first layer of 0.1 or less.
void overlay_depths(Session& session) {
  SoundingState& s = session.s;
  LayerTableT& m = s.OverlayModel;
  m(1, 3) = 0.0;
  for (int r = 2; r <= 20; ++r) {
    m(r, 3) = 0.0;
    if (m(r, 1).num() <= 0.1) {
      if (r >= 3) {
        s.LayerCount = static_cast<int16_t>(r - 1);
        m(r, 3) = m(r - 1, 2).num() + m(r - 1, 3).num();
      } else {
        session.tell("Impossible...");
      }
      return;
    }
  }
}

}  // namespace

double LayerAltitude(const SoundingState& s, int r) {
  // Altitudes keep the decimals of the thicknesses: one for Auto and 1, two for 2.
  const float f = s.ThicknessDecimals == 0 || s.ThicknessDecimals == 1 ? 10.f : 100.f;
  return static_cast<double>(
             rt::CLng((rt::Val(s.LocationZ) - s.LayerModel(r, 3).num()) * static_cast<double>(f))) /
         static_cast<double>(f);
}

void ComputeDepths(Session& session) {
  SoundingState& s = session.s;
  if (s.WorkMode == mode::kSuperpose) {
    overlay_depths(session);
    return;
  }
  const bool has_z = !s.LocationZ.empty();
  LayerTableT& m = s.LayerModel;
  const auto altitude = [&](int16_t r) {
    if (has_z) s.LayerAltitudes[r] = LayerAltitude(s, r);
  };

  m(1, 3) = 0.0;
  for (int16_t c = 1; c <= 3; ++c) round_cell(s, c, 1);
  for (int16_t r = 1; r <= 20; ++r) {
    m(r, 3) = 0.0;
    if (m(r, 2).num() == 0) {
      // The first row without a thickness is the half space and ends the model.
      s.LayerCount = r;
      if (r < 2) return;
      m(r, 3) = m(r - 1, 2).num() + m(r - 1, 3).num();
      if (m(r, 1).num() == 0) m(r, 1) = kLeast;
      round_cell(s, 1, r);
      round_cell(s, 3, r);
      altitude(r);
      for (int below = r + 1; below <= 20; ++below)
        for (int c = 1; c <= 3; ++c) m(below, c).clear();
      return;
    }
    m(r, 3) = m(r - 1, 2).num() + m(r - 1, 3).num();
    // The depth of row 1 comes out as 0.001 here and is rounded back to 0.
    for (int16_t c = 1; c <= 3; ++c) {
      if (m(r, c).num() == 0) m(r, c) = kLeast;
      round_cell(s, c, r);
    }
    altitude(r);
  }
}

std::string FormatThickness(const SoundingState& s, const Cell& value) {
  std::string text = rt::CStr(value);
  const size_t n = text.size();
  const auto char_from_right = [&](size_t k) { return n >= k ? text[n - k] : '\0'; };
  switch (s.ThicknessDecimals) {
    case 1:
      if (char_from_right(2) != '.') text += ".0";
      break;
    case 2:
      if (char_from_right(3) == '.') break;
      text += char_from_right(2) == '.' ? "0" : ".00";
      break;
    default:
      break;
  }
  return text;
}

}  // namespace tellux
