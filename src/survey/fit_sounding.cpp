#include "survey/fit_sounding.h"

#include <cmath>
#include <filesystem>

#include "core/open_flow.h"
#include "core/runtime/errors.h"
#include "core/runtime/token_file.h"
#include "model/automatic_model.h"
#include "model/fit.h"
#include "model/forward.h"

namespace tellux {

void apply_spread(SoundingState& s, SpreadType spread) {
  s.Spread = spread;
  s.SpreadTag = spread == SpreadType::Dipole ? "1" : spread == SpreadType::Wenner ? "2" : "0";
}

std::string open_for_fit(Session& session, const FitChoices& choices, const std::string& path) {
  SoundingState& s = session.s;
  apply_spread(s, choices.spread);
  s.DecadeStart = choices.decade_start;
  s.ThicknessDecimals = choices.thickness_decimals;
  // The program's dialogs always hand over full paths; a bare name would also lose its first
  // character in the open flow's cut.
  s.FilePath = path.empty() ? path : std::filesystem::absolute(path).lexically_normal().string();
  s.FileName = s.FilePath;
  open_sounding(session);
  try {
    rt::check_readable(path);
  } catch (const rt::RuntimeError& e) {
    return e.reason();
  }
  return {};
}

void take_layer_count(SoundingState& s) {
  s.LayerCount = 20;
  for (int i = 1; i <= 20; ++i) {
    if (!(s.LayerModel(i, 2).num() > 0)) {
      s.LayerCount = static_cast<int16_t>(i);
      break;
    }
  }
}

bool fit_opened_sounding(Session& session, const FitChoices& choices,
                         const std::function<int()>& errors) {
  SoundingState& s = session.s;
  s.ModelSensitivity = choices.sensitivity;  // after the read, which sets its own
  if (choices.accurate) s.AccurateCurves = true;
  if (!(s.LayerModel(1, 1).num() > 0)) {
    AutomaticModel(session);
    if (errors() != 0) return false;
  }
  take_layer_count(s);
  s.SuperposeCurve = -1;
  s.FitMisfit = int16_t{0};
  ForwardCurve(session);
  FitModel(session);
  return true;
}

double rms_percent(SoundingState& s) {
  compute_deviations(s);
  const int rows = std::min<int>(s.FieldCount, 51);
  if (rows < 1) return 0.0;
  double sum = 0.0;
  for (int n = 1; n <= rows; ++n) {
    const double d = s.ModelCurve(n, 3).num();
    sum += d * d;
  }
  return std::sqrt(sum / rows);
}

}  // namespace tellux
