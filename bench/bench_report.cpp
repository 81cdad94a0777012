// The report of a sounding: built on the page document alone, and built and written as PDF.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QGuiApplication>
#include <cstdlib>
#include <filesystem>

#include "core/sounding_file.h"
#include "model/forward.h"
#include "model/layer_depths.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"
#include "platform/qt/qt_page_painter.h"
#include "plot/report_page.h"

namespace {

// The three-layer sample, opened and computed as the Bilog tab shows it.
struct Report {
  tellux::SoundingState s;
  tellux::ScriptedDialogs dialogs;
  tellux::RecordingForms forms;
  tellux::Session session{s, dialogs, forms};
  Report() {
    s.FileName = "three_layers.TX3";
    s.FormatLevel = 3;
    std::string path = TELLUX_SOURCE_DIR "/samples/three_layers.TX3";
    tellux::read_sounding_file(session, path);
    s.LayerCount = 3;
    tellux::ComputeDepths(session);
    s.WorkMode = tellux::mode::kNormal;
    tellux::ForwardCurve(session);
    s.WorkMode = "";
  }
};

void BM_BuildReport(benchmark::State& state) {
  Report r;
  tellux::PageDocument page;
  for (auto _ : state) {
    tellux::build_report(r.session, page, 1134, 1134, 1134, 1245);
    benchmark::DoNotOptimize(page.PageCount());
  }
}
BENCHMARK(BM_BuildReport)->Unit(benchmark::kMillisecond);

void BM_ReportToPdf(benchmark::State& state) {
  Report r;
  tellux::PageDocument page;
  const std::string path = (std::filesystem::temp_directory_path() /
                            ("tellux_bench_report_" + std::to_string(::getpid()) + ".pdf"))
                               .string();
  for (auto _ : state) {
    tellux::build_report(r.session, page, 1134, 1134, 1134, 1245);
    benchmark::DoNotOptimize(tellux::write_pdf(page, QString::fromStdString(path)));
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_ReportToPdf)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
