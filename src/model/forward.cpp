#include "model/forward.h"

#include <algorithm>
#include <cmath>

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "model/filter_error.h"
#include "model/transform_cache.h"

namespace tellux {

namespace {

constexpr double kLog10Factor = 0.4343;  // the program's log10(e); keep it so
constexpr double kFilterOffset = 822.8;  // where the Schlumberger filter's abscissas start

// Schlumberger weights on S[1], S[3], ..., S[35].
constexpr double kSchlumbergerWeights[18] = {0.0042, -0.0103, 0.0144, -0.0211, 0.033,  -0.0574,
                                             0.1184, -0.3162, 1.0219, -2.4514, 1.8192, 0.6486,
                                             0.1739, 0.0079,  0.02,   -0.0106, 0.0093, -0.0038};

// Wenner weights on S[1]..S[14]; S[15] is computed and never used.
constexpr double kWennerWeights[14] = {0.0008, -0.0031, 0.0091, -0.0086, 0.0589, 0.138,   0.8415,
                                       1.2348, -1.7514, 0.567,  -0.1029, 0.0193, -0.0042, 0.0006};

// Dipole weights in thousandths on S[1]..S[61]. The tenth term is the plain addend 13.28: S[10]
// is computed but enters nothing. The filter is required as it stands.
constexpr double kDipoleAddend = 13.28;
constexpr double kDipoleWeights[61] = {
    -0.354,   0.541,   -0.584,   0.634,   -0.695,  0.768,   -0.859,   0.975,    -1.125,
    0.0,      -1.613,  2.034,    -2.695,  3.822,   -5.945,  10.486,   -21.64,   52.169,
    -135.369, 316.645, -510.467, 300.005, 349.389, -199.86, -361.464, -232.369, -32.379,
    100.572,  170.055, 184.716,  177.528, 154.707, 132.414, 107.953,  89.067,   70.692,
    57.719,   45.16,   36.9,     28.541,  23.493,  17.934,  14.959,   11.217,   9.55,
    6.977,    6.127,   4.306,    3.96,    2.626,   2.587,   1.572,    1.715,    0.911,
    1.161,    0.498,   0.807,    0.24,    0.581,   0.082,   1.32};

// Layers read once per run: the tables are checked on the way in, the hot loop then works on
// plain arrays (the model does not change during a run).
struct Layers {
  double rho[22];
  double thickness[22];
  int count;
};

Layers read_layers(const SoundingState& s) {
  Layers l{};
  l.count = s.LayerCount;
  if (l.count < 1) rt::raise(rt::kSubscript);  // no half space: the transform reads row 0..-1
  for (int i = 1; i <= l.count; ++i) {
    l.rho[i] = s.LayerModel(i, 1).num();
    l.thickness[i] = s.LayerModel(i, 2).num();
  }
  return l;
}

float single(double v) { return rt::CSng(v); }

// The filters' sums, term by term in the order of the tables. Each is a function of its own so
// that the running sum stays in a register: inlined in the row loops, it went through memory on
// every term, which cost more than the rest of a curve.
[[gnu::noinline]] double schlumberger_sum(const double* window) {
  double r = 0.0;
  for (int w = 0; w < 18; ++w) r += window[2 * w + 1] * kSchlumbergerWeights[w];
  return r;
}

[[gnu::noinline]] double wenner_sum(const double* row) {
  double r = 0.0;
  for (int w = 0; w < 14; ++w) r += row[w + 1] * kWennerWeights[w];
  return r;
}

[[gnu::noinline]] double dipole_sum(const double* row) {
  double r = 0.0;
  for (int w = 0; w < 61; ++w) r += w == 9 ? kDipoleAddend : row[w + 1] * kDipoleWeights[w];
  return r;
}

class Run {
 public:
  Run(Session& session, const Layers& layers, TransformCache& cache)
      : ss_(session),
        s_(session.s),
        l_(layers),
        S_(session.s.TransformSamples.data()),
        cache_(cache) {
    draws_ = s_.WorkMode != mode::kFile && s_.FitMisfit.num() == 0.0 && session.curve != nullptr;
  }

  // The loop's test value, ModelCurveLast x 0.125 + DecadeStart in single precision (it always
  // fits a single).
  float row_test(int last) const { return static_cast<float>(last * 0.125 + s_.DecadeStart); }

  // How many rows the loop below will make: the same test, run ahead. Row 101 is the last one
  // tried, since storing it raises the subscript error.
  int row_count(float end) const {
    int rows = 0;
    for (int last = s_.ModelCurveLast; rows < TransformCache::kMaxRows; ++last, ++rows)
      if (!(row_test(last) < end)) break;
    return rows;
  }

  // The outer loop shared by the branches: test, then advance; the last row is the first one at
  // or past `end`. `filter(i)` gives row i's resistivity or raises the row's error.
  template <typename RowFilter>
  void rows(float end, RowFilter&& filter) {
    for (;;) {
      if (!(row_test(s_.ModelCurveLast) < end)) return;
      const int i = ++s_.ModelCurveLast;
      const double r = accurate_ ? accurate_->row(i, filter(i)) : filter(i);
      if (draws_) ss_.curve->segment(i + 1, r);
      s_.ModelCurve(i, 1) = r;
      s_.ModelCurve(i, 2) = i < TransformCache::kMaxRows ? cache_.spacing(i) : 0.0;
    }
  }

  // Every sample the run needs, computed before the rows; `failed` is the first slot that meets
  // a run-time error, which fails the row (or the priming) that takes it in, exactly where the
  // one-sample-at-a-time order would.
  const double* samples(float first_x, int slots, int& failed) {
    return cache_.samples(s_.Spread, s_.DecadeStart, first_x, l_.rho, l_.thickness, l_.count, slots,
                          failed);
  }

  // The rows take their values through `rows` (the accurate curve and the filter's error).
  void use(AccurateRows* rows) { accurate_ = rows; }

  // Eight samples per decade on a sliding window of 35, every second one weighted: one new
  // sample per row after 34 of priming.
  void schlumberger(float end, float first_x) {
    constexpr int kPriming = TransformCache::kSchlumbergerPriming;
    int failed = 0;
    const double* S = samples(first_x, kPriming + row_count(end), failed);
    if (failed < kPriming) rt::raise(rt::kOverflow);
    rows(end, [&](int i) {
      if (kPriming + i >= failed) rt::raise(rt::kOverflow);
      return schlumberger_sum(S + i - 1);  // window[1..35]: samples i+1 .. i+35
    });
    keep_window(S + s_.ModelCurveLast - 1, 35);
  }

  // Four samples per decade, descending; fifteen are computed and fourteen used.
  void wenner(float end) {
    constexpr int n = TransformCache::kWennerPerRow;
    int failed = 0;
    const double* S = samples(0.f, n * row_count(end), failed);
    rows(end, [&](int i) {
      if (i * n + n > failed) rt::raise(rt::kOverflow);
      return wenner_sum(S + i * n - 1);  // row[1..15]
    });
    keep_window(S + s_.ModelCurveLast * n - 1, n);
  }

  // Ten samples per decade, ascending, over six decades.
  void dipole(float end) {
    constexpr int n = TransformCache::kDipolePerRow;
    int failed = 0;
    const double* S = samples(0.f, n * row_count(end), failed);
    rows(end, [&](int i) {
      if (i * n + n > failed) rt::raise(rt::kOverflow);
      return dipole_sum(S + i * n - 1) / 1000.0;  // row[1..61]
    });
    keep_window(S + s_.ModelCurveLast * n - 1, n);
  }

  // TransformSamples holds the samples of the last row, as the branches leave them.
  void keep_window(const double* window, int n) {
    if (s_.ModelCurveLast >= 0) std::copy(window + 1, window + 1 + n, S_ + 1);
  }

 private:
  Session& ss_;
  SoundingState& s_;
  const Layers& l_;
  double* S_;
  TransformCache& cache_;
  AccurateRows* accurate_ = nullptr;
  bool draws_ = false;
};

void set_bilog_pointer(Session& session, int shape) {
  if (session.curve) session.curve->set_pointer(shape);
}

}  // namespace

void ForwardCurve(Session& session) {
  SoundingState& s = session.s;
  ++session.forward_runs;
  try {
    s.ModelComputed = 1;
    set_bilog_pointer(session, kPointerHourglass);
    const float first_x = single(std::pow(10.0, s.DecadeStart) / kFilterOffset);
    s.FreshStart = false;
    s.ModelEverComputed = true;
    if (s.MaxAbHalf == 0) return;  // deliberate: nothing computed, the hourglass stays
    if (s.SuperposeCurve == -1) s.MaxAbHalf = 1;
    find_max_ab(s, s.MaxAbHalf);
    s.ModelCurveLast = -1;
    s.FirstPoint = true;
    const float end = single(rt::Log(s.MaxAbHalf) * kLog10Factor + 0.5);
    const Layers layers = read_layers(s);
    // The abscissas and layer terms are kept between runs (a pure memo of this thread's runs).
    static thread_local TransformCache cache;
    Run run(session, layers, cache);
    AccurateRows accurate(s, run.row_count(end));
    run.use(&accurate);
    switch (s.Spread) {
      case SpreadType::Schlumberger:
        run.schlumberger(end, first_x);
        break;
      case SpreadType::Wenner:
        run.wenner(end);
        break;
      case SpreadType::Dipole:
        run.dipole(end);
        break;
    }
    accurate.finish(s, s.ModelCurveLast);
    if (s.WorkMode == mode::kFile) return;  // the file-loading flow sets the pointer itself
    if (s.FitMisfit.num() == 0.0 && session.curve) {
      if (s.ShowErrorCurve == 1) session.curve->error_curve();
      if (s.ShowModelSteps == 1) session.curve->model_steps();
    }
    set_bilog_pointer(session, kPointerCross);
  } catch (const rt::RuntimeError&) {
    session.tell(session.text("Erreur de calcul", "Error de calculo...", "Calculation error..."));
  }
  if (s.SuperposeCurve != 1) {
    s.ModelOutdated = false;
    session.forms.revive_overlay_controls();
  }
}

namespace {

// The row k of the computed curve that brackets spacing a, searched from j; -1 when none.
int bracket(const SoundingState& s, int j, double a) {
  for (int k = j; k <= s.ModelCurveLast - 2; ++k)
    if (s.ModelCurve(k, 2).num() <= a && s.ModelCurve(k + 1, 2).num() > a) return k;
  return -1;
}

// The computed resistivity at spacing a, linear in the plain values between rows k and k + 1.
double interpolate(const SoundingState& s, int k, double a) {
  const double r0 = s.ModelCurve(k, 1).num();
  const double r1 = s.ModelCurve(k + 1, 1).num();
  const double a0 = s.ModelCurve(k, 2).num();
  const double a1 = s.ModelCurve(k + 1, 2).num();
  return r0 + rt::Div((r1 - r0) * (a - a0), a1 - a0);
}

}  // namespace

void FieldMisfit(SoundingState& s, Cell& result) {
  double acc = 0.0;
  int j = 1;
  double t = 0.0;
  for (int n = 1; n <= field_rows(s); ++n) {
    double a = 0.0;
    int k = -1;
    rt::skip([&] {
      a = s.FieldTable(n, 1).num();
      k = bracket(s, j, a);
    });
    if (k < 0) continue;
    j = k;
    double rho_t = 0.0;
    rt::skip([&] { rho_t = interpolate(s, k, a); });
    rt::skip([&] {
      t = std::fabs(rt::Log(rt::Div(s.FieldTable(n, 2).num(), rho_t)) / 2.30258) + 0.0000001;
    });
    acc += t * t;
    if (n == 1) acc *= 2;
  }
  acc += t * t;
  result = acc;
}

void compute_deviations(SoundingState& s) {
  int j = 1;
  for (int n = 1; n <= field_rows(s); ++n) {
    rt::skip([&] {
      const double a = s.FieldTable(n, 1).num();
      const int k = bracket(s, j, a);
      if (k < 0) {
        s.ModelCurve(n, 3) = 0.001;
        return;
      }
      j = k;
      const double rho_t = interpolate(s, k, a);
      const double field = s.FieldTable(n, 2).num();
      // 100 x |difference| first, then the division: the order decides the last digit.
      s.ModelCurve(n, 3) = rt::Div(100.0 * std::fabs(rho_t - field), field);
    });
  }
}

}  // namespace tellux
