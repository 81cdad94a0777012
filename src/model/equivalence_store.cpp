#include "model/equivalence_store.h"

#include <cmath>
#include <cstdio>
#include <optional>

#include "model/equivalence_misfit.h"
#include "model/forward.h"

namespace tellux {

namespace {

std::optional<EquivalenceResult>& store() {
  static std::optional<EquivalenceResult> kept;
  return kept;
}

std::string number(double v) {
  char text[32];
  std::snprintf(text, sizeof text, "%.4g", v);
  return text;
}

const char* quantity_caption(Quantity q, const LanguageFlags& l) {
  switch (q) {
    case Quantity::Resistivity:
      return pick(l, "Résistivité (ohm·m)", "Resistividad (ohm·m)", "Resistivity (ohm·m)");
    case Quantity::Thickness:
      return pick(l, "Épaisseur (m)", "Espesor (m)", "Thickness (m)");
    case Quantity::Conductance:
      return pick(l, "Conductance (S)", "Conductancia (S)", "Conductance (S)");
    case Quantity::TransverseResistance:
      break;
  }
  return pick(l, "Résistance transverse (ohm·m²)", "Resistencia transversal (ohm·m²)",
              "Transverse resistance (ohm·m²)");
}

}  // namespace

void keep_equivalence(const EquivalenceResult& result) { store() = result; }

const EquivalenceResult* equivalence_of_current_model(const SoundingState& s) {
  const auto& kept = store();
  if (!kept || kept->fitted.size() != static_cast<size_t>(s.LayerCount)) return nullptr;
  for (size_t i = 0; i < kept->fitted.size(); ++i) {
    const auto [rho, h] = kept->fitted[i];
    const int r = static_cast<int>(i) + 1;
    if (std::fabs(rho - s.LayerModel(r, 1).num()) > 1e-6 * rho) return nullptr;
    if (r < s.LayerCount && std::fabs(h - s.LayerModel(r, 2).num()) > 1e-6 * h) return nullptr;
  }
  return &*kept;
}

bool equivalence_band(const SoundingState& s, std::vector<double>& low, std::vector<double>& high) {
  const EquivalenceResult* r = equivalence_of_current_model(s);
  if (r == nullptr || s.ModelCurveLast < 1) return false;
  SoundingState copy = s;
  SilentDialogs dialogs;
  Forms forms;
  Session session{copy, dialogs, forms};
  copy.WorkMode = mode::kFile;
  copy.FitMisfit = 1.0;
  const int rows = std::min<int>(s.ModelCurveLast, 100) + 1;
  low.assign(static_cast<size_t>(rows), INFINITY);
  high.assign(static_cast<size_t>(rows), 0.0);
  for (const Extreme& e : r->extremes) {
    for (size_t i = 0; i < e.model.size(); ++i) {
      copy.LayerModel(static_cast<int>(i) + 1, 1) = e.model[i].first;
      copy.LayerModel(static_cast<int>(i) + 1, 2) = e.model[i].second;
    }
    ForwardCurve(session);
    for (int k = 0; k < rows && k <= copy.ModelCurveLast; ++k) {
      const double v = copy.ModelCurve(k, 1).num();
      low[static_cast<size_t>(k)] = std::min(low[static_cast<size_t>(k)], v);
      high[static_cast<size_t>(k)] = std::max(high[static_cast<size_t>(k)], v);
    }
  }
  return true;
}

std::vector<std::string> equivalence_table_titles(const LanguageFlags& l) {
  return {pick(l, "Couche", "Capa", "Layer"), pick(l, "Grandeur", "Magnitud", "Quantity"),
          pick(l, "Minimum", "Mínimo", "Minimum"), pick(l, "Ajusté", "Ajustado", "Fitted"),
          pick(l, "Maximum", "Máximo", "Maximum")};
}

std::vector<std::vector<std::string>> equivalence_table_rows(const EquivalenceResult& r,
                                                             const LanguageFlags& l) {
  std::vector<std::vector<std::string>> rows;
  for (size_t i = 0; i < r.ranges.size(); ++i)
    for (int q = 0; q < 4; ++q) {
      if (q > 0 && i + 1 == r.ranges.size()) break;  // the half space has a resistivity only
      const auto quantity = static_cast<Quantity>(q);
      const auto& range = r.ranges[i][static_cast<size_t>(q)];
      rows.push_back({q == 0 ? std::to_string(i + 1) : "", quantity_caption(quantity, l),
                      number(range.first), number(quantity_value(r.fitted, i, quantity)),
                      number(range.second)});
    }
  return rows;
}

}  // namespace tellux
