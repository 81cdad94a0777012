// Makes the synthetic soundings shipped in samples/, byte for byte: the field points are the
// forward curve of a known model at usual spacings, with a little deterministic noise, and the
// readings (MN/2, DeltaV, K, I) that would have given them. K and the resistivity are worked out
// and rounded as the field sheet's Compute does, so computing a sample's sheet changes no point.
//   tellux-make-samples OUTDIR [TESTDATADIR]
// With TESTDATADIR, the samples of the tests (tests/data/report) are made there too.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "core/runtime/arithmetic.h"
#include "core/sounding_file.h"
#include "model/forward.h"
#include "model/geometric_factor.h"
#include "model/splice_shift.h"
#include "platform/headless/scripted_dialogs.h"

namespace {

using namespace tellux;

struct Layer {
  double rho, thickness;
};

struct Sample {
  const char* file;
  SpreadType spread;
  std::vector<Layer> model;
  double noise;     // relative amplitude of the noise
  bool keep_model;  // write the true model into the file
  const char* title;
  bool dense = false;  // 50 readings, for the tests of long reports
};

// Spacings of a usual field sheet; a splice repeats AB/2 where MN/2 grows.
struct Spacing {
  double ab, mn;
};

// Sixteen spacings a decade from 1 m, two significant digits, three splices: 50 readings.
std::vector<double> dense_spacings() {
  std::vector<double> ab;
  for (int j = 0; j < 47; ++j) {
    const double v = std::pow(10.0, j / 16.0);
    const double unit = std::pow(10.0, std::floor(std::log10(v)) - 1);
    ab.push_back(std::round(v / unit) * unit);
    if (j == 16 || j == 32 || j == 40) ab.push_back(ab.back());
  }
  return ab;
}

std::vector<Spacing> spacings(SpreadType spread, bool dense) {
  const std::vector<double> usual = {1,   1.5, 2,   3,   4,   5,   6,   8,  10, 10,
                                     12,  15,  20,  25,  30,  40,  50,  60, 80, 100,
                                     100, 120, 150, 200, 250, 300, 400, 500};
  const std::vector<double> ab = dense ? dense_spacings() : usual;
  std::vector<Spacing> out;
  int splices = 0;
  for (size_t i = 0; i < ab.size(); ++i) {
    if (i > 0 && ab[i] == ab[i - 1]) ++splices;
    const double mn = splices == 0 ? 0.5 : splices == 1 ? 2.5 : splices == 2 ? 10.0 : 25.0;
    if (spread == SpreadType::Schlumberger) {
      out.push_back({ab[i], mn});
    } else if (i == 0 || ab[i] != ab[i - 1]) {  // Wenner and dipole have no splices
      // The dipole's factor 3.1416 / (1/AM - 3/BN) is positive for BN above 3 AM.
      out.push_back({ab[i], spread == SpreadType::Dipole ? ab[i] * 4 : 0.0});
    }
  }
  return out;
}

// The computed curve at spacing a, interpolated in the logarithms.
double curve_at(const SoundingState& s, double a) {
  for (int k = 0; k < s.ModelCurveLast; ++k) {
    const double a0 = s.ModelCurve(k, 2), a1 = s.ModelCurve(k + 1, 2);
    if (a0 <= a && a < a1) {
      const double f = std::log(a / a0) / std::log(a1 / a0);
      return std::exp(std::log(s.ModelCurve(k, 1)) * (1 - f) +
                      std::log(s.ModelCurve(k + 1, 1)) * f);
    }
  }
  return s.ModelCurve(s.ModelCurveLast, 1);
}

// A repeatable noise in [-1, 1].
double noise(unsigned& seed) {
  seed = seed * 1103515245u + 12345u;
  return ((seed >> 8) % 20001) / 10000.0 - 1.0;
}

bool make(const Sample& sample, const std::string& dir) {
  SoundingState s;
  BatchDialogs dialogs([](const std::string& m) { std::fprintf(stderr, "%s\n", m.c_str()); });
  Forms forms;
  Session session{s, dialogs, forms};
  s.Spread = sample.spread;
  s.SuperposeCurve = -1;
  s.WorkMode = mode::kFile;
  int i = 0;
  for (const Layer& l : sample.model) {
    ++i;
    s.LayerModel(i, 1) = l.rho;
    s.LayerModel(i, 2) = l.thickness;
  }
  s.LayerCount = static_cast<int16_t>(i);
  const auto rows = spacings(sample.spread, sample.dense);
  s.FieldCount = static_cast<int16_t>(rows.size());
  for (size_t r = 0; r < rows.size(); ++r) s.FieldTable(static_cast<int>(r + 1), 1) = rows[r].ab;
  s.MaxAbHalf = 1;
  ForwardCurve(session);

  unsigned seed = 20261123u;
  int splice = 0;
  for (size_t r = 0; r < rows.size(); ++r) {
    const int n = static_cast<int>(r + 1);
    if (r > 0 && rows[r].ab == rows[r - 1].ab) ++splice;
    // The segments of a Schlumberger sounding join with a small offset, as in the field.
    const double offset = 1.0 + 0.04 * splice;
    const double rho = curve_at(s, rows[r].ab) * offset * (1.0 + sample.noise * noise(seed));
    const double k =
        round_geometric_factor(geometric_factor(sample.spread, 1, rows[r].ab, rows[r].mn));
    const double current = 50.0 + 10.0 * (n % 4);
    const double dv = std::round(rho * current / k * 10) / 10;
    s.FieldTable(n, 2) = round_resistivity(rt::Div(k * dv, current));
    s.FieldTable(n, 3) = rows[r].mn;
    s.FieldTable(n, 4) = dv;
    s.FieldTable(n, 5) = k;
    s.FieldTable(n, 6) = current;
    s.FieldTable(n, 7) = s.FieldTable(n, 2);
  }
  if (!sample.keep_model) s.LayerModel.erase();
  double depth = 0;
  for (int l = 1; sample.keep_model && l <= s.LayerCount; ++l) {
    s.LayerModel(l, 3) = depth;
    depth += s.LayerModel(l, 2).num();
  }
  s.GraphTitle = sample.title;
  s.CommentText = "Synthetic sounding made from a known model";
  s.LocationX = "1000";
  s.LocationY = "2000";
  s.LocationZ = "100";
  s.LocationAzimuth = "90";
  s.FileName = sample.file;
  std::string path = dir + "/" + sample.file;
  return write_sounding_file(session, path);
}

}  // namespace

// Twenty layers of alternating resistivity, thicker with depth.
std::vector<Layer> twenty_layers() {
  std::vector<Layer> layers;
  for (int i = 0; i < 19; ++i)
    layers.push_back(
        {i % 2 ? 25.0 + 5 * i : 150.0 + 20 * i, std::round(8 * std::pow(1.2, i)) / 10});
  layers.push_back({300, 0});
  return layers;
}

// The samples of the tests: a long sounding with a model of twenty layers.
int make_test_samples(const std::string& dir) {
  const Sample long_sounding{"long_sounding.TX3",
                             SpreadType::Schlumberger,
                             twenty_layers(),
                             0.02,
                             true,
                             "Fifty readings, twenty layers",
                             true};
  return make(long_sounding, dir) ? 0 : 1;
}

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) {
    std::fprintf(stderr, "usage: tellux-make-samples OUTDIR [TESTDATADIR]\n");
    return 2;
  }
  const Sample samples[] = {
      {"three_layers.TX3",
       SpreadType::Schlumberger,
       {{100, 2}, {20, 15}, {500, 0}},
       0.02,
       true,
       "H-type, 100/20/500 ohm.m"},
      {"four_layers.TX3",
       SpreadType::Schlumberger,
       {{30, 1.5}, {300, 6}, {15, 40}, {1000, 0}},
       0.02,
       true,
       "KH-type, four layers"},
      {"wenner_three.TX3",
       SpreadType::Wenner,
       {{50, 3}, {400, 12}, {10, 0}},
       0.01,
       true,
       "Wenner, K-type"},
      {"dipole_two.TX3", SpreadType::Dipole, {{200, 8}, {20, 0}}, 0.01, true, "Dipole, two layers"},
      {"bilog_three_layers.TX3",
       SpreadType::Schlumberger,
       {{60, 2}, {15, 12}, {400, 0}},
       0.03,
       true,
       "Synthetic three-layer sounding"},
      {"three_layers_nomodel.TX3",
       SpreadType::Schlumberger,
       {{100, 2}, {20, 15}, {500, 0}},
       0.0,
       false,
       "H-type without a model"},
  };
  int failed = 0;
  for (const Sample& sample : samples) failed += make(sample, argv[1]) ? 0 : 1;
  if (argc == 3) failed += make_test_samples(argv[2]);
  return failed;
}
