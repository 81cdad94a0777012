#pragma once
// A whole survey fitted at once: each sounding in a record and a session of its own, with
// dialogs that answer as in batch work, spread over worker threads. Nothing is shared between
// the workers but the list of files and the counter of the next one, so the result of a
// sounding does not depend on how many workers there are.
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/sounding_state.h"
#include "survey/fit_sounding.h"

namespace tellux {

// One sounding of the survey after its fit.
struct FittedSounding {
  std::string file;                   // as given
  std::unique_ptr<SoundingState> s;   // the record after the fit; none when the file failed
  std::vector<std::string> messages;  // the boxes shown while it was opened and fitted
  int errors = 0;                     // of those, the boxes with the exclamation or critical sign
  std::string unreadable;             // the system's reason when the file could not be read
  bool fitted = false;                // opened, and a model to fit was there or was built
  double misfit = 0.0;                // `FieldMisfit` of the fitted model
  double rms = 0.0;                   // percent
  std::string written;                // the file written by the step run after the fit, if any
  std::string failure;                // "PATH: reason" when that write failed
};

// What the caller may watch and change while the survey runs, from another thread.
struct SurveyProgress {
  std::atomic<int> done{0};
  std::atomic<bool> cancel{false};  // soundings not yet begun are left alone
};

// Fits every file from a copy of `start` (the record as the settings left it). `jobs` below 1
// means one worker a core. `then`, when given, runs on the worker for each sounding fitted (to
// write it, say): it touches that sounding only. A cancelled survey returns the soundings begun
// before the cancel.
std::vector<FittedSounding> fit_survey(const SoundingState& start, const FitChoices& choices,
                                       const std::vector<std::string>& files, int jobs,
                                       SurveyProgress* progress = nullptr,
                                       const std::function<void(FittedSounding&)>& then = {});

// Writes a fitted sounding to `path` in batch mode (no question). Returns the failure, "PATH:
// reason", or empty.
std::string write_fitted(FittedSounding& fitted, const std::string& path);

// The name a sounding's file gets in an output folder: its name without the extension, ".TX3".
std::string fitted_file_name(const std::string& file);

// The summary of a fitted survey as CSV, a header first: file, X, Y, Z, the number of layers, the
// RMS, then resistivity and thickness of each layer. Files that failed are left out.
std::string survey_summary_csv(const std::vector<FittedSounding>& soundings);

}  // namespace tellux
