#include "model/fit.h"

#include <cmath>
#include <vector>

#include "model/forward.h"
#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux {
namespace {

using testing::Layer;

// Sees every run of the forward calculation: the model it starts from (the run sets the hourglass
// first) and what it draws.
struct Probe : CurveObserver {
  const SoundingState* s = nullptr;
  std::vector<LayerTableT> runs;
  int segments = 0, steps = 0;
  void set_pointer(int shape) override {
    if (shape == kPointerHourglass) runs.push_back(s->LayerModel);
  }
  void segment(int, double) override { ++segments; }
  void model_steps() override { ++steps; }
};

struct RefreshCounter : RecordingForms {
  int refreshed = 0;
  void refresh_model_grid() override { ++refreshed; }
};

const std::vector<Layer> kTruth = {{100, 5}, {20, 20}, {300, 0}};

class FitTest : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    probe.s = &s;
    session.curve = &probe;
    s.WorkMode = mode::kNormal;
    s.SuperposeCurve = -1;
  }
  void sounding() { testing::make_sounding(session, kTruth, testing::typical_spacings(30)); }
  // The model to start from; all its parameters locked unless unlocked afterwards.
  void start(const std::vector<Layer>& layers, int16_t lock = 0) {
    testing::set_model(s, layers);
    for (int i = 1; i <= s.LayerCount; ++i) s.LayerLocks[i] = lock;
    s.FitMisfit = int16_t{0};
    ForwardCurve(session);
    probe.runs.clear();
    probe.segments = probe.steps = 0;
    session.forward_runs = 0;
  }
  // Fits the standard sounding from `layers`, all locked but parameter(s) `lock` of row `row`.
  void fit_one(const std::vector<Layer>& layers, int row, int16_t lock) {
    sounding();
    start(layers, 3);
    s.LayerLocks[row] = lock;
    FitModel(session, &report);
  }
  double misfit() {
    Cell m;
    FieldMisfit(s, m);
    return m.num();
  }
  double rho(int n) const { return s.LayerModel(n, 1).num(); }
  double h(int n) const { return s.LayerModel(n, 2).num(); }

  Probe probe;
  FitReport report;
  RefreshCounter counting;
  Session watched{s, dialogs, counting, &probe};
};

// Only the final curve is drawn and the grid refreshed once; a model without a curve costs one run
// more.
TEST_F(FitTest, TheFitDrawsOnlyTheFinalCurve) {
  sounding();
  start({{60, 3}, {30, 30}, {200, 0}});
  FitModel(watched, &report);
  EXPECT_EQ(probe.segments, s.ModelCurveLast + 1);
  EXPECT_EQ(probe.steps, 1);
  EXPECT_EQ(counting.refreshed, 1);
  EXPECT_EQ(watched.forward_runs, report.tries + 1);
  EXPECT_EQ(counting.log.back(), "pointer screen 0");

  testing::set_model(s, kTruth);
  s.ModelEverComputed = false;
  s.FitMisfit = int16_t{0};
  session.forward_runs = 0;
  FitModel(session, &report);
  EXPECT_EQ(session.forward_runs, report.tries + 2);
}

// A zero parameter is tried once at the floor; a thickness pushed past the ceiling test (160000)
// is set to 150000.
TEST_F(FitTest, ATryIsHeldBetweenTheFloorAndTheCeiling) {
  fit_one({{100, 5}, {20, 0}, {60, 20}, {300, 0}}, 2, 1);  // only the zero thickness moves
  EXPECT_EQ(report.tries, 1);
  ASSERT_EQ(probe.runs.size(), 2u);  // the try and the final curve
  EXPECT_EQ(probe.runs[0](2, 2).num(), 0.001);
  EXPECT_EQ(s.LayerCount, 3);  // too thin: dropped at the end
  EXPECT_EQ(rho(2), 60);
  fit_one({{100, 5}, {20, 100000}, {300, 0}}, 2, 1);
  EXPECT_EQ(probe.runs[0](2, 2).num(), 150000);  // 200000 is above 160000
  EXPECT_EQ(h(2), 150000);                       // so deep it changes nothing: kept
}

TEST_F(FitTest, ThinLayersAreDroppedButNeverTheLastRow) {
  // Thinner than 0.01 m: the last row is thin too (its thickness is set before the fit), and its
  // lock moves up with it.
  sounding();
  start({{100, 0.005}, {20, 0.002}, {40, 0.01}, {60, 0.009}, {300, 0}}, 3);
  s.LayerModel(5, 2) = 0.004;
  s.LayerLocks[5] = 1;
  FitModel(session, &report);
  EXPECT_EQ(report.tries, 0);
  ASSERT_EQ(s.LayerCount, 2);
  // The last row stays, thin as it is, and is rounded; the rows below are cleared.
  const double rows[5][3] = {{40, 0.01, 3}, {300, 0, 1}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}};
  for (int r = 1; r <= 5; ++r) {
    EXPECT_EQ(rho(r), rows[r - 1][0]) << "row " << r;
    EXPECT_EQ(h(r), rows[r - 1][1]) << "row " << r;
    EXPECT_EQ(s.LayerLocks[r], rows[r - 1][2]) << "row " << r;
  }
}

TEST_F(FitTest, AMisfitAtOrBelowTheFloorEndsTheSearchAfterThatPass) {
  // Far spacings feel the first layer only a little: a line search that ends near its value
  // leaves a tiny misfit.
  testing::make_sounding(session, kTruth, {100, 126, 158, 200, 251, 316, 398, 501, 631, 794});
  start({{50, 5}, {20, 20}, {300, 0}}, 3);
  s.LayerLocks[1] = 2;  // the first try lands on the true value
  const double before = misfit();
  FitModel(session, &report);
  EXPECT_DOUBLE_EQ(probe.runs[0](1, 1).num(), 100);
  const double after = misfit();
  EXPECT_LE(after, 0.00001);
  EXPECT_GT((before - after) / before, 0.02);  // the gain alone would ask for another pass
  EXPECT_EQ(report.passes, 1);
}

TEST_F(FitTest, AMisfitOfZeroIsTrappedWithError) {
  // Spacings left of the curve's range are never bracketed: the misfit is 0, and the first change
  // divides by it.
  s.DecadeStart = 1;
  testing::make_sounding(session, {{50, 0}}, {1, 2, 5});
  testing::set_model(s, {{100, 12.345}, {20, 0}});
  FitModel(watched);
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Error"});
  EXPECT_EQ(dialogs.messages[0].icon, Icon::Exclamation);
  EXPECT_EQ(counting.log.back(), "pointer screen 1");
  EXPECT_EQ(counting.refreshed, 0);
  EXPECT_NEAR(h(1), 24.69, 1e-9);  // the doubled try, not rounded
  EXPECT_EQ(s.FitMisfit.num(), 0);
}

}  // namespace
}  // namespace tellux
