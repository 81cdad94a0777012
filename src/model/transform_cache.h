#pragma once
// The transform samples of the three filters, computed so that a run repeats no work it did
// before. The abscissas of a filter depend only on the array and the left edge of the diagram;
// the tanh term of a layer only on its thickness and the abscissa. Both are kept between runs,
// so a run whose thicknesses did not change (every resistivity step of a fit, every redraw)
// evaluates no exponential: it only runs the recurrence from the bottom layer up. Each sample is
// still computed by exactly the operations, in the order, of the one-at-a-time recurrence, so
// results are the same to the last bit.
#include <cstdint>
#include <vector>

#include "core/sounding_state.h"

namespace tellux {

class TransformCache {
 public:
  // Samples per curve row (Wenner, dipole) and samples ahead of the first row (Schlumberger).
  static constexpr int kWennerPerRow = 15;
  static constexpr int kDipolePerRow = 61;
  static constexpr int kSchlumbergerPriming = 34;
  static constexpr int kMaxRows = 102;  // row 101 is the last tried: storing it fails

  // Transform samples of the model for `slots` samples of the grid of `spread` at `decade_start`
  // (Schlumberger: samples 1..slots; the others: rows x samples per row). `first_x` is the first
  // Schlumberger abscissa. Returns the samples; `first_failed` gets the first slot whose
  // abscissa or transform meets a run-time error, or `slots` when none does.
  const double* samples(SpreadType spread, int decade_start, float first_x, const double* rho,
                        const double* thickness, int layers, int slots, int& first_failed);

  // AB/2 of curve row i: 10^(i x 0.125 + DecadeStart), computed once per left edge.
  double spacing(int row) const { return spacing_[static_cast<size_t>(row)]; }

 private:
  enum Term : uint8_t { kTanh, kThick, kFailed };  // kThick: u >= 4, R takes the layer's rho

  struct LayerTerms {
    double thickness = 0.0;
    int computed = 0;  // slots whose term is known
    std::vector<double> tanh;
    std::vector<uint8_t> term;
  };

  void build_grid(SpreadType spread, int decade_start, float first_x);
  void extend(LayerTerms& layer, int slots);

  bool has_grid_ = false;
  SpreadType spread_ = SpreadType::Schlumberger;
  int decade_start_ = 0;
  float first_x_ = 0;
  std::vector<float> x_;
  int valid_slots_ = 0;  // slots from here on have no abscissa (its computation overflowed)
  std::vector<double> spacing_;
  LayerTerms layers_[21];
  std::vector<double> out_;
};

}  // namespace tellux
