// The converters: a RES2DINV section of 5000 points into 100 modelled soundings, and 500 Syscal
// rows into their files, files written.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"

namespace {

namespace fs = std::filesystem;

struct Folder {
  fs::path dir = fs::temp_directory_path() / ("tellux_bench_convert_" + std::to_string(::getpid()));
  fs::path before = fs::current_path();
  Folder() {
    fs::create_directories(dir);
    fs::current_path(dir);
  }
  ~Folder() {
    fs::current_path(before);
    fs::remove_all(dir);
  }
};

void BM_Res2dinvHundredSoundings(benchmark::State& state) {
  Folder folder;
  {
    // 20 levels of 250 points: a layered ground seen by a Wenner line.
    std::ofstream out("line.DAT");
    out << "Line\n1.0\n1\n5000\n0\n0\n";
    for (int level = 1; level <= 20; ++level)
      for (int k = 0; k < 250; ++k)
        out << k + 1.5 * level << " " << level << " " << 50 + 10 * level + (k % 7) << "\n";
  }
  tellux::SoundingState s;
  tellux::ScriptedDialogs dialogs;
  tellux::RecordingForms forms;
  tellux::Session session{s, dialogs, forms};
  const std::string path = (folder.dir / "line.DAT").string();
  for (auto _ : state) {
    dialogs.open_choices = {{path}};
    s.WorkMode = tellux::mode::kFile;
    const auto files = tellux::RES2DINV(session, [](tellux::R2diForm& f) {
      f.Text1 = "100";
      f.done = true;
    });
    if (files.size() != 100) state.SkipWithError("not 100 files");
  }
}
BENCHMARK(BM_Res2dinvHundredSoundings)->Unit(benchmark::kMillisecond);

void BM_SyscalFiveHundredRows(benchmark::State& state) {
  Folder folder;
  {
    std::ofstream out("syscal.DAT");
    out << "Name,Id,Id,V,A,AB2,MN2\n";
    for (int k = 0; k < 500; ++k)
      out << "S" << k / 25 << ",1,1," << 0.5 + 0.01 * (k % 25) << ",0.1," << 2 + 4 * (k % 25)
          << ",1\n";
  }
  tellux::SoundingState s;
  tellux::ScriptedDialogs dialogs;
  tellux::RecordingForms forms;
  tellux::Session session{s, dialogs, forms};
  const std::string path = (folder.dir / "syscal.DAT").string();
  for (auto _ : state) {
    dialogs.open_choices = {{path}};
    for (int k = 0; k < 20; ++k) dialogs.inputs.push_back("S" + std::to_string(k));
    s.WorkMode = tellux::mode::kFile;
    if (tellux::Syscal(session).size() != 20) state.SkipWithError("not 20 files");
  }
}
BENCHMARK(BM_SyscalFiveHundredRows)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
