#include "model/filter_error.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "model/accurate_forward.h"

namespace tellux {

bool accurate_model_curve(const SoundingState& s, int rows, double* out) {
  const int layers = s.LayerCount;
  if (layers < 1 || layers > 20) return false;
  double rho[21], thickness[21];
  for (int i = 0; i < layers; ++i) {
    rho[i] = s.LayerModel(i + 1, 1).num();
    thickness[i] = s.LayerModel(i + 1, 2).num();
  }
  return accurate_curve(s.Spread, {rho, thickness, layers}, s.DecadeStart, rows, out);
}

AccurateRows::AccurateRows(const SoundingState& s, int rows) {
  const bool wanted = s.AccurateCurves || s.FitMisfit.num() == 0.0;
  rows = std::clamp(rows, 0, kRows);
  if (wanted && accurate_model_curve(s, rows, accurate_.data())) {
    rows_ = rows;
    replace_ = s.AccurateCurves;
  }
}

void AccurateRows::finish(SoundingState& s, int last) const {
  s.FilterErrorPercent =
      rows_ == 0 ? 0.0
                 : filter_error_percent(short_.data(), accurate_.data(), std::min(last, rows_ - 1));
}

std::string filter_error_hint(const SoundingState& s) {
  if (s.AccurateCurves || !(s.FilterErrorPercent > 1.0)) return {};
  char percent[32];
  std::snprintf(percent, sizeof percent, "%.1f %%", s.FilterErrorPercent);
  return pick(s.Language, "Courbe fausse jusqu'à ", "Curva errónea hasta ", "Curve off by up to ") +
         std::string(percent) +
         pick(s.Language,
              " sur ce modèle : cochez \"Courbes précises\" (onglet Bilog Setup), puis "
              "Redessiner",
              " en este modelo: marque \"Curvas precisas\" (pestaña Bilog Setup), luego "
              "Redibujar",
              " on this model: tick \"Accurate curves\" (tab Bilog Setup), then Redraw");
}

double filter_error_percent(const double* short_rows, const double* accurate_rows, int last) {
  double worst = 0;
  for (int i = 0; i <= last; ++i) {
    const double e = std::fabs(short_rows[i] - accurate_rows[i]) / accurate_rows[i] * 100;
    if (std::isfinite(e)) worst = std::max(worst, e);
  }
  return worst;
}

}  // namespace tellux
