#include "model/forward.h"

#include <cmath>
#include <thread>
#include <vector>

#include "model/field_rows.h"
#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux {
namespace {

using testing::set_model;

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

constexpr SpreadType kArrays[] = {SpreadType::Schlumberger, SpreadType::Wenner, SpreadType::Dipole};

class ForwardTest : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    session.curve = &curve;
    s.SuperposeCurve = -1;
    s.WorkMode = mode::kNormal;
    field({{1, 100}, {1000, 100}});
    set_model(s, {{100, 0}});
  }
  void field(const std::vector<std::pair<double, double>>& rows) { testing::set_field(s, rows); }
  double misfit() {
    Cell m;
    FieldMisfit(s, m);
    return m.num();
  }
  RecordingCurve curve;
};

TEST_F(ForwardTest, TheRangeEndsAlmostHalfADecadePastTheLongestSpacing) {
  field({{10, 50}, {1000, 80}});
  s.DecadeStart = 0;
  ForwardCurve(session);
  // E = ln(1000) x 0.4343 + 0.5 = 3.50004: row 28 (3.5) is still below it, so row 29 is made.
  EXPECT_EQ(std::tuple(s.ModelCurveLast, s.ModelCurve(29, 2).num(), s.ModelCurve(0, 2).num(),
                       s.MaxAbHalf),
            std::tuple(29, std::pow(10.0, 3.625), 1.0, 1000));
  // Too many rows stop at the table's end.
  curve = {};
  field({{1, 100}, {30000, 100}});
  s.DecadeStart = -8;
  ForwardCurve(session);
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Calculation error..."});
  // The failing row was drawn before it was stored.
  EXPECT_EQ(std::tuple(s.ModelCurveLast, curve.segments.size()), std::tuple(101, 102u));
}

TEST_F(ForwardTest, DrawsEachRowAndThenTheWholeDiagramOnlyWhenAllowed) {
  s.ShowErrorCurve = s.ShowModelSteps = 1;
  ForwardCurve(session);
  ASSERT_EQ(curve.segments.size(), static_cast<size_t>(s.ModelCurveLast + 1));
  EXPECT_EQ(std::tuple(curve.error_curves, curve.steps, curve.pointers),
            std::tuple(1, 1, std::vector<int>{kPointerHourglass, kPointerCross}));
  EXPECT_EQ(std::tuple(s.ModelComputed, s.ModelEverComputed, s.ModelOutdated, s.FreshStart),
            std::tuple(1, true, false, false));
  // Batch work: the same computation, no drawing, the pointer left on the hourglass.
  curve = {};
  s.WorkMode = mode::kFile;
  ForwardCurve(session);
  EXPECT_EQ(std::tuple(curve.segments.size() + curve.error_curves + curve.steps, curve.pointers),
            std::tuple(0u, std::vector<int>{kPointerHourglass}));
  // A nought MaxAbHalf computes nothing.
  curve = {};
  std::tie(s.MaxAbHalf, s.ModelCurveLast, s.ModelEverComputed) = std::tuple(0, 7, false);
  ForwardCurve(session);
  EXPECT_EQ(std::tuple(s.ModelCurveLast, curve.pointers, s.ModelEverComputed),
            std::tuple(7, std::vector<int>{kPointerHourglass}, true));
}

TEST_F(ForwardTest, ANoughtResistivityAboveTheBottomIsACalculationError) {
  set_model(s, {{0, 10}, {100, 0}});
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
    // Small spacings see the layer as infinitely thick; the error comes where it thins out. The
    // trap goes on with the end of the routine.
    EXPECT_EQ(std::tuple(dialogs.messages[0].icon, s.ModelCurveLast > 0, curve.error_curves,
                         curve.pointers, s.ModelOutdated),
              std::tuple(Icon::Exclamation, true, 0, std::vector<int>{kPointerHourglass}, false));
  }
}

// 250.5 rounds to the even neighbour; an overflowing row is passed over.
TEST_F(ForwardTest, MaxAbHalfRisesToTheLongestSpacingUnlessTheFirstThreeAddUpToOne) {
  const auto max_ab = [&](std::initializer_list<std::pair<double, double>> rows, int16_t m) {
    field(rows);
    find_max_ab(s, m);
    return m;
  };
  EXPECT_EQ(max_ab({{0.5, 10}, {2.5, 10}, {149.5, 10}, {250.5, 10}}, 3), 250);
  EXPECT_EQ(max_ab({{0.25, 10}, {0.25, 10}, {0.5, 10}, {300, 10}}, 3), 3);
  EXPECT_EQ(max_ab({{1, 10}, {40000, 10}, {50, 10}}, 1), 50);
}

// A spacing outside the computed range is left out of the misfit, where the last evaluated t counts
// again, and its deviation is 0.001.
TEST_F(ForwardTest, ASpacingOutsideTheCurveIsLeftOutOfTheMisfitAndDeviations) {
  field({{10, 200}, {100, 50}, {1e6, 1}});
  s.MaxAbHalf = 100;
  ForwardCurve(session);
  const double t = std::fabs(std::log(2.0) / 2.30258) + 0.0000001;
  const double t2 = std::fabs(std::log(0.5) / 2.30258) + 0.0000001;
  EXPECT_NEAR(misfit(), 2 * t * t + t2 * t2 + t2 * t2, 1e-12);
  compute_deviations(s);
  EXPECT_NEAR(s.ModelCurve(2, 3), 100.0, 1e-9);
  EXPECT_DOUBLE_EQ(s.ModelCurve(3, 3), 0.001);
}

// The abscissas and layer terms kept between runs must never leak from one model, array or left
// edge into another: each curve equals the one a fresh thread (with nothing kept) computes.
TEST_F(ForwardTest, WhatIsKeptBetweenRunsNeverChangesAResult) {
  field({{1, 100}, {300, 100}});
  s.WorkMode = mode::kFile;
  const auto curve_of = [](SoundingState& state) {
    std::vector<double> out;
    for (int i = 0; i <= state.ModelCurveLast; ++i) out.push_back(state.ModelCurve(i, 1));
    return out;
  };
  const auto fresh = [&curve_of](SoundingState copy) {
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
  set_model(s, {{50, 2}, {400, 10}, {20, 0}});
  for (SpreadType spread : kArrays) {
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
