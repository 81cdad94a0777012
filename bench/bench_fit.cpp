// The fit as the user meets it: the automatic model, then the fit, on synthetic soundings. A fit of
// a 5-layer model on 30 points should take no more than about 5 ms.
#include <benchmark/benchmark.h>

#include "core/session.h"
#include "model/automatic_model.h"
#include "model/fit.h"
#include "model/forward.h"
#include "platform/headless/scripted_dialogs.h"
#include "synthetic_sounding.h"

namespace {

using namespace tellux;
using tellux::testing::Layer;

const std::vector<Layer>& truth(int layers) {
  static const std::vector<Layer> three = {{100, 5}, {20, 20}, {300, 0}};
  static const std::vector<Layer> five = {{100, 2}, {10, 5}, {50, 10}, {5, 20}, {200, 0}};
  static const std::vector<Layer> eight = {{200, 1},  {50, 2},  {300, 4}, {30, 8},
                                           {120, 15}, {10, 30}, {80, 60}, {500, 0}};
  return layers == 3 ? three : layers == 5 ? five : eight;
}

// One run: the synthetic field data with a little noise, the automatic model, the curve, the fit.
// What a fit came to: the layers left, the passes, the forward runs and the final misfit.
void report_fit(benchmark::State& state, SoundingState& s, const FitReport& report, long runs) {
  Cell misfit;
  FieldMisfit(s, misfit);
  state.counters["layers"] = s.LayerCount;
  state.counters["passes"] = report.passes;
  state.counters["forward"] = static_cast<double>(runs);
  state.counters["misfit"] = misfit.num();
}

// range(0): layers of the true model; range(1): field points.
void BM_AutomaticModelAndFit(benchmark::State& state) {
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  s.WorkMode = mode::kNormal;
  s.SuperposeCurve = -1;
  const auto spacings = tellux::testing::typical_spacings(static_cast<int>(state.range(1)));
  tellux::testing::make_sounding(session, truth(static_cast<int>(state.range(0))), spacings, 0.02);
  FitReport report;
  long runs = 0;
  for (auto _ : state) {
    s.LayerModel.erase();
    session.forward_runs = 0;
    AutomaticModel(session);
    s.WorkMode = mode::kNormal;
    s.FitMisfit = int16_t{0};
    ForwardCurve(session);
    FitModel(session, &report);
    runs = session.forward_runs;
    benchmark::DoNotOptimize(s.LayerModel(1, 1));
  }
  report_fit(state, s, report, runs);
}

// The fit alone, from the true model pushed off (resistivities x 1.3, thicknesses x 0.7), so that
// the model keeps the layer count of range(0).
void BM_FitFromAPushedModel(benchmark::State& state) {
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  s.WorkMode = mode::kNormal;
  s.SuperposeCurve = -1;
  const auto& layers = truth(static_cast<int>(state.range(0)));
  const auto spacings = tellux::testing::typical_spacings(static_cast<int>(state.range(1)));
  tellux::testing::make_sounding(session, layers, spacings, 0.02);
  std::vector<Layer> pushed = layers;
  for (Layer& l : pushed) l = {l.rho * 1.3, l.thickness * 0.7};
  FitReport report;
  long runs = 0;
  for (auto _ : state) {
    tellux::testing::set_model(s, pushed);
    session.forward_runs = 0;
    s.FitMisfit = int16_t{0};
    ForwardCurve(session);
    FitModel(session, &report);
    runs = session.forward_runs;
    benchmark::DoNotOptimize(s.LayerModel(1, 1));
  }
  report_fit(state, s, report, runs);
}

BENCHMARK(BM_FitFromAPushedModel)
    ->ArgsProduct({{3, 5, 8}, {25, 30, 40}})
    ->Unit(benchmark::kMillisecond);

BENCHMARK(BM_AutomaticModelAndFit)
    ->ArgsProduct({{3, 5, 8}, {25, 30, 40}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
