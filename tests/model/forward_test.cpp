#include "model/forward.h"

#include <cmath>
#include <thread>
#include <vector>

#include "session_fixture.h"

namespace tellux {
namespace {

// Records what the calculation hands to the diagram.
struct RecordingCurve : CurveObserver {
  std::vector<std::pair<int, double>> segments;
  std::vector<int> pointers;
  int error_curves = 0, steps = 0;
  void set_pointer(int shape) override { pointers.push_back(shape); }
  void segment(int point, double value) override { segments.emplace_back(point, value); }
  void error_curve() override { ++error_curves; }
  void model_steps() override { ++steps; }
};

class ForwardTest : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    session.curve = &curve;
    s.SuperposeCurve = -1;
    s.WorkMode = mode::kNormal;
  }
  void model(std::initializer_list<std::pair<double, double>> layers) {
    s.LayerModel.erase();
    int i = 0;
    for (auto [rho, h] : layers) {
      ++i;
      s.LayerModel(i, 1) = rho;
      s.LayerModel(i, 2) = h;
    }
    s.LayerCount = static_cast<int16_t>(i);
  }
  void field(std::initializer_list<std::pair<double, double>> rows) {
    int i = 0;
    for (auto [ab, rho] : rows) {
      ++i;
      s.FieldTable(i, 1) = static_cast<float>(ab);
      s.FieldTable(i, 2) = static_cast<float>(rho);
    }
    s.FieldCount = static_cast<int16_t>(i);
    s.MaxAbHalf = 1;
  }
  RecordingCurve curve;
};

TEST_F(ForwardTest, OneLayerGivesItsResistivityThroughEachFilter) {
  field({{1, 100}, {1000, 100}});
  model({{100, 0}});
  const std::pair<SpreadType, double> expected[] = {{SpreadType::Schlumberger, 100.0},
                                                    {SpreadType::Wenner, 99.98},
                                                    {SpreadType::Dipole, 99.88298}};
  for (auto [spread, value] : expected) {
    s.Spread = spread;
    ForwardCurve(session);
    ASSERT_EQ(s.ModelCurveLast, 37);  // the row count does not depend on the array
    for (int i = 0; i <= s.ModelCurveLast; ++i)
      EXPECT_NEAR(s.ModelCurve(i, 1), value, 1e-9) << static_cast<int>(spread) << " row " << i;
  }
  EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(ForwardTest, TheRangeEndsAlmostHalfADecadePastTheLongestSpacing) {
  field({{10, 50}, {1000, 80}});
  model({{100, 0}});
  s.DecadeStart = 0;
  ForwardCurve(session);
  // E = ln(1000) x 0.4343 + 0.5 = 3.50004: row 28 (3.5) is still below it, so row 29 is made.
  EXPECT_EQ(s.ModelCurveLast, 29);
  EXPECT_DOUBLE_EQ(s.ModelCurve(29, 2), std::pow(10.0, 3.625));
  EXPECT_DOUBLE_EQ(s.ModelCurve(0, 2), 1.0);
  EXPECT_EQ(s.MaxAbHalf, 1000);
}

TEST_F(ForwardTest, ATwoLayerCurveGoesFromTheTopToTheBottomResistivity) {
  field({{1, 10}, {1000, 10}});
  model({{10, 5}, {1000, 0}});
  ForwardCurve(session);
  EXPECT_NEAR(s.ModelCurve(0, 1), 10.0, 0.01);  // AB/2 = 0.1 m sees the top layer
  // At AB/2 = 1000 m, two hundred thicknesses, the curve climbs the 45 degree asymptote.
  const double far = s.ModelCurve(s.ModelCurveLast, 1);
  EXPECT_GT(far, 500.0);
  EXPECT_LT(far, 1000.0);
  // Past the first decade the curve only rises (the filter rings a little before that).
  for (int i = 9; i <= s.ModelCurveLast; ++i)
    EXPECT_GE(s.ModelCurve(i, 1) + 1e-6, s.ModelCurve(i - 1, 1)) << i;
}

TEST_F(ForwardTest, DrawsEachRowAndThenTheWholeDiagramOnlyWhenAllowed) {
  field({{1, 100}, {100, 100}});
  model({{100, 0}});
  s.ShowErrorCurve = 1;
  s.ShowModelSteps = 1;
  ForwardCurve(session);
  ASSERT_EQ(curve.segments.size(), static_cast<size_t>(s.ModelCurveLast + 1));
  EXPECT_EQ(curve.segments.front().first, 1);  // points are counted from 1
  EXPECT_EQ(curve.error_curves, 1);
  EXPECT_EQ(curve.steps, 1);
  EXPECT_EQ(curve.pointers, (std::vector<int>{kPointerHourglass, kPointerCross}));
  EXPECT_EQ(s.ModelComputed, 1);
  EXPECT_TRUE(s.ModelEverComputed);
  EXPECT_FALSE(s.ModelOutdated);
  EXPECT_FALSE(s.FreshStart);

  // Batch work: the same computation, no drawing, the pointer left on the hourglass.
  curve = {};
  s.WorkMode = mode::kFile;
  ForwardCurve(session);
  EXPECT_TRUE(curve.segments.empty());
  EXPECT_EQ(curve.error_curves + curve.steps, 0);
  EXPECT_EQ(curve.pointers, std::vector<int>{kPointerHourglass});

  // A running fit: no drawing either.
  curve = {};
  s.WorkMode = mode::kNormal;
  s.FitMisfit = 0.5;
  ForwardCurve(session);
  EXPECT_TRUE(curve.segments.empty());
  EXPECT_EQ(curve.error_curves, 0);
}

TEST_F(ForwardTest, ANoughtMaxAbHalfComputesNothing) {
  field({{1, 100}, {100, 100}});
  model({{100, 0}});
  s.MaxAbHalf = 0;
  s.ModelCurveLast = 7;
  ForwardCurve(session);
  EXPECT_EQ(s.ModelCurveLast, 7);
  EXPECT_EQ(curve.pointers, std::vector<int>{kPointerHourglass});
  EXPECT_TRUE(s.ModelEverComputed);
}

TEST_F(ForwardTest, ANoughtResistivityAboveTheBottomIsACalculationError) {
  field({{1, 100}, {1000, 100}});
  model({{0, 10}, {100, 0}});
  const std::pair<char, const char*> texts[] = {{'E', "Calculation error..."},
                                                {'F', "Erreur de calcul"},
                                                {'S', "Error de calculo..."},
                                                {'A', "Calculation error..."}};
  for (auto [letter, text] : texts) {
    use_language(letter);
    dialogs.messages.clear();
    curve = {};
    s.ModelOutdated = true;
    ForwardCurve(session);
    ASSERT_EQ(dialogs.texts(), std::vector<std::string>{text});
    EXPECT_EQ(dialogs.messages[0].icon, Icon::Exclamation);
    // Small spacings see the layer as infinitely thick; the error comes where it thins out.
    EXPECT_GT(s.ModelCurveLast, 0);
    EXPECT_EQ(curve.error_curves, 0);
    EXPECT_EQ(curve.pointers, std::vector<int>{kPointerHourglass});
    EXPECT_FALSE(s.ModelOutdated);  // the trap goes on with the end of the routine
  }
}

TEST_F(ForwardTest, TooManyRowsStopAtTheTablesEnd) {
  field({{1, 100}, {30000, 100}});
  model({{100, 0}});
  s.DecadeStart = -8;
  ForwardCurve(session);
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Calculation error..."});
  EXPECT_EQ(s.ModelCurveLast, 101);
  EXPECT_EQ(curve.segments.size(), 102u);  // the failing row was drawn before it was stored
}

TEST_F(ForwardTest, MaxAbHalfRisesToTheLongestSpacingUnlessTheFirstThreeAddUpToOne) {
  field({{0.5, 10}, {2.5, 10}, {149.5, 10}, {250.5, 10}});
  int16_t m = 3;
  find_max_ab(s, m);
  EXPECT_EQ(m, 250);  // 250.5 rounds to the even neighbour
  field({{0.25, 10}, {0.25, 10}, {0.5, 10}, {300, 10}});
  m = 3;
  find_max_ab(s, m);
  EXPECT_EQ(m, 3);
  field({{1, 10}, {40000, 10}, {50, 10}});
  m = 1;
  find_max_ab(s, m);  // the overflowing row is passed over
  EXPECT_EQ(m, 50);
}

TEST_F(ForwardTest, MisfitCountsTheFirstAndTheLastPointTwice) {
  field({{10, 200}});
  model({{100, 0}});
  ForwardCurve(session);
  Cell misfit;
  FieldMisfit(s, misfit);
  const double t = std::fabs(std::log(200.0 / 100.0) / 2.30258) + 0.0000001;
  EXPECT_NEAR(misfit.num(), 3 * t * t, 1e-12);

  // A spacing outside the computed range is left out; the last evaluated t counts again.
  field({{10, 200}, {100, 50}, {1e6, 1}});
  s.MaxAbHalf = 100;
  ForwardCurve(session);
  FieldMisfit(s, misfit);
  const double t2 = std::fabs(std::log(50.0 / 100.0) / 2.30258) + 0.0000001;
  EXPECT_NEAR(misfit.num(), 2 * t * t + t2 * t2 + t2 * t2, 1e-12);
}

TEST_F(ForwardTest, DeviationsArePercentagesAndOutsidePointsGetAPlace) {
  field({{10, 125}, {100, 80}, {1e6, 100}});
  s.MaxAbHalf = 100;
  model({{100, 0}});
  ForwardCurve(session);
  compute_deviations(s);
  EXPECT_NEAR(s.ModelCurve(1, 3), 20.0, 1e-9);
  EXPECT_NEAR(s.ModelCurve(2, 3), 25.0, 1e-9);
  EXPECT_DOUBLE_EQ(s.ModelCurve(3, 3), 0.001);
}

TEST_F(ForwardTest, WennerAndDipoleFollowTheirOwnFilters) {
  // A thin conductive layer over a resistive base: each array's curve is its own, but all rise
  // from about 10 towards 1000 ohm.m (the long dipole filter already feels the base at 0.1 m).
  field({{1, 10}, {1000, 10}});
  model({{10, 2}, {1000, 0}});
  std::vector<double> last;
  for (SpreadType spread : {SpreadType::Schlumberger, SpreadType::Wenner, SpreadType::Dipole}) {
    s.Spread = spread;
    ForwardCurve(session);
    EXPECT_NEAR(s.ModelCurve(0, 1), 10.0, spread == SpreadType::Dipole ? 2.0 : 0.2);
    last.push_back(s.ModelCurve(s.ModelCurveLast, 1));
  }
  EXPECT_NE(last[0], last[1]);
  EXPECT_NE(last[0], last[2]);
  for (double v : last) EXPECT_GT(v, 500.0);
}

// The abscissas and layer terms kept between runs must never leak from one model, array or left
// edge into another: each curve equals the one a fresh thread (with nothing kept) computes.
TEST_F(ForwardTest, WhatIsKeptBetweenRunsNeverChangesAResult) {
  field({{1, 100}, {300, 100}});
  s.WorkMode = mode::kFile;
  const auto curve_of = [this](SoundingState& state) {
    std::vector<double> out;
    for (int i = 0; i <= state.ModelCurveLast; ++i) out.push_back(state.ModelCurve(i, 1));
    return out;
  };
  const auto fresh = [&curve_of](const SoundingState& state) {
    SoundingState copy = state;
    std::vector<double> out;
    std::thread([&] {
      ScriptedDialogs d;
      Forms f;
      Session other{copy, d, f};
      ForwardCurve(other);
      out = curve_of(copy);
    }).join();
    return out;
  };
  model({{50, 2}, {400, 10}, {20, 0}});
  for (SpreadType spread : {SpreadType::Schlumberger, SpreadType::Wenner, SpreadType::Dipole}) {
    for (int16_t left : {int16_t{-1}, int16_t{0}}) {
      s.Spread = spread;
      s.DecadeStart = left;
      for (double h : {2.0, 2.5, 2.5, 40.0}) {
        s.LayerModel(1, 2) = h;
        s.LayerModel(2, 1) = 400.0 + h;
        ForwardCurve(session);
        EXPECT_EQ(curve_of(s), fresh(s)) << static_cast<int>(spread) << " " << left << " " << h;
      }
    }
  }
}

}  // namespace
}  // namespace tellux
