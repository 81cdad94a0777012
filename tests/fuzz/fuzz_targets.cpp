#include "fuzz_targets.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>

#include "convert/backups.h"
#include "convert/instruments.h"
#include "convert/multi_sheet.h"
#include "convert/res2dinv.h"
#include "convert/syscal.h"
#include "core/default_spread.h"
#include "core/open_flow.h"
#include "core/runtime/errors.h"
#include "core/runtime/number_text.h"
#include "core/settings.h"
#include "core/sounding_file.h"
#include "model/automatic_model.h"
#include "model/forward.h"
#include "platform/headless/recording_forms.h"
#include "platform/headless/recording_surface.h"
#include "platform/headless/scripted_dialogs.h"
#include "plot/curve_drawing.h"

namespace tellux::fuzz {

namespace {

namespace fs = std::filesystem;

// A folder of this process for the files the readers and writers use.
const fs::path& work_folder() {
  static const fs::path dir = [] {
    fs::path d = fs::temp_directory_path() / ("tellux_fuzz_" + std::to_string(::getpid()));
    fs::create_directories(d);
    return d;
  }();
  return dir;
}

std::string put(const std::string& name, const std::string& bytes) {
  const fs::path p = work_folder() / name;
  std::ofstream(p, std::ios::binary) << bytes;
  return p.string();
}

struct Run {
  SoundingState s;
  BatchDialogs dialogs{nullptr};
  RecordingForms forms;
  Session session{s, dialogs, forms};
  Run() { s.WorkMode = mode::kFile; }

  // What the program does with a sounding once read.
  void use() {
    try {
      s.WorkMode = mode::kFile;
      ForwardCurve(session);
      AutomaticModel(session);
      s.WorkMode = mode::kFile;
      RecordingSurface screen;
      DrawErrorCurve(session, BilogSurfaces{&screen, nullptr, nullptr});
      std::string out = (work_folder() / "out.TX3").string();
      s.WorkMode = mode::kFile;
      write_sounding_file(session, out);
    } catch (const rt::RuntimeError&) {
      // an error the program traps: not a finding
    }
  }
  void open(const std::string& path) {
    s.FilePath = path;
    s.FileName = fs::path(path).filename().string();
    open_sounding(session);
  }
};

using Target = std::function<void(Run&, const std::string&)>;

const std::map<std::string, Target>& targets() {
  static const std::map<std::string, Target> all = {
      {"tx3", [](Run& r, const std::string& b) { r.open(put("f.TX3", b)); }},
      {"txw", [](Run& r, const std::string& b) { r.open(put("f.TXW", b)); }},
      {"txe", [](Run& r, const std::string& b) { r.open(put("f.TXE", b)); }},
      {"sev", [](Run& r, const std::string& b) { r.open(put("f.SEV", b)); }},
      {"ini",
       [](Run& r, const std::string& b) {
         Settings settings;
         const std::string path = put("Tellux6.ini", b);
         load_settings(r.s, settings, path);
         held_settings(r.s, settings);
         save_settings(r.s, settings, path);
       }},
      {"spreads", [](Run& r, const std::string& b) { read_default_spread(r.s, put("s.TXT", b)); }},
      {"syscal",
       [](Run& r, const std::string& b) {
         r.dialogs.open_choices = {{put("s.DAT", b)}};
         Syscal(r.session);
       }},
      {"res2dinv",
       [](Run& r, const std::string& b) {
         r.dialogs.open_choices = {{put("r.DAT", b)}};
         RES2DINV(
             r.session,
             [](R2diForm& f) {
               f.Text1 = "3";
               f.done = true;
             },
             work_folder().string());
       }},
      {"sheet",
       [](Run& r, const std::string& b) {
         // The first line is the spreads, the rest the soundings.
         const size_t cut = b.find('\n');
         r.dialogs.open_choices = {{put("sp.TXT", b.substr(0, cut))},
                                   {put("va.TXT", cut == std::string::npos ? "" : b.substr(cut))}};
         multiple_soundings_sheet(r.session);
       }},
      {"abem", [](Run& r, const std::string& b) { read_abem(r.session, b); }},
      {"sas1000", [](Run& r, const std::string& b) { read_sas1000(r.session, b); }},
      {"geotrade", [](Run& r, const std::string& b) { read_geotrade(r.session, b); }},
      {"pasi", [](Run& r, const std::string& b) { read_pasi(r.session, b); }},
      {"astier", [](Run& r, const std::string& b) { astier_tx3(r.session, b); }},
      {"oyo", [](Run& r, const std::string& b) { oyo_tx3(r.session, b); }},
      {"val",
       [](Run&, const std::string& b) {
         rt::Val(b);
         try {
           rt::parse_number_token(b);
         } catch (const rt::RuntimeError&) {
         }
       }},
  };
  return all;
}

}  // namespace

const std::vector<std::string>& target_names() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> n;
    for (const auto& [name, target] : targets()) n.push_back(name);
    return n;
  }();
  return names;
}

void run_reader(const std::string& name, const std::string& bytes) {
  const auto found = targets().find(name);
  if (found == targets().end()) return;
  Run run;
  try {
    found->second(run, bytes);
  } catch (const rt::RuntimeError&) {
    return;  // an error the program traps at a higher level
  }
  if (name != "val" && name != "ini") run.use();
}

std::string largest_input(const std::string& corpus_root, const std::string& name) {
  std::string seed;
  for (const auto& entry : fs::directory_iterator(fs::path(corpus_root) / name)) {
    std::ifstream in(entry.path(), std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (bytes.size() > seed.size()) seed = bytes;
  }
  if (seed.empty()) seed = "1\r\n";
  std::string out;
  while (out.size() + seed.size() < (4u << 20)) out += seed;
  return out;
}

void run_target(const std::string& name, const uint8_t* data, size_t size) {
  if (size <= 64 * 1024) run_reader(name, std::string(reinterpret_cast<const char*>(data), size));
}

}  // namespace tellux::fuzz
