// What the batch command draws and writes, byte for byte against files kept under
// tests/data/golden: the report's pages, the section, the diagram and a slice for contouring.
// TELLUX_UPDATE_GOLDEN=1 writes the files anew; look at every difference before committing them.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "core/runtime/token_file.h"

namespace {

namespace fs = std::filesystem;

const std::string kSamples = TELLUX_SOURCE_DIR "/samples/";
const std::string kLine = [] {
  std::string files;
  for (int i = 1; i <= 6; ++i)
    files += TELLUX_SOURCE_DIR "/tests/data/profile/L1_0" + std::to_string(i) + ".TX3 ";
  return files;
}();

struct Golden {
  const char* name;
  std::string args;  // OUT stands for the file written
};

const Golden kGolden[] = {
    {"report_three_layers.ops",
     "report " + kSamples + "three_layers.TX3 --steps --errors --ops OUT"},
    {"report_dipole_lying.ops",
     "report " + kSamples + "dipole_two.TX3 --array dipole --landscape --steps --ops OUT"},
    {"report_wenner.ops",
     "report " + kSamples + "wenner_three.TX3 --array wenner --errors --ops OUT"},
    {"section_line1.ops", "section " + kLine +
                              "--hscale 5000 --landscape --angle 45 --title Line1 --show "
                              "colours,topo,labels,elevation,correlation,scale,names --ops OUT"},
    {"diagram_bilog.ops", "plot " + kSamples + "bilog_three_layers.TX3 --steps --errors --ops OUT"},
    {"slice_res_altitude.DAT", "extract " + kLine + "--by res-altitude --altitude 95 --out OUT"},
};

TEST(Golden, OutputsAreTheFilesKept) {
  const fs::path dir = fs::temp_directory_path() / ("tellux-golden-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  const bool update = std::getenv("TELLUX_UPDATE_GOLDEN") != nullptr;
  for (const Golden& g : kGolden) {
    SCOPED_TRACE(g.name);
    const fs::path out = dir / g.name;
    std::string args = g.args;
    args.replace(args.find("OUT"), 3, out.string());
    const std::string line = "cd " + dir.string() + " && TELLUX_INI=" + (dir / "x.ini").string() +
                             " " + TELLUX_CLI + " " + args + " >/dev/null";
    ASSERT_EQ(std::system(line.c_str()), 0);
    const std::string kept = TELLUX_SOURCE_DIR "/tests/data/golden/" + std::string(g.name);
    if (update) fs::copy_file(out, kept, fs::copy_options::overwrite_existing);
    EXPECT_EQ(tellux::rt::read_whole_file(out.string()), tellux::rt::read_whole_file(kept));
  }
  fs::remove_all(dir);
}

}  // namespace
