// The equivalence analysis of a fitted model, on two threads: a 3-layer sounding of 26 readings
// should take at most a second, a 4-layer one at most two.
#include <benchmark/benchmark.h>

#include "model/equivalence.h"
#include "platform/headless/scripted_dialogs.h"
#include "synthetic_sounding.h"

namespace {

using namespace tellux;

void BM_Equivalence(benchmark::State& state, std::vector<testing::Layer> model) {
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  s.WorkMode = mode::kFile;
  s.DecadeStart = 0;
  testing::make_sounding(session, model, testing::typical_spacings(26), 0.015);
  EquivalenceOptions options;
  options.jobs = static_cast<int>(state.range(0));
  long tried = 0;
  for (auto _ : state) {
    const EquivalenceResult r = analyse_equivalence(s, options);
    tried = r.models_tried;
    benchmark::DoNotOptimize(r.ranges.data());
  }
  state.counters["models"] = static_cast<double>(tried);
}

BENCHMARK_CAPTURE(BM_Equivalence, h_three_layers,
                  std::vector<testing::Layer>{{100, 10}, {5, 2}, {100, 0}})
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(BM_Equivalence, four_layers,
                  std::vector<testing::Layer>{{30, 1.5}, {300, 4}, {10, 20}, {500, 0}})
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
