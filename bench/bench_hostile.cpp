// Hostile inputs: every reader of outside data on the largest input the program reads (4 MB,
// its own corpus file repeated), and the open flow on a file of 100 MB, which is refused unread.
// The peak memory of the process so far is a counter of each run.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/open_flow.h"
#include "core/session.h"
#include "fuzz_targets.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"

namespace {

namespace fs = std::filesystem;

double peak_megabytes() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

void BM_ReaderOnFourMegabytes(benchmark::State& state, const std::string& target) {
  const std::string data = tellux::fuzz::largest_input(TELLUX_SOURCE_DIR "/tests/fuzz", target);
  const fs::path scratch =
      fs::temp_directory_path() / ("tellux_bench_" + std::to_string(::getpid()));
  fs::create_directories(scratch);
  const fs::path before = fs::current_path();
  fs::current_path(scratch);  // the converters write beside the current folder
  for (auto _ : state) tellux::fuzz::run_reader(target, data);
  fs::current_path(before);
  fs::remove_all(scratch);
  state.counters["peak_MB"] = peak_megabytes();
}

void BM_OpenHundredMegabytes(benchmark::State& state) {
  const fs::path big =
      fs::temp_directory_path() / ("tellux_big_" + std::to_string(::getpid()) + ".TX3");
  { std::ofstream(big, std::ios::binary) << "5\r\n"; }
  fs::resize_file(big, 100u << 20);
  for (auto _ : state) {
    tellux::SoundingState s;
    tellux::BatchDialogs dialogs{nullptr};
    tellux::RecordingForms forms;
    tellux::Session session{s, dialogs, forms};
    s.FilePath = big.string();
    s.FileName = big.filename().string();
    tellux::open_sounding(session);
  }
  fs::remove(big);
  state.counters["peak_MB"] = peak_megabytes();
}

const bool kRegistered = [] {
  for (const std::string& target : tellux::fuzz::target_names())
    benchmark::RegisterBenchmark(("BM_ReaderOnFourMegabytes/" + target).c_str(),
                                 BM_ReaderOnFourMegabytes, target)
        ->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_OpenHundredMegabytes", BM_OpenHundredMegabytes)
      ->Unit(benchmark::kMicrosecond);
  return true;
}();

}  // namespace

BENCHMARK_MAIN();
