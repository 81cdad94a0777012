#include "model/fit_button.h"

#include "core/runtime/number_text.h"
#include "session_fixture.h"
#include "synthetic_sounding.h"

namespace tellux {
namespace {

// The model window's routines, logged; the grid is read the simple way.
struct FakeWindow : ModelWindowActions {
  SoundingState* s = nullptr;
  GridModel* grid = nullptr;
  std::vector<std::string> log;
  void show_sounding_name() override { log.push_back("name"); }
  void ReadModelGrid() override {
    log.push_back("read grid");
    for (int r = 1; r <= 20; ++r)
      for (int c = 0; c <= 1; ++c) s->LayerModel(r, c + 1) = rt::Val(grid->text(r, c));
  }
  void ComputeDepths() override {
    log.push_back("depths");
    int16_t r = 1;
    while (r < 20 && s->LayerModel(r, 2).num() != 0) ++r;
    s->LayerCount = r;
  }
  void update_overlay_store() override { log.push_back("overlay store"); }
  void show_shift_word(const std::string& word) override { log.push_back("+" + word); }
  void redraw_bilog_frame() override { log.push_back("frame"); }
};

struct RefreshingForms : RecordingForms {
  int refreshed = 0;
  void refresh_model_grid() override { ++refreshed; }
};

class FitButtonTest : public testing::SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    std::tie(window.s, window.grid, grid.row, grid.col) = std::tuple(&s, &grid, 3, 1);
    s.SuperposeCurve = -1;
    testing::make_sounding(session, {{100, 5}, {20, 20}, {300, 0}}, testing::typical_spacings(25));
    s.LayerModel.erase();
    s.LayerCount = 0;
    s.WorkMode.clear();
  }
  void grid_model(std::initializer_list<std::pair<const char*, const char*>> rows) {
    int r = 0;
    for (auto [rho, h] : rows) {
      grid.set_text(++r, 0, rho);
      grid.set_text(r, 1, h);
    }
  }
  void click() { Ajuste_Button_Click(watched, grid, window); }
  void expect_grid_place_restored() {
    EXPECT_EQ(std::tuple(grid.row, grid.col, grid.redraw), std::tuple(3, 1, true));
  }

  GridModel grid{22, 4};
  FakeWindow window;
  RefreshingForms refreshing;
  Session watched{s, dialogs, refreshing};
};

// A resistivity without a thickness is too little; an empty grid asks for the automatic model,
// and No builds nothing.
TEST_F(FitButtonTest, TooLittleDataIsRefusedAndNoModelAsksForTheAutomaticOne) {
  const std::array<const char*, 3> cases[] = {
      {"F", "Il faut au moins deux valeurs de terrain et deux terrains",
       "\rIl n'y a pas de modèle déjà crée\r\nCréation automatique d'un modèle ?"},
      {"S", "Introduce por le menos dos datos de campo y dos terrenos",
       "\rNo existe ningun modelo\r\n¿Desea una creación automática de modelo?  "},
      {"E", "There must be at least two field values and two layers",
       "\rNo resistivities or thickness are available\r\nAutomatic model creation ?  "}};
  for (auto [language, too_little, question] : cases) {
    use_language(*language);
    dialogs.messages.clear();
    grid_model({{"100  ", ""}});
    click();
    EXPECT_EQ(dialogs.texts(), std::vector<std::string>{too_little});
    grid_model({{"", ""}});
    dialogs.answers = {Answer::No};
    click();
    ASSERT_EQ(dialogs.messages.size(), 2u);
    EXPECT_EQ(std::tuple(dialogs.messages[1].text, dialogs.messages[1].buttons),
              std::tuple(question, Buttons::YesNo));
  }
  EXPECT_EQ(std::tuple(s.LayerCount, refreshing.refreshed), std::tuple(0, 0));
  s.FieldTable(2, 2) = 0.0f;  // no second field value
  dialogs.messages.clear();
  click();
  EXPECT_EQ(dialogs.texts(),
            std::vector<std::string>{"There must be at least two field values and two layers"});
  EXPECT_TRUE(window.log.empty());
  expect_grid_place_restored();
}

TEST_F(FitButtonTest, YesBuildsTheAutomaticModelAndFitsIt) {
  dialogs.answers = {Answer::Yes};
  click();
  // The question only; the grid refreshed by the fit and by the button.
  EXPECT_EQ(std::tuple(dialogs.messages.size(), s.LayerCount >= 2, window.log, refreshing.refreshed,
                       s.WorkMode, s.DataSaved),
            std::tuple(1u, true, std::vector<std::string>{"frame"}, 2, "", false));
  expect_grid_place_restored();
}

// The grid is read and fitted; with the splice shift on, its word joins the sounding's name.
TEST_F(FitButtonTest, AModelInTheGridIsReadAndFitted) {
  grid_model({{"80  ", "4  "}, {"25  ", "25  "}, {"250  ", ""}});
  s.HistoryBase = 1;
  click();
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(window.log, (std::vector<std::string>{"name", "read grid", "depths", "frame"}));
  EXPECT_NE(s.LayerModel(1, 1).num(), 80);  // fitted
  EXPECT_EQ(std::tuple(s.LayerCount, s.HistoryBase, s.WorkMode), std::tuple(3, 0, ""));
  s.ShiftCurves = 1;
  for (const auto& [letter, word] : {std::pair{'S', "+Empalmes compens."}, std::pair{'F', "+lissé"},
                                     std::pair{'E', "+shifted"}}) {
    use_language(letter);
    window.log.clear();
    click();
    EXPECT_EQ(window.log, (std::vector<std::string>{"name", "read grid", "depths", word, "frame"}));
  }
}

TEST_F(FitButtonTest, WithTheOverlayBoxTickedTheStoreIsUpdatedUntilItIsFull) {
  s.SuperposeCurve = 1;
  testing::set_model(s, {{80, 4}, {250, 0}});
  grid_model({{"80  ", "4  "}, {"250  ", ""}});
  click();
  EXPECT_EQ(window.log, std::vector<std::string>{"overlay store"});
  // A full store of overlays refuses the fit: nothing more is done.
  s.HistoryLast = 19;
  click();
  EXPECT_EQ(dialogs.texts(), std::vector<std::string>{"Maximum 20 soundings superposed"});
  EXPECT_EQ(window.log, std::vector<std::string>{"overlay store"});
}

}  // namespace
}  // namespace tellux
