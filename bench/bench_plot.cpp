// A redraw of the diagram must never lag: the frame, 40 field marks, the computed curve, the
// model's steps and the error curve on a 1000 x 620 picture should take at most 5 ms.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cmath>
#include <cstdlib>

#include "core/session.h"
#include "model/forward.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/recording_surface.h"
#include "platform/headless/scripted_dialogs.h"
#include "platform/qt/qt_drawing_surface.h"
#include "plot/bilog_frame.h"
#include "plot/bilog_view.h"

namespace {

using namespace tellux;

// 40 readings from 1 m to 1000 m on a three-layer earth, a few percent off the model.
void set_up(SoundingState& s) {
  s.SuperposeCurve = -1;
  s.WorkMode = mode::kNormal;
  s.ShowModelSteps = 1;
  s.ShowErrorCurve = 1;
  s.FieldCount = 40;
  for (int n = 1; n <= 40; ++n) {
    const double ab = std::pow(10.0, (n - 1) * 3.0 / 39);
    s.FieldTable(n, 1) = ab;
    s.FieldTable(n, 2) = 60.0 * (1 + 0.03 * std::sin(n)) * (ab < 10 ? 1.0 : ab / 10);
  }
  s.MaxAbHalf = 1000;
  s.LayerModel(1, 1) = 60.0;
  s.LayerModel(1, 2) = 2.0;
  s.LayerModel(2, 1) = 15.0;
  s.LayerModel(2, 2) = 12.0;
  s.LayerModel(3, 1) = 400.0;
  s.LayerCount = 3;
}

template <typename Surface>
void redraw(Session& session, Surface& surface) {
  DrawBilogFrame(session.s, surface);
  ForwardCurve(session);
}

void BM_RedrawOnImage(benchmark::State& state) {
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  set_up(s);
  QtDrawingSurface surface(1000, 620);
  prepare_bilog_surface(surface);
  BilogDrawing drawing(session, BilogSurfaces{&surface, nullptr, nullptr});
  drawing.attach();
  for (auto _ : state) {
    redraw(session, surface);
    benchmark::DoNotOptimize(surface.image().constBits());
  }
  state.counters["marks"] = s.FieldCount;
}
BENCHMARK(BM_RedrawOnImage)->Unit(benchmark::kMillisecond);

void BM_RedrawRecorded(benchmark::State& state) {
  SoundingState s;
  ScriptedDialogs dialogs;
  Forms forms;
  Session session{s, dialogs, forms};
  set_up(s);
  RecordingSurface surface;
  BilogDrawing drawing(session, BilogSurfaces{&surface, nullptr, nullptr});
  drawing.attach();
  for (auto _ : state) {
    surface.ops.clear();
    redraw(session, surface);
    benchmark::DoNotOptimize(surface.ops.data());
  }
  state.counters["operations"] = static_cast<double>(surface.ops.size());
}
BENCHMARK(BM_RedrawRecorded)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  // Fonts need the application object; no display is needed.
  if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
  int qt_argc = 1;
  char name[] = "tellux_bench_plot";
  char* qt_argv[] = {name, nullptr};
  QGuiApplication app(qt_argc, qt_argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
