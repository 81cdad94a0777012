// What the batch command prints, draws and writes, byte for byte against files kept under
// tests/data/golden: the records it reads, the curves, models and fits it computes, the sheet,
// the report's pages, the section, the diagram, the slices and the converted files. Paths in the
// printed JSON read $SRC and $TMP. TELLUX_UPDATE_GOLDEN=1 writes the files anew; read every
// difference before committing them.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "cli_run.h"

namespace {

namespace fs = std::filesystem;

const std::string kSrc = TELLUX_SOURCE_DIR;
const std::string S = kSrc + "/samples/", D = kSrc + "/tests/data/", F = kSrc + "/tests/fuzz/";
const std::string kLine = [] {
  std::string files;
  for (int i = 1; i <= 6; ++i) files += D + "profile/L1_0" + std::to_string(i) + ".TX3 ";
  return files;
}();

struct Golden {
  const char* name;
  std::string args;  // OUT stands for a file written; without it, standard output is compared
};

const Golden kGolden[] = {
    {"open_three_layers.json", "open " + S + "three_layers.TX3"},
    {"open_sev.json", "open " + D + "open/sample.SEV"},
    {"open_deep_sev.json", "open " + D + "open/deep_layers.SEV"},
    {"open_short_sev.json", "open " + D + "open/short.SEV"},
    {"open_damaged_sev.json", "open " + D + "open/damaged.SEV"},
    {"open_level3_splice.json", "open " + D + "open/level3_splice.TX3"},
    {"open_fraction_adjusted.json", "open " + D + "open/fraction_adjusted.TX3"},
    {"open_half_array.json", "open " + D + "open/half_array.TX3"},
    {"open_full_array.json", "open " + D + "open/full_array.TX3"},
    {"open_txe.json", "open " + D + "open/sample.TXE"},
    {"open_cut_txe.json", "open " + D + "open/cut.TXE"},
    {"open_txw.json", "open " + D + "open/sample.TXW"},
    {"open_scales_txw.json", "open " + D + "open/scales.TXW"},
    {"settings.json", "settings"},
    {"forward_four_layers.json", "forward " + S + "four_layers.TX3"},
    {"forward_dipole.json", "forward " + S + "dipole_two.TX3 --array dipole"},
    {"forward_wenner.json", "forward " + S + "wenner_three.TX3 --array wenner --decade-start 0"},
    {"forward_accurate.json", "forward " + S + "dipole_two.TX3 --array dipole --accurate"},
    {"compute_three_layers.json", "compute " + S + "three_layers.TX3"},
    {"compute_dipole_half.json", "compute " + S + "dipole_two.TX3 --array dipole --half-array 2"},
    {"compute_half_shifted.json",
     "compute " + S + "bilog_three_layers.TX3 --shift 1 --half-array 2"},
    {"compute_marine.json", "compute " + S + "four_layers.TX3 --marine 0.3"},
    {"compute_wenner.json", "compute " + S + "wenner_three.TX3 --array wenner"},
    {"compute_odd_rows.json", "compute " + D + "compute/odd_rows.TX3"},
    {"compute_odd_dipole.json", "compute " + D + "compute/odd_rows.TX3 --array dipole"},
    {"compute_no_current.json", "compute " + D + "compute/no_current.TX3"},
    {"compute_lone_splice.json", "compute " + D + "compute/lone_splice.TX3 --shift 1"},
    {"compute_close_splices.json", "compute " + D + "compute/close_splices.TX3 --shift 1"},
    {"compute_close_splices_small.json",
     "compute " + D + "compute/close_splices_small.TX3 --shift 1"},
    {"automodel_nomodel.json", "automodel " + S + "three_layers_nomodel.TX3"},
    {"automodel_sensitive.json", "automodel " + S + "four_layers.TX3 --sensitivity 0.1"},
    {"automodel_wenner.json", "automodel " + S + "wenner_three.TX3 --array wenner"},
    {"fit_nomodel.json", "fit " + S + "three_layers_nomodel.TX3 --thickness-decimals 1"},
    {"fit_dipole.json", "fit " + S + "dipole_two.TX3 --array dipole"},
    {"fit_written.TX3", "fit " + S + "four_layers.TX3 --thickness-decimals 2 --out OUT"},
    {"profile_line1.json", "profile " + kLine + "--vscale 1000 --hscale 250"},
    {"colours.json", "colours --min 10 --max 2000 --classify 5,134,1000,3000"},
    {"colours_anchors.json", "colours --min 10 --max 2000 --anchors 150,16,1:249,250,255:0,0,0"},
    {"report_three_layers.ops", "report " + S + "three_layers.TX3 --steps --errors --ops OUT"},
    {"report_dipole_lying.ops",
     "report " + S + "dipole_two.TX3 --array dipole --landscape --steps --ops OUT"},
    {"report_wenner.ops", "report " + S + "wenner_three.TX3 --array wenner --errors --ops OUT"},
    {"report_long.ops", "report " + D + "report/long_sounding.TX3 --ops OUT"},
    {"report_long_lying.ops", "report " + D + "report/long_sounding.TX3 --landscape --ops OUT"},
    {"direct_long.ops",
     "report " + D + "report/long_sounding.TX3 --landscape --direct --pdf direct.pdf --ops OUT"},
    {"report_edge_location.ops",
     "report " + D + "report/edge_location.TX3 --array wenner --ops OUT"},
    {"report_pasi_wenner.ops",
     "--lang F report " + D + "report/pasi_wenner.TX3 --array wenner --ops OUT"},
    {"direct_dipole.ops", "report " + S +
                              "dipole_two.TX3 --array dipole --steps --errors --direct --pdf "
                              "direct.pdf --ops OUT"},
    {"direct_wenner.ops",
     "report " + S + "wenner_three.TX3 --array wenner --direct --pdf direct.pdf --ops OUT"},
    {"section_line1.ops", "section " + kLine +
                              "--hscale 5000 --landscape --angle 45 --title Line1 --show "
                              "colours,topo,labels,elevation,correlation,scale,names --ops OUT"},
    {"section_odd_logs.ops", "section " + D +
                                 "section/S1?.TX3 --hscale 2000 --vscale 500 "
                                 "--landscape --angle -12.5 --show labels,names --ops OUT"},
    {"section_too_big.json", "section " + kLine + "--hscale 100 --vscale 100"},
    // Beyond the page: the angle passed over from 3276.8 degrees, a floor past 32 bits without
    // elevation lines, and a sounding drawn to -1e308 whose lines stop at the page's edge.
    {"section_beyond_page.ops", "section --hscale 5000 " + D + "section/S10.TX3 " + D +
                                    "section/wild.TX3 --angle 3276.8 --ops OUT"},
    {"section_low.ops",
     "section --hscale 5000 " + D + "section/high.TX3 " + D + "section/low.TX3 --ops OUT"},
    {"section_filled.ops",
     "section " + D + "section/S1?.TX3 --hscale 2000 --vscale 500 --show fill,numbers --ops OUT"},
    {"diagram_bilog.ops", "plot " + S + "bilog_three_layers.TX3 --steps --errors --ops OUT"},
    {"diagram_dipole.ops", "plot " + S + "dipole_two.TX3 --array dipole --errors --ops OUT"},
    {"slice_res_altitude.DAT", "extract " + kLine + "--by res-altitude --altitude 95 --out OUT"},
    {"slice_thick_altitude.DAT",
     "extract " + kLine + "--by thick-altitude --altitude 90 --out OUT"},
    {"slice_res_layer.DAT", "extract " + kLine + "--by res-layer --layer 2 --out OUT"},
    {"slice_thick_layer.DAT", "extract " + kLine + "--by thick-layer --layer 1 --out OUT"},
    {"slice_depth_layer.DAT", "extract " + kLine + "--by depth-layer --layer 2 --out OUT"},
    {"abem.TX3", "convert abem " + D + "instruments/sample.VES --out OUT"},
    {"sas1000.TX3", "convert sas1000 " + D + "instruments/sample.amp --out OUT"},
    {"geotrade.TX3", "convert geotrade " + D + "instruments/sample.GTR --out OUT"},
    {"pasi.TX3", "convert pasi " + D + "instruments/sample.TXT --out OUT"},
    {"astier.TX3", "convert astier " + D + "instruments/sample.dat --out OUT"},
    {"oyo.TX3", "convert oyo " + D + "instruments/sample.csv --out OUT"},
    {"oyo_empty_items.TX3", "convert oyo " + F + "oyo/blank-items.csv --out OUT"},
    {"three_layers.TXL", "export-txl " + S + "three_layers.TX3 --out OUT"},
    // Syscal groups by change of name, cuts the name at 8 characters, sorts by AB/2 then MN/2.
    {"syscal_groups.json", "convert syscal " + D + "convert/groups.DAT --names n,s,n2 --out-dir ."},
    {"syscal_n.TX3", "convert syscal " + D +
                         "convert/groups.DAT --names syscal_north,syscal_s,c "
                         "--out-dir OUTDIR"},
    {"syscal_quoted.json", "convert syscal " + F + "syscal/quoted.DAT --out-dir ."},
    {"syscal_s.TX3",
     "convert syscal " + D + "convert/groups.DAT --names n,syscal_s --out-dir OUTDIR"},
    // A line with fewer resistivities than spreads takes the first spreads; more are refused; a
    // line of commas is one field.
    {"sheet.json", "convert sheet " + D + "convert/spreads.TXT " + D +
                       "convert/resistivities.TXT "
                       "--out-dir ."},
    {"sheet_A2.TX3", "convert sheet " + D + "convert/spreads.TXT " + D +
                         "convert/resistivities.TXT --out-dir OUTDIR"},
    {"res2dinv.json", "convert res2dinv " + D + "convert/wenner40.DAT --soundings 2 --out-dir ."},
    {"res2dinv_101.json", "convert res2dinv " + D + "convert/wenner40.DAT --soundings 101"},
    {"stop_res2dinv_array3.json",
     "convert res2dinv " + D + "convert/res2dinv_array3.DAT --soundings 1"},
    {"stop_res2dinv_5001.json",
     "convert res2dinv " + D + "convert/res2dinv_5001.DAT --soundings 1"},
    {"stop_res2dinv_ip.json", "convert res2dinv " + D + "convert/res2dinv_ip.DAT --soundings 1"},
    {"stop_res2dinv_short.json",
     "convert res2dinv " + D + "convert/res2dinv_short.DAT --soundings 1"},
    // Line 1001 and those after it wait for a file of their own; a refusal is told once.
    {"sheet_1001.json",
     "convert sheet " + D + "convert/spreads.TXT " + D + "convert/sheet_1001.TXT --out-dir ."},
    {"stop_sheet_52_spreads.json", "convert sheet " + D + "convert/spreads_52.TXT " + D +
                                       "convert/resistivities.TXT --out-dir ."},
    // The conversions that stop: the file, the row and the cause; they fail and write nothing.
    {"stop_abem.json", "convert abem " + F + "abem/52-readings.VES --out none.TX3"},
    {"stop_geotrade.json", "convert geotrade " + F + "geotrade/52-readings.GTR --out none.TX3"},
    {"stop_astier_rows.json", "convert astier " + F + "astier/100-rows.dat --out none.TX3"},
    {"stop_oyo_rows.json", "convert oyo " + F + "oyo/100-rows.csv --out none.TX3"},
    {"stop_astier_overflow.json", "convert astier " + F + "astier/ab-overflow.dat --out none.TX3"},
    {"stop_oyo_overflow.json", "convert oyo " + F + "oyo/mn-overflow.csv --out none.TX3"},
    {"stop_syscal_mn.json", "convert syscal " + F + "syscal/mn-zero.DAT --out-dir ."},
    {"stop_syscal_empty.json", "convert syscal " + F + "syscal/no-potential.DAT --out-dir ."},
    {"stop_pasi_spreads.json",
     "convert pasi " + F + "pasi/sample.TXT --spreads none.txt --out none.TX3"},
};

void replace_all(std::string& text, const std::string& from, const std::string& to) {
  for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
}

TEST(Golden, OutputsAreTheFilesKept) {
  const fs::path dir = tellux::testing::fresh_folder("tellux-golden-");
  const bool update = std::getenv("TELLUX_UPDATE_GOLDEN") != nullptr;
  for (const Golden& g : kGolden) {
    SCOPED_TRACE(g.name);
    std::string args = g.args;
    replace_all(args, "OUTDIR", dir.string());  // the folder of the file compared
    const auto r = tellux::testing::run_cli(dir, args, dir / g.name);
    if (std::string(g.name).starts_with("stop_")) {
      EXPECT_EQ(r.status, 1);
    }
    // What the command wrote, else what it printed (its messages after its record).
    std::string got = g.args.find("OUT") != std::string::npos
                          ? tellux::rt::read_whole_file((dir / g.name).string())
                          : r.out + r.err;
    replace_all(got, dir.string(), "$TMP");
    replace_all(got, kSrc, "$SRC");
    const std::string kept = kSrc + "/tests/data/golden/" + g.name;
    if (update) tellux::rt::write_file_atomically(kept, got);
    EXPECT_EQ(got, tellux::rt::read_whole_file(kept));
  }
  fs::remove_all(dir);
}

}  // namespace
