#include "model/fit.h"

#include <cmath>

#include "core/runtime/arithmetic.h"
#include "model/forward.h"
#include "model/round_model.h"

namespace tellux {

namespace {

// Bounds that one try may push a parameter to. The ceiling that is tested and the value that is
// set differ on purpose.
constexpr double kFloor = 0.001;
constexpr double kCeilingTest = 160000;
constexpr double kCeilingValue = 150000;
// A line search ends when the step is no more than this fraction of the value.
constexpr double kStepFloor = 0.005;
// The fit ends after a pass that leaves the misfit at or below this.
constexpr double kGoodEnough = 0.00001;
// Layers thinner than this are dropped from the fitted model.
constexpr double kThinLayer = 0.01;

constexpr int kThickness = 2;
constexpr int kResistivity = 1;

int sign(double v) { return v > 0 ? 1 : (v < 0 ? -1 : 0); }

class Search {
 public:
  Search(Session& session, FitReport& report) : session_(session), s_(session.s), report_(report) {}

  void run() {
    delta_ = rt::Div(0.02, s_.LayerCount);
    scale_ = rt::Div(0.5, delta_);
    FieldMisfit(s_, s_.FitMisfit);  // from here on ForwardCurve draws nothing
    previous_ = s_.FitMisfit.num();
    for (;;) {
      const double pass_start = s_.FitMisfit.num();
      ++report_.passes;
      for (int i = 1; i <= s_.LayerCount; ++i) {
        for (const int c : {kThickness, kResistivity}) {
          const int lock = s_.LayerLocks[i];
          if (lock == 3 || lock == c) continue;
          if (i == s_.LayerCount && c == kThickness) continue;  // the half space has none
          line_search(i, c);
        }
      }
      const double pass_change = rt::Div(pass_start - s_.FitMisfit.num(), pass_start);
      if (!(std::fabs(pass_change) > delta_ * s_.LayerCount && s_.FitMisfit.num() > kGoodEnough))
        return;
      scale_ = rt::Pow(scale_, 0.5);
    }
  }

 private:
  // Moves LayerModel(i, c) along a line: forward while the misfit falls, back by one and a half
  // steps with half the step when it rises; the parameter goes back to where it was if the line
  // brought nothing.
  void line_search(int i, int c) {
    Cell& cell = s_.LayerModel(i, c);
    const Cell param_value = cell;
    double step = 2 * (delta_ * (scale_ * param_value.num()));
    const double param_start = s_.FitMisfit.num();
    int direction = 1;
    double change = 0;
    do {
      if (direction == 1) {
        cell = cell.num() + step;
      } else {
        // Back over the last point; the last misfit that was not spoiled is the reference again.
        step = -step / 2;
        cell = cell.num() + step * 3;
        s_.FitMisfit = previous_;
      }
      if (cell.num() < kFloor) cell = kFloor;
      if (cell.num() > kCeilingTest) cell = kCeilingValue;
      ForwardCurve(session_);
      ++report_.tries;
      previous_ = s_.FitMisfit.num();
      FieldMisfit(s_, s_.FitMisfit);
      change = rt::Div(previous_ - s_.FitMisfit.num(), previous_);
      direction = sign(change);
    } while (std::fabs(change) > delta_ && std::fabs(step) > kStepFloor * cell.num());
    if (s_.FitMisfit.num() > param_start) {
      cell = param_value;
      s_.FitMisfit = param_start;  // the curve is left as it is: the next try computes it again
    }
  }

  Session& session_;
  SoundingState& s_;
  FitReport& report_;
  double delta_ = 0;
  double scale_ = 0;
  double previous_ = 0;
};

// Drops the layer of row i: the rows below move up with their locks, the freed row is emptied.
void drop_layer(SoundingState& s, int i) {
  for (int r = i; r < s.LayerCount; ++r) {
    s.LayerModel(r, 1) = s.LayerModel(r + 1, 1);
    s.LayerModel(r, 2) = s.LayerModel(r + 1, 2);
    s.LayerLocks[r] = s.LayerLocks[r + 1];
  }
  s.LayerModel(s.LayerCount, 1) = int16_t{0};
  s.LayerModel(s.LayerCount, 2) = int16_t{0};
  s.LayerLocks[s.LayerCount] = 0;
  --s.LayerCount;
}

// Thin layers go (never the last row) and every cell is rounded. The loop's limit is the count at
// the start; after a drop the row above is rounded again, which for the first layer is row 0.
void clean_model(SoundingState& s) {
  const int limit = s.LayerCount;
  for (int i = 1; i <= limit; ++i) {
    if (i < s.LayerCount && s.LayerModel(i, 2).num() < kThinLayer) {
      drop_layer(s, i);
      --i;
    }
    const int16_t row = static_cast<int16_t>(i);
    RoundModelValue(s, kResistivity, row);
    RoundModelValue(s, kThickness, row);
  }
}

}  // namespace

void FitModel(Session& session, FitReport* report) {
  SoundingState& s = session.s;
  FitReport local;
  if (report == nullptr) report = &local;
  *report = {};
  try {
    // Without a computed curve the misfit would mean nothing; the fit goes on all the same.
    if (s.LayerCount < 2 || s.FieldCount < 1 || !s.ModelEverComputed) ForwardCurve(session);
    session.forms.set_pointer(PointerTarget::Screen, kPointerHourglass);
    Search(session, *report).run();
    clean_model(s);
    s.FitMisfit = int16_t{0};
    ForwardCurve(session);
    session.forms.refresh_model_grid();
    session.forms.set_pointer(PointerTarget::Screen, kPointerDefault);
  } catch (const rt::RuntimeError&) {
    session.forms.set_pointer(PointerTarget::Screen, kPointerArrow);
    session.tell("Error");
  }
}

}  // namespace tellux
