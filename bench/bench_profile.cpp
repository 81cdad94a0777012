// The selection of 100 sounding files for a profile (reading each file, ordering the rows along
// the line, the scales and the class limits), and the extraction of a slice through 100 files.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/runtime/token_file.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"
#include "profile/extraction.h"
#include "profile/profile_sheet.h"

namespace {

namespace fs = std::filesystem;

// 100 copies of a 16-row sounding with a three-layer model, 20 m apart on a line, in a fresh
// folder.
std::vector<std::string> make_line(const fs::path& dir) {
  fs::create_directories(dir);
  const std::string sample =
      tellux::rt::read_whole_file(TELLUX_SOURCE_DIR "/tests/data/profile/L1_01.TX3");
  const std::string body = sample.substr(0, sample.find("\"Synthetic"));
  std::vector<std::string> paths;
  for (int i = 0; i < 100; ++i) {
    const fs::path path = dir / ("S" + std::to_string(1000 + i) + ".TX3");
    std::ofstream(path, std::ios::binary)
        << body << "\"\"\r\n\"\"\r\n\"\"\r\n\"" << 500 + 20 * i << "\"\r\n\"" << 300 + 5 * i
        << "\"\r\n\"" << 100 + i % 7 << "\"\r\n\"0\"\r\n";
    paths.push_back(path.string());
  }
  return paths;
}

void BM_SelectHundredSoundings(benchmark::State& state) {
  const fs::path dir =
      fs::temp_directory_path() / ("tellux_bench_profile_" + std::to_string(::getpid()));
  const std::vector<std::string> paths = make_line(dir);
  tellux::SoundingState s;
  tellux::ScriptedDialogs dialogs;
  tellux::RecordingForms forms;
  tellux::Session session{s, dialogs, forms};
  tellux::GridModel grid{51, 8};
  tellux::ProfileSheet sheet(session, grid);
  for (auto _ : state) {
    sheet.select(paths);
    benchmark::DoNotOptimize(grid.text(100, 6));
  }
  fs::remove_all(dir);
}
BENCHMARK(BM_SelectHundredSoundings)->Unit(benchmark::kMillisecond);

void BM_ExtractSliceOfHundredSoundings(benchmark::State& state) {
  const fs::path dir =
      fs::temp_directory_path() / ("tellux_bench_extract_" + std::to_string(::getpid()));
  const std::vector<std::string> paths = make_line(dir);
  tellux::SoundingState s;
  const std::string out = (dir / "slice.DAT").string();
  for (auto _ : state)
    benchmark::DoNotOptimize(
        tellux::write_slice(s, paths, tellux::Slice::ResistivityAtAltitude, "95", "", out));
  fs::remove_all(dir);
}
BENCHMARK(BM_ExtractSliceOfHundredSoundings)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
