#include "model/forward.h"

#include <cmath>
#include <cstring>

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"

namespace tellux {

namespace {

constexpr double kLog10Factor = 0.4343;    // the program's log10(e); keep it so
constexpr double kFilterOffset = 822.8;     // where the Schlumberger filter's abscissas start
constexpr double kSchlumbergerStep = 1.333521;  // our rounded 10^(1/8); keep it
constexpr double kWennerStep = 0.5757;      // a rounded ln(10)/4; keep it
constexpr double kDipoleStep = 0.2302385;   // close to, but not, ln(10)/10: required as it is

// Schlumberger weights on S[1], S[3], ..., S[35].
constexpr double kSchlumbergerWeights[18] = {
    0.0042,  -0.0103, 0.0144, -0.0211, 0.033,  -0.0574, 0.1184,  -0.3162, 1.0219,
    -2.4514, 1.8192,  0.6486, 0.1739,  0.0079, 0.02,    -0.0106, 0.0093,  -0.0038};

// Wenner weights on S[1]..S[14]; S[15] is computed and never used.
constexpr double kWennerWeights[14] = {0.0008, -0.0031, 0.0091, -0.0086, 0.0589, 0.138,  0.8415,
                                       1.2348, -1.7514, 0.567,  -0.1029, 0.0193, -0.0042, 0.0006};

// Dipole weights in thousandths on S[1]..S[61]. The tenth term is the plain addend 13.28: S[10]
// is computed but enters nothing. The filter is required as it stands.
constexpr double kDipoleAddend = 13.28;
constexpr double kDipoleWeights[61] = {
    -0.354,  0.541,   -0.584,  0.634,   -0.695,  0.768,   -0.859,  0.975,   -1.125,   0.0,
    -1.613,  2.034,   -2.695,  3.822,   -5.945,  10.486,  -21.64,  52.169,  -135.369, 316.645,
    -510.467, 300.005, 349.389, -199.86, -361.464, -232.369, -32.379, 100.572, 170.055, 184.716,
    177.528, 154.707, 132.414, 107.953, 89.067,  70.692,  57.719,  45.16,   36.9,     28.541,
    23.493,  17.934,  14.959,  11.217,  9.55,    6.977,   6.127,   4.306,   3.96,     2.626,
    2.587,   1.572,   1.715,   0.911,   1.161,   0.498,   0.807,   0.24,    0.581,    0.082,
    1.32};

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

class Run {
 public:
  Run(Session& session, const Layers& layers)
      : ss_(session), s_(session.s), l_(layers), S_(session.s.TransformSamples.data()) {
    draws_ = s_.WorkMode != mode::kFile && s_.FitMisfit.num() == 0.0 && session.curve != nullptr;
  }

  double transform(float x) const { return layered_transform(l_.rho, l_.thickness, l_.count, x); }

  // The outer loop shared by the branches: test, then advance; the last row is the first one at
  // or past `end`.
  template <typename RowFilter>
  void rows(float end, RowFilter&& filter) {
    for (;;) {
      const float v = single(s_.ModelCurveLast * 0.125 + s_.DecadeStart);
      if (!(v < end)) return;
      const int i = ++s_.ModelCurveLast;
      const double r = filter(i);
      if (draws_) ss_.curve->segment(i + 1, r);
      s_.ModelCurve(i, 1) = r;
      s_.ModelCurve(i, 2) = std::pow(10.0, i * 0.125 + s_.DecadeStart);
    }
  }

  void schlumberger(float end, float x) {
    for (int k = 1; k <= 34; ++k) {
      S_[k] = transform(x);
      x = single(x * kSchlumbergerStep);
    }
    rows(end, [&](int) {
      S_[35] = transform(x);
      x = single(x * kSchlumbergerStep);
      double r = 0.0;
      for (int w = 0; w < 18; ++w) r += S_[2 * w + 1] * kSchlumbergerWeights[w];
      std::memmove(&S_[1], &S_[2], 34 * sizeof(double));
      return r;
    });
  }

  // Natural logarithm of the row's AB/2 as the program takes it.
  double row_log(int i) const { return (i * 0.125 + s_.DecadeStart) / kLog10Factor; }

  void wenner(float end) {
    rows(end, [&](int i) {
      const float b = single(row_log(i) + 3.3643);
      for (int j = 0; j <= 14; ++j) S_[j + 1] = transform(single(rt::Exp(b - j * kWennerStep)));
      double r = 0.0;
      for (int w = 0; w < 14; ++w) r += S_[w + 1] * kWennerWeights[w];
      return r;
    });
  }

  void dipole(float end) {
    rows(end, [&](int i) {
      const float b = single(row_log(i) - 6.912);
      for (int j = 0; j <= 60; ++j) S_[j + 1] = transform(single(rt::Exp(b + j * kDipoleStep)));
      double r = 0.0;
      for (int w = 0; w < 61; ++w) r += w == 9 ? kDipoleAddend : S_[w + 1] * kDipoleWeights[w];
      return r / 1000.0;
    });
  }

 private:
  Session& ss_;
  SoundingState& s_;
  const Layers& l_;
  double* S_;
  bool draws_ = false;
};

void set_bilog_pointer(Session& session, int shape) {
  if (session.curve) session.curve->set_pointer(shape);
}

}  // namespace

double layered_transform(const double* rho, const double* thickness, int layers, float x) {
  double R = rho[layers];
  for (int i = layers - 1; i >= 1; --i) {
    const double u = rt::Div(thickness[i], x);
    if (u < 4.0) {
      // At u = 4 and above the layer counts as infinitely thick: no tanh is evaluated.
      const double e = std::exp(u);
      const double inv = rt::Div(1.0, e);
      const double T = (e - inv) / (e + inv);
      R = rt::Div(R + rho[i] * T, 1.0 + rt::Div(R * T, rho[i]));
    } else {
      R = rho[i];
    }
  }
  return R;
}

void ForwardCurve(Session& session) {
  SoundingState& s = session.s;
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
    Run run(session, layers);
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

void find_max_ab(SoundingState& s, int16_t& max_ab_half) {
  bool leave = false;
  rt::skip([&] {
    leave = s.FieldTable(1, 1).num() + s.FieldTable(2, 1).num() + s.FieldTable(3, 1).num() == 1.0;
  });
  if (leave) return;
  // In the superpose mode the overlaid sounding's rows stand in FieldTable too (its reader puts
  // them there), so one table serves both; the count of rows is FieldCount in either case.
  for (int n = 1; n <= s.FieldCount; ++n) {
    rt::skip([&] {
      const double ab = s.FieldTable(n, 1).num();
      if (ab > max_ab_half) max_ab_half = rt::CInt(ab);
    });
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
  for (int n = 1; n <= s.FieldCount; ++n) {
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
  for (int n = 1; n <= s.FieldCount; ++n) {
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
      s.ModelCurve(n, 3) = 100.0 * rt::Div(std::fabs(rho_t - field), field);
    });
  }
}

}  // namespace tellux
