#include "model/automatic_model.h"

#include <cmath>
#include <vector>

#include "model/field_rows.h"
#include "session_fixture.h"

namespace tellux {
namespace {

class AutomaticModelTest : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    s.WorkMode = mode::kNormal;
    s.ModelSensitivity = 0.3;
  }
  void field(const std::vector<std::pair<double, double>>& rows) { testing::set_field(s, rows); }
  // Points one decade apart from AB/2 = 1 whose log-log slopes are the given ones.
  void field_with_slopes(double rho, const std::vector<double>& slopes) {
    std::vector<std::pair<double, double>> rows{{1, rho}};
    for (double slope : slopes)
      rows.emplace_back(rows.back().first * 10, rho *= std::pow(10.0, slope));
    field(rows);
  }
  double rho(int n) const { return s.LayerModel(n, 1).num(); }
  double h(int n) const { return s.LayerModel(n, 2).num(); }
  float F(int r, int c) const { return static_cast<float>(s.FieldTable(r, c).num()); }
};

// Two equal rows or a first spacing of zero (guarded by the shift of 0.001) give one layer of
// that resistivity without thickness; the whole model is overwritten and the locks cleared.
TEST_F(AutomaticModelTest, AFlatCurveGivesOneLayerWithoutThickness) {
  for (int points : {2, 3}) {
    for (int r = 1; r <= 20; ++r) {
      s.LayerModel(r, 1) = 7.0;
      s.LayerModel(r, 2) = 3.0;
      s.LayerLocks[r] = 3;
    }
    if (points == 3) field({{0, 50}, {10, 50}, {20, 50}});
    if (points == 2) field({{1, 50}, {10, 50}});
    AutomaticModel(session);
    EXPECT_EQ(s.LayerCount, 1) << points;
    EXPECT_EQ(std::vector<double>({rho(1), h(1), rho(2), h(20)}),
              std::vector<double>({50, 0, 0, 0}));
    for (int r = 1; r <= 20; ++r) EXPECT_EQ(s.LayerLocks[r], 0);
    EXPECT_EQ(s.WorkMode, "AUTOMATIC");
    EXPECT_TRUE(dialogs.messages.empty());
  }
}

TEST_F(AutomaticModelTest, TwoDifferentFieldRowsAddALastLayerPushedByTheSlope) {
  field({{1, 100}, {10, 300}});
  AutomaticModel(session);
  ASSERT_EQ(s.LayerCount, 2);
  // slope = ln 3 / (ln 10 - ln 1.001) = 0.47732; p = 6.43196; Int(p x 300 / 5) = 385.
  EXPECT_FLOAT_EQ(s.FieldSlopes[1],
                  static_cast<float>(std::log(3.0) / (std::log(10.0) - std::log(1.001))));
  EXPECT_EQ(rho(1), 100);
  EXPECT_EQ(h(1), 1);
  EXPECT_EQ(rho(2), 385);
  EXPECT_EQ(h(2), 0);  // the half space
}

// Slopes 0.1, 0.05, -0.1: a flat spot whose sign turns opens a layer though the jump (0.2) is under
// the sensitivity; the last reading is within 0.2 (in ln) of it, so no last layer is added. (The
// Wenner thicknesses are in the golden automatic models.)
TEST_F(AutomaticModelTest, AFlatSpotWithATurnOpensALayerWhateverTheJump) {
  field_with_slopes(100, {0.1, 0.05, -0.1});
  AutomaticModel(session);
  ASSERT_EQ(s.LayerCount, 2);
  EXPECT_DOUBLE_EQ(rho(2), F(2, 2));
  EXPECT_EQ(h(2), 0);
}

TEST_F(AutomaticModelTest, TheSensitivityDecidesWhetherAJumpOpensALayer) {
  // At the third point the slopes go 0.5, 0.1, 0.4: a flat spot with a jump of about 0.1.
  field_with_slopes(100, {0.5, 0.1, 0.4});
  AutomaticModel(session);
  EXPECT_EQ(s.LayerCount, 2);  // the first layer and the last one

  s.ModelSensitivity = 0.03;  // the slider at its low end
  AutomaticModel(session);
  ASSERT_EQ(s.LayerCount, 3);
  EXPECT_DOUBLE_EQ(rho(2), F(2, 2));
  EXPECT_DOUBLE_EQ(h(2), 7);
}

TEST_F(AutomaticModelTest, ASpliceShiftsTheSlopesAndOpensNoLayerThere) {
  field({{1, 100}, {10, 200}, {20, 210}, {20, 190}, {40, 100}, {80, 50}});
  AutomaticModel(session);
  EXPECT_TRUE(dialogs.messages.empty());  // no division by the zero spacing difference
  const float s1 = s.FieldSlopes[1];
  const float s2 = static_cast<float>(std::log(210.0 / 200.0) / std::log(20.0 / 10.0));
  // At i = 3 (rows 3 and 4 share AB/2) slope 3 takes slope 2, and slope 2 takes slope 1.
  EXPECT_FLOAT_EQ(s.FieldSlopes[2], s1);
  EXPECT_FLOAT_EQ(s.FieldSlopes[3], s2);
  EXPECT_FLOAT_EQ(s.FieldSlopes[4], static_cast<float>(std::log(100.0 / 190.0) / std::log(2.0)));
}

TEST_F(AutomaticModelTest, AZeroFieldValueStopsTheBuildWithTheLanguagesMessage) {
  const std::pair<char, const char*> cases[] = {
      {'F', "Création du modèle automatique impossible..."},
      {'S', "Creación automática del modelo imposible..."},
      {'E', "Automatic model impossible..."}};
  for (auto [language, text] : cases) {
    use_language(language);
    dialogs.messages.clear();
    forms.log.clear();
    s.WorkMode = mode::kNormal;
    field({{1, 100}, {10, 200}, {20, 0}, {40, 100}});
    AutomaticModel(session);
    EXPECT_EQ(dialogs.texts(), std::vector<std::string>{text});
    EXPECT_EQ(dialogs.messages.at(0).icon, Icon::Exclamation);
    EXPECT_EQ(s.WorkMode, "NORMAL");  // unchanged
    EXPECT_EQ(rho(1), 100);           // the first layer was written and stays
    EXPECT_EQ(forms.log.back(), "pointer form 1");
  }
  field({{1, 100}});  // too few rows
  AutomaticModel(session);
  EXPECT_EQ(dialogs.texts().back(), "Automatic model impossible...");
}

TEST_F(AutomaticModelTest, ATwentySecondLayerIsASubscriptError) {
  // A zigzag whose slopes go 0.8, 0.1, -0.8, -0.1, ...: every second slope is a flat turn.
  std::vector<std::pair<double, double>> rows;
  double value = 100;
  const double slopes[] = {0.8, 0.1, -0.8, -0.1};
  for (int i = 0; i < 50; ++i) {
    rows.emplace_back(std::pow(10.0, i * 0.1), value);
    value *= std::pow(10.0, slopes[i % 4] * 0.1);
  }
  field(rows);
  AutomaticModel(session);
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Automatic model impossible..."});
  EXPECT_EQ(s.LayerCount, 22);
  EXPECT_GT(rho(21), 0);  // the rows written before the failure stay
  EXPECT_EQ(s.WorkMode, "NORMAL");
}

}  // namespace
}  // namespace tellux
