// Hostile inputs: every reader of outside data on the largest input the program reads (4 MB,
// its own corpus file repeated), and the program's flow for each format on a file of 100 MB,
// which is refused unread.
// The peak memory of the process so far is a counter of each run.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>

#include "convert/instruments.h"
#include "convert/multi_sheet.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "core/default_spread.h"
#include "core/open_flow.h"
#include "core/session.h"
#include "core/settings.h"
#include "fuzz_targets.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/scripted_dialogs.h"

namespace {

namespace fs = std::filesystem;

const std::string kSpreads = TELLUX_SOURCE_DIR "/tests/fuzz/spreads/DATAVES.TXT";

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

// What the program does with a file of each format once the open dialog has chosen it (the
// dialog's choices are set beforehand).
using Flow = std::function<void(tellux::Session&, const std::string& path)>;

Flow instrument(tellux::Instrument kind) {
  return [kind](tellux::Session& session, const std::string& path) {
    tellux::convert_instrument(session, kind, kSpreads, path + ".TX3");
  };
}

void opened(tellux::Session& session, const std::string& path) {
  session.s.FilePath = path;
  session.s.FileName = fs::path(path).filename().string();
  tellux::open_sounding(session);
}

const std::map<std::string, std::pair<std::string, Flow>>& formats() {
  using tellux::Instrument;
  static const std::map<std::string, std::pair<std::string, Flow>> all = {
      {"tx3", {"TX3", opened}},
      {"txw", {"TXW", opened}},
      {"txe", {"TXE", opened}},
      {"sev", {"SEV", opened}},
      {"ini",
       {"ini",
        [](tellux::Session& session, const std::string& path) {
          tellux::Settings settings;
          tellux::load_settings(session.s, settings, path);
        }}},
      {"spreads",
       {"TXT", [](tellux::Session& session,
                  const std::string& path) { tellux::read_default_spread(session.s, path); }}},
      {"syscal",
       {"DAT", [](tellux::Session& session, const std::string&) { tellux::Syscal(session); }}},
      {"res2dinv",
       {"DAT",
        [](tellux::Session& session, const std::string& path) {
          tellux::RES2DINV(
              session, [](tellux::R2diForm& f) { f.done = true; },
              fs::path(path).parent_path().string());
        }}},
      {"sheet",
       {"TXT", [](tellux::Session& session,
                  const std::string&) { tellux::multiple_soundings_sheet(session); }}},
      {"abem", {"VES", instrument(Instrument::Abem)}},
      {"sas1000", {"amp", instrument(Instrument::Sas1000)}},
      {"geotrade", {"GTR", instrument(Instrument::Geotrade)}},
      {"pasi", {"TXT", instrument(Instrument::Pasi)}},
      {"astier", {"dat", instrument(Instrument::Astier)}},
      {"oyo", {"csv", instrument(Instrument::Oyo)}},
  };
  return all;
}

// A file of 100 MB: the format's largest corpus file, then zeros.
void BM_HundredMegabytes(benchmark::State& state, const std::string& format) {
  const auto& [extension, flow] = formats().at(format);
  const fs::path scratch = fs::temp_directory_path() / ("tellux_big_" + std::to_string(::getpid()));
  fs::create_directories(scratch);
  const fs::path big = scratch / ("big." + extension);
  {
    std::ofstream(big, std::ios::binary)
        << tellux::fuzz::largest_input(TELLUX_SOURCE_DIR "/tests/fuzz", format);
  }
  fs::resize_file(big, 100u << 20);
  for (auto _ : state) {
    tellux::SoundingState s;
    tellux::BatchDialogs dialogs{nullptr};
    dialogs.open_choices = {{big.string()}};
    if (format == "sheet") dialogs.open_choices.push_front({kSpreads});  // its spreads come first
    tellux::RecordingForms forms;
    tellux::Session session{s, dialogs, forms};
    flow(session, big.string());
  }
  fs::remove_all(scratch);
  state.counters["peak_MB"] = peak_megabytes();
}

const bool kRegistered = [] {
  for (const std::string& target : tellux::fuzz::target_names())
    benchmark::RegisterBenchmark(("BM_ReaderOnFourMegabytes/" + target).c_str(),
                                 BM_ReaderOnFourMegabytes, target)
        ->Unit(benchmark::kMillisecond);
  for (const auto& [format, flow] : formats())
    benchmark::RegisterBenchmark(("BM_HundredMegabytes/" + format).c_str(), BM_HundredMegabytes,
                                 format)
        ->Unit(benchmark::kMicrosecond);
  return true;
}();

}  // namespace

BENCHMARK_MAIN();
