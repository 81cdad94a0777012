#pragma once
// The equivalence of a fitted model: the models that fit the field points about as well as it
// does. A model is equivalent when the root mean square of its per-point percent deviations (those
// the error curve shows, over the field points the curve brackets) is at most the threshold. For
// every layer the analysis finds the smallest and largest resistivity, thickness, conductance
// (h / rho) and transverse resistance (h x rho) of any equivalent model within the bounds, with
// the model that reaches each.
//
// Method: for each bound, a walk that moves the quantity outward in growing steps while a
// Levenberg-Marquardt fit of the other free parameters (in logarithms) keeps the model
// equivalent, then halves the last step until it is known to 0.25 %. A second pass restarts
// every walk from the best model of all walks and from a seeded perturbation of its own extreme.
// The bounds are shared out over the threads in a fixed order, so the result depends only on
// the sounding, the options and the seed.
#include <functional>
#include <string>
#include <vector>

#include "core/sounding_state.h"

namespace tellux {

enum class Quantity { Resistivity, Thickness, Conductance, TransverseResistance };
const char* quantity_name(Quantity q);  // "Resistivity", "Thickness", ...

struct EquivalenceOptions {
  double tolerance = 1.0;  // percentage points above the model's RMS
  double threshold = 0;    // above 0: the threshold itself, in percent
  double min_res = 0.1, max_res = 1e5, min_thick = 0.1, max_thick = 1e4;
  unsigned seed = 1;
  int jobs = 2;
};

using LayerPairs = std::vector<std::pair<double, double>>;  // (resistivity, thickness); last h 0

// The quantity `q` of layer `layer` (from 0) of `m`: rho, h, h / rho or h x rho.
double quantity_value(const LayerPairs& m, size_t layer, Quantity q);

struct Extreme {
  Quantity quantity = Quantity::Resistivity;
  int layer = 1;  // from 1
  bool maximum = false;
  double value = 0;
  LayerPairs model;
  double rms = 0;
};

struct EquivalenceResult {
  double best_rms = 0;
  double threshold = 0;
  LayerPairs fitted;
  // Per layer, per quantity: [min, max]; thickness quantities of the half space are unused.
  std::vector<std::array<std::pair<double, double>, 4>> ranges;
  std::vector<Extreme> extremes;
  long models_tried = 0;
  bool cancelled = false;
  std::vector<std::string> messages;
};

// Progress: (bounds done, bounds in all); returns false to cancel. Called on the calling thread.
using EquivalenceProgress = std::function<bool(int, int)>;

// Analyses the model in `LayerModel` against the field points of `s`, honouring `LayerLocks` and
// the options "Accurate curves" and the array of `s`. Leaves `s` alone.
EquivalenceResult analyse_equivalence(const SoundingState& s, const EquivalenceOptions& options,
                                      const EquivalenceProgress& progress = {});

// The RMS of the per-point percent deviations of `model` on the sounding `s` (infinity when its
// curve cannot be computed or brackets no field point).
double equivalence_rms(const SoundingState& s, const LayerPairs& model);

}  // namespace tellux
