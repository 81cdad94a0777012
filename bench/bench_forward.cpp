// The forward calculation is the hot loop of the fit: one curve of a 5-layer Schlumberger model
// should take a couple of microseconds at most, with no allocation.
#include <benchmark/benchmark.h>

#include "core/session.h"
#include "model/filter_error.h"
#include "model/forward.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"

namespace {

using namespace tellux;

void set_up(SoundingState& s, SpreadType spread, int layers) {
  s.Spread = spread;
  s.SuperposeCurve = -1;
  s.DecadeStart = -1;
  s.WorkMode = mode::kFile;
  s.FieldCount = 2;
  s.FieldTable(1, 1) = 1.0f;
  s.FieldTable(1, 2) = 100.0f;
  s.FieldTable(2, 1) = 1000.0f;
  s.FieldTable(2, 2) = 100.0f;
  s.MaxAbHalf = 1000;
  double depth = 1.0;
  for (int i = 1; i <= layers; ++i) {
    s.LayerModel(i, 1) = (i % 2 ? 100.0 : 10.0) * i;
    s.LayerModel(i, 2) = i == layers ? 0.0 : depth;
    depth *= 2.5;
  }
  s.LayerCount = static_cast<int16_t>(layers);
  // As in a fit's runs: the short filter alone. Outside a fit each curve also computes the
  // accurate one for FilterErrorPercent, timed below as BM_AccurateCurveNewModel.
  s.FitMisfit = 1.0;
}

void BM_ForwardCurve(benchmark::State& state, SpreadType spread) {
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  set_up(s, spread, static_cast<int>(state.range(0)));
  for (auto _ : state) {
    ForwardCurve(session);
    benchmark::DoNotOptimize(s.ModelCurve(s.ModelCurveLast, 1));
  }
  state.counters["rows"] = s.ModelCurveLast + 1;
}

// Every thickness changes on each call, so every layer's terms are computed afresh (the first
// curve of a new model); the runs above repeat one model (a redraw, a resistivity step of a fit).
void BM_ForwardCurveNewModel(benchmark::State& state, SpreadType spread) {
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  const int layers = static_cast<int>(state.range(0));
  set_up(s, spread, layers);
  bool grow = true;
  for (auto _ : state) {
    grow = !grow;
    for (int i = 1; i < layers; ++i)
      s.LayerModel(i, 2) = grow ? s.LayerModel(i, 2).num() * 1.01 : s.LayerModel(i, 2).num() / 1.01;
    ForwardCurve(session);
    benchmark::DoNotOptimize(s.ModelCurve(s.ModelCurveLast, 1));
  }
}

// The accurate curve of a new model on the same rows (35 rows of AB/2 0.1 m to 1.8 km).
void BM_AccurateCurveNewModel(benchmark::State& state, SpreadType spread) {
  SoundingState s;
  const int layers = static_cast<int>(state.range(0));
  set_up(s, spread, layers);
  bool grow = true;
  double out[AccurateRows::kRows];
  for (auto _ : state) {
    grow = !grow;
    for (int i = 1; i < layers; ++i)
      s.LayerModel(i, 2) = grow ? s.LayerModel(i, 2).num() * 1.01 : s.LayerModel(i, 2).num() / 1.01;
    accurate_model_curve(s, 35, out);
    benchmark::DoNotOptimize(out[34]);
  }
}

BENCHMARK_CAPTURE(BM_AccurateCurveNewModel, schlumberger, SpreadType::Schlumberger)
    ->Arg(5)
    ->Arg(20);
BENCHMARK_CAPTURE(BM_AccurateCurveNewModel, wenner, SpreadType::Wenner)->Arg(5);
BENCHMARK_CAPTURE(BM_AccurateCurveNewModel, dipole, SpreadType::Dipole)->Arg(5);

BENCHMARK_CAPTURE(BM_ForwardCurveNewModel, schlumberger, SpreadType::Schlumberger)
    ->Arg(3)
    ->Arg(5)
    ->Arg(10)
    ->Arg(20);
BENCHMARK_CAPTURE(BM_ForwardCurveNewModel, wenner, SpreadType::Wenner)->Arg(5);
BENCHMARK_CAPTURE(BM_ForwardCurveNewModel, dipole, SpreadType::Dipole)->Arg(5);

BENCHMARK_CAPTURE(BM_ForwardCurve, schlumberger, SpreadType::Schlumberger)
    ->Arg(3)
    ->Arg(5)
    ->Arg(10)
    ->Arg(20);
BENCHMARK_CAPTURE(BM_ForwardCurve, wenner, SpreadType::Wenner)->Arg(3)->Arg(5)->Arg(10)->Arg(20);
BENCHMARK_CAPTURE(BM_ForwardCurve, dipole, SpreadType::Dipole)->Arg(3)->Arg(5)->Arg(10)->Arg(20);

}  // namespace
