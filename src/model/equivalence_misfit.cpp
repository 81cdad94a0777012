#include "model/equivalence_misfit.h"

#include <cmath>
#include <limits>

#include "model/forward.h"

namespace tellux {

DeviationMisfit::DeviationMisfit(const SoundingState& s) : s_(s) {
  layers_ = s.LayerCount;
  s_.WorkMode = mode::kFile;
  s_.SuperposeCurve = -1;
  s_.FitMisfit = 1.0;  // a fit's run: nothing drawn, no second curve for the filter's error
}

bool DeviationMisfit::deviations(const double* rho, const double* h, std::vector<double>& out) {
  ++evaluations_;
  for (int i = 1; i <= layers_; ++i) {
    s_.LayerModel(i, 1) = rho[i - 1];
    s_.LayerModel(i, 2) = i == layers_ ? 0.0 : h[i - 1];
  }
  const int told = dialogs_.told;
  ForwardCurve(session_);
  if (dialogs_.told != told) return false;
  out.clear();
  // The bracket search of the error curve: rows in rising order from where the last one was.
  int j = 1;
  const int last = s_.ModelCurveLast;
  for (int n = 1; n <= s_.FieldCount && n <= 51; ++n) {
    const double a = s_.FieldTable(n, 1).num(), field = s_.FieldTable(n, 2).num();
    int k = j;
    while (k <= last - 2 && !(s_.ModelCurve(k, 2).num() <= a && s_.ModelCurve(k + 1, 2).num() > a))
      ++k;
    if (k > last - 2 || !(field > 0)) continue;
    j = k;
    const double a0 = s_.ModelCurve(k, 2).num(), a1 = s_.ModelCurve(k + 1, 2).num();
    const double r0 = s_.ModelCurve(k, 1).num(), r1 = s_.ModelCurve(k + 1, 1).num();
    const double theory = r0 + (r1 - r0) * (a - a0) / (a1 - a0);
    out.push_back(100.0 * (theory - field) / field);
  }
  return true;
}

double DeviationMisfit::rms(const double* rho, const double* h) {
  static thread_local std::vector<double> d;
  if (!deviations(rho, h, d) || d.empty()) return std::numeric_limits<double>::infinity();
  double sum = 0;
  for (double v : d) sum += v * v;
  return std::sqrt(sum / static_cast<double>(d.size()));
}

}  // namespace tellux
