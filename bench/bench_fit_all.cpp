// A whole survey fitted at once: 100 soundings of 24 readings each (and 60 for the comparison of
// one worker with two), read from their files, fitted from the automatic model and written.
// Two workers should take at most 0.15 s of wall time for the 100, and be at least 1.6 times as
// fast as one.
#include <benchmark/benchmark.h>

#include <functional>

#include <unistd.h>
#include <ctime>
#include <filesystem>

#include "core/sounding_file.h"
#include "platform/headless/scripted_dialogs.h"
#include "survey/survey_fit.h"
#include "synthetic_sounding.h"

namespace {

using namespace tellux;
namespace fs = std::filesystem;

// Soundings of three to five layers that change along the line, written without a model.
const std::vector<std::string>& survey_files() {
  static const std::vector<std::string> files = [] {
    const fs::path dir =
        fs::temp_directory_path() / ("tellux_bench_survey_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    std::vector<std::string> paths;
    for (int n = 0; n < 100; ++n) {
      SoundingState s;
      ScriptedDialogs dialogs;
      Forms forms;
      Session session{s, dialogs, forms};
      const double w = 1.0 + 0.02 * n;
      std::vector<testing::Layer> truth = {{120 * w, 2 * w}, {15.0 + n % 7, 8 * w}, {300, 0}};
      if (n % 2) truth.insert(truth.begin() + 2, {60.0, 25.0});
      testing::make_sounding(session, truth, testing::typical_spacings(24), 0.02);
      s.LayerModel.erase();
      s.WorkMode = mode::kFile;
      std::string path = (dir / ("S" + std::to_string(100 + n) + ".TX3")).string();
      s.FileName = s.FilePath = path;
      write_sounding_file(session, path);
      paths.push_back(path);
    }
    return paths;
  }();
  return files;
}

// range(0): soundings; range(1): workers; range(2): 1 when each is also written (through the safe
// writer, whose flush to the disk then weighs most).
void BM_FitSurvey(benchmark::State& state) {
  const std::vector<std::string> all = survey_files();
  const std::vector<std::string> files(all.begin(), all.begin() + state.range(0));
  const fs::path out = fs::path(files.front()).parent_path() / "out";
  fs::create_directories(out);
  const SoundingState start;
  // CPU time of all the workers: on a loaded machine the wall time says little of the speed-up.
  const std::clock_t cpu_before = std::clock();
  std::function<void(FittedSounding&)> write;
  if (state.range(2) == 1)
    write = [&out](FittedSounding& f) {
      write_fitted(f, (out / fitted_file_name(f.file)).string());
    };
  for (auto _ : state) {
    std::vector<FittedSounding> fitted =
        fit_survey(start, FitChoices{}, files, static_cast<int>(state.range(1)), nullptr, write);
    benchmark::DoNotOptimize(fitted.data());
  }
  state.counters["soundings"] = static_cast<double>(files.size());
  state.counters["all_cpu_ms"] = 1000.0 * static_cast<double>(std::clock() - cpu_before) /
                                 CLOCKS_PER_SEC / static_cast<double>(state.iterations());
}
BENCHMARK(BM_FitSurvey)
    ->Args({60, 1, 0})
    ->Args({60, 2, 0})
    ->Args({100, 2, 0})
    ->Args({60, 1, 1})
    ->Args({60, 2, 1})
    ->Args({100, 2, 1})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
