#pragma once
// The short filter's error, told: each run of `ForwardCurve` that makes a curve for the user
// (outside the fit's own runs) also computes the accurate curve on the same rows and keeps the
// largest difference in `FilterErrorPercent`. With the option "Accurate curves" on, the rows
// take the accurate values instead (then in the fit's runs too).
#include <array>
#include <string>

#include "core/sounding_state.h"

namespace tellux {

class AccurateRows {
 public:
  static constexpr int kRows = 102;

  // Computes the accurate values of rows 0..rows-1 of the run that is starting, when wanted.
  AccurateRows(const SoundingState& s, int rows);

  // The value row i takes, given the short filter's value r.
  double row(int i, double r) {
    if (i < 0 || i >= kRows) return r;
    short_[static_cast<size_t>(i)] = r;
    return replace_ && i < rows_ ? accurate_[static_cast<size_t>(i)] : r;
  }

  // Sets `FilterErrorPercent` from rows 0..last (0 when the accurate curve was not computed).
  void finish(SoundingState& s, int last) const;

 private:
  std::array<double, kRows> short_{};
  std::array<double, kRows> accurate_{};
  int rows_ = 0;  // accurate rows computed
  bool replace_ = false;
};

// The accurate curve of the model in `LayerModel` on rows 0..rows-1 of the diagram's grid;
// false for a model it cannot compute (no layer, a resistivity of 0).
bool accurate_model_curve(const SoundingState& s, int rows, double* out);

// The status line's word when the last curve is more than 1 % off and the option is off: by how
// much, and where the option is; empty otherwise.
std::string filter_error_hint(const SoundingState& s);

// The largest |short - accurate| / accurate over rows 0..last, in percent.
double filter_error_percent(const double* short_rows, const double* accurate_rows, int last);

}  // namespace tellux
