#pragma once
// One sounding fitted as the batch command's `fit` fits it: the file opened by name, the
// automatic model first when it holds none, then the fit. `tellux-cli fit`, `fit-all` and the
// tab "Profile data" share these steps, so a sounding fitted among many is the one fitted alone.
#include <functional>
#include <string>

#include "core/session.h"

namespace tellux {

// The choices of a fit that come from the command line rather than from the file.
struct FitChoices {
  SpreadType spread = SpreadType::Schlumberger;
  int16_t decade_start = -1;
  int16_t thickness_decimals = 0;
  double sensitivity = 0.3;
  bool accurate = false;  // the accurate curves, whatever the settings say
};

// The spread and its tag, as the setup tab's array buttons set them.
void apply_spread(SoundingState& s, SpreadType spread);

// Opens `path` as the program opens a sounding by name (the record takes the choices first).
// Returns the reason the system gives when the file cannot be read, else empty.
std::string open_for_fit(Session& session, const FitChoices& choices, const std::string& path);

// The first layer row without a thickness is the half space; rows after it are left out.
void take_layer_count(SoundingState& s);

// After the open: the automatic model when the record has none, then the fit. `errors` counts the
// error boxes shown so far; false when the automatic model failed (its message was shown), in
// which case nothing was fitted.
bool fit_opened_sounding(Session& session, const FitChoices& choices,
                         const std::function<int()>& errors);

// Root mean square of the percent deviations of the field points from the computed curve.
double rms_percent(SoundingState& s);

}  // namespace tellux
