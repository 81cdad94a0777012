// The report against its page operations: the tables over as many pages as their rows need and
// the model's altitudes as the sounding stands. The layouts of the report, a location without Y,
// a one-layer model, PASI units and the lying page are in the goldens of tests/cli.
#include "plot/report_page.h"

#include "core/runtime/arithmetic.h"
#include "core/runtime/number_text.h"
#include "model/equivalence_store.h"
#include "model/forward.h"
#include "model/layer_depths.h"
#include "plot_fixture.h"

namespace tellux::testing {
namespace {

class ReportTest : public PlotTest {
 protected:
  void SetUp() override {
    PlotTest::SetUp();
    field({{1, 100}, {10, 40}, {100, 300}});
    model({{100, 2}, {20, 15}, {500, 0}});
    s.FileName = "R1.TX3";
    s.LocationX = "1000";
    s.LocationY = "2000";
    s.LocationZ = "120";
    s.CommentText = "near the well";
  }
  // The report on an A4 sheet, upright or lying, with the model's curve computed first.
  void build(bool lying = false, bool depths = true) {
    if (lying) std::swap(doc.PageWidth, doc.PageHeight);
    if (depths) ComputeDepths(session);
    s.WorkMode = mode::kNormal;
    ForwardCurve(session);
    s.WorkMode = "";
    build_report(session, doc, 1134, 1134, 1134, 1245);
  }
  // Fifty readings (resistivities above 1000) and twenty layers of 80 ohm.m.
  void long_sounding() {
    std::vector<std::pair<double, double>> rows;
    for (double ab : typical_spacings(50)) rows.emplace_back(ab, 1000 + ab);
    field(rows);
    model(std::vector<Layer>(20, Layer{80, 0.7}));
  }
  // The texts written on page `p` (from 1), in order: free texts and table cells.
  std::vector<std::string> texts(int p) const {
    std::vector<std::string> out;
    for (const PageOp& op : doc.pages().at(size_t(p - 1)).ops)
      if (op.kind == PageOp::Kind::Text || op.kind == PageOp::Kind::Cell) out.push_back(op.text);
    return out;
  }
  bool has(int p, const std::string& text) const {
    const auto t = texts(p);
    return std::find(t.begin(), t.end(), text) != t.end();
  }
  PageDocument doc;
};

// Every row of both tables stands inside the margins, on pages that repeat the title lines and
// the table's heading, upright and lying. (The direct print's sheets are in the golden
// direct_long.ops.)
TEST_F(ReportTest, LongTablesGoOnOverPagesInsideTheMargins) {
  long_sounding();
  for (const bool lying : {false, true}) {
    SCOPED_TRACE(lying);
    build(lying);
    EXPECT_EQ(doc.PageCount(), 4);
    std::vector<std::string> cells;
    for (int p = 1; p <= doc.PageCount(); ++p) {
      EXPECT_TRUE(has(p, "Electrical sounding Schlumberger - R1.TX3"));
      bool readings = false, layers = false;
      for (const PageOp& op : doc.pages()[size_t(p - 1)].ops) {
        if (op.kind != PageOp::Kind::Cell) continue;
        EXPECT_LE(op.points[3], doc.PageHeight - doc.MarginBottom) << op.text << " page " << p;
        cells.push_back(op.text);
        readings |= rt::Val(op.text) > 1000;
        layers |= op.text == "80";
      }
      EXPECT_EQ(readings, has(p, "[mA]") && has(p, "Field data and calculated values"));
      EXPECT_EQ(layers,
                has(p, "Model ") && has(p, "Resistivity     Thickness      Depth        Altitude"));
    }
    for (int n = 1; n <= 50; ++n)
      EXPECT_EQ(std::count(cells.begin(), cells.end(), rt::CStr(s.FieldTable(n, 2))), 1) << n;
    EXPECT_EQ(std::count(cells.begin(), cells.end(), "80"), 20);
    EXPECT_TRUE(has(2, "near the well"));
  }
}

// An equivalence table of twenty layers goes on over pages with the title lines and its heading.
TEST_F(ReportTest, LongEquivalenceTableGoesOnInsideTheMargins) {
  long_sounding();
  EquivalenceResult r;
  for (int i = 0; i < 20; ++i) r.fitted.emplace_back(80, i < 19 ? 0.7 : 0);
  r.ranges.resize(20, {{{1, 2}, {1, 2}, {1, 2}, {1, 2}}});
  keep_equivalence(r);
  for (const bool lying : {false, true}) {
    build(lying);
    int rows = 0, headed = 0;
    for (int p = 1; p <= doc.PageCount(); ++p) {
      EXPECT_TRUE(has(p, "Electrical sounding Schlumberger - R1.TX3")) << p;
      for (const PageOp& op : doc.pages()[size_t(p - 1)].ops)
        if (op.kind == PageOp::Kind::Cell) {
          EXPECT_LE(op.points[3], doc.PageHeight - doc.MarginBottom) << op.text << " page " << p;
        }
      const auto t = texts(p);
      rows += int(std::count(t.begin(), t.end(), "Conductance (S)"));
      headed += has(p, "Equivalence (RMS at most 0.00 %)");
    }
    EXPECT_EQ(rows, 19) << lying;
    EXPECT_GE(headed, 2) << lying;
  }
  keep_equivalence({});
}

// The altitudes are those of the Z the sounding holds when the report is built.
TEST_F(ReportTest, AltitudesOfTheZAtHand) {
  build();
  s.LocationZ = "200";
  build_report(session, doc, 1134, 1134, 1134, 1245);
  EXPECT_TRUE(has(1, "183"));  // 200 - 17 at the half space's top
  EXPECT_FALSE(has(1, "103"));
}

}  // namespace
}  // namespace tellux::testing
