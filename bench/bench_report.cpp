// The pages: the report of a sounding and the section of 100 soundings, each built on the page
// document alone, and built and written as PDF.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QGuiApplication>
#include <cstdlib>
#include <filesystem>

#include <fstream>
#include "app/profile_tab.h"
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

// 100 soundings 20 m apart along a line with some topography, in a fresh folder, chosen on the
// tab "Profile data".
struct Section {
  tellux::SoundingState s;
  tellux::ScriptedDialogs dialogs;
  tellux::RecordingForms forms;
  tellux::Session session{s, dialogs, forms};
  tellux::Settings settings;
  tellux::GridModel grid{51, 8};
  tellux::ProfileTab tab{session, settings, grid};
  std::filesystem::path dir = std::filesystem::temp_directory_path() /
                              ("tellux_bench_section_" + std::to_string(::getpid()));
  Section() {
    std::filesystem::create_directories(dir);
    std::vector<std::string> paths;
    for (int i = 0; i < 100; ++i) {
      const auto path = dir / ("S" + std::to_string(1000 + i) + ".TX3");
      std::ofstream out(path, std::ios::binary);
      out << "2.5\r\n10,6000,50,1000,236,100\r\n600,4000,500,100,10000,100\r\n";
      out << "6000,200,0\r\n1500," << 800 + 10 * (i % 9)
          << ",200\r\n30000,1500,1000\r\n4000,0,2500\r\n";
      for (int k = 5; k <= 20; ++k) out << "0,0,0\r\n";
      out << "\"\"\r\n\"\"\r\n\"\"\r\n\"" << 20 * i << "\"\r\n\"0\"\r\n\"" << 100 + (i % 13)
          << "\"\r\n\"\"\r\n";
      paths.push_back(path.string());
    }
    s.ResistScale = 100;
    tab.load();
    tab.sheet.Text14.Text = "20000";
    tab.sheet.Text13.Text = "1000";
    tab.sheet.select(paths);
  }
  ~Section() { std::filesystem::remove_all(dir); }
};

void BM_SectionOfHundredSoundings(benchmark::State& state) {
  Section section;
  tellux::PageDocument page;
  std::swap(page.PageWidth, page.PageHeight);
  for (auto _ : state) {
    section.tab.Trace_Profil(page);
    benchmark::DoNotOptimize(page.PageCount());
  }
}
BENCHMARK(BM_SectionOfHundredSoundings)->Unit(benchmark::kMillisecond);

void BM_SectionToPdf(benchmark::State& state) {
  Section section;
  tellux::PageDocument page;
  std::swap(page.PageWidth, page.PageHeight);
  const std::string path = (section.dir / "section.pdf").string();
  for (auto _ : state) {
    section.tab.Trace_Profil(page);
    benchmark::DoNotOptimize(tellux::write_pdf(page, QString::fromStdString(path)));
  }
}
BENCHMARK(BM_SectionToPdf)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
