#pragma once
// One bound of the equivalence analysis: the walk of one quantity of one layer outward while a
// constrained fit of the other free parameters keeps the model within the threshold.
#include <atomic>
#include <vector>

#include "model/equivalence.h"
#include "model/equivalence_misfit.h"

namespace tellux {

// The parameters, in base-ten logarithms: the resistivities of layers 0..L-1, then the
// thicknesses of layers 0..L-2, each with its bounds and whether it may move.
struct ParameterSpace {
  int layers = 0;
  std::vector<double> lo, hi;
  std::vector<bool> free;
  int size() const { return 2 * layers - 1; }
};

struct Bound {
  Quantity quantity;
  int layer;      // from 0
  int direction;  // +1 largest, -1 smallest
};

// log10 of the quantity of layer `layer` in the parameter vector x.
double quantity_value(const ParameterSpace& space, const std::vector<double>& x, Quantity q,
                      int layer);

class BoundWalk {
 public:
  BoundWalk(const ParameterSpace& space, DeviationMisfit& misfit, double threshold,
            const std::atomic<bool>& cancel)
      : space_(space), misfit_(misfit), threshold_(threshold), cancel_(cancel) {}

  // True when the quantity can move at all (it is not held by locks).
  bool movable(const Bound& b) const { return eliminated(b) >= 0; }

  // Walks from the equivalent model x; x becomes the extreme model. Returns its RMS.
  double walk(const Bound& b, std::vector<double>& x);

  // Least-squares fit of the free parameters, the bound's quantity held at tau when b is given;
  // stops as soon as the RMS is within the threshold when `enough` is set. Returns the RMS
  // (infinity when the held quantity forces a parameter out of its bounds).
  double fit(std::vector<double>& x, const Bound* b, double tau, bool enough);

 private:
  int eliminated(const Bound& b) const;
  bool hold(const Bound& b, double tau, std::vector<double>& x) const;
  double residuals(const std::vector<double>& x, const Bound* b, double tau,
                   std::vector<double>& r);

  const ParameterSpace& space_;
  DeviationMisfit& misfit_;
  double threshold_;
  const std::atomic<bool>& cancel_;
};

}  // namespace tellux
