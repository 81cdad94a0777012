#pragma once
// The misfit the equivalence analysis works with: one copy of the sounding per thread, the
// model's curve by `ForwardCurve` (so the accurate option holds) and the signed percent
// deviations of the field points the curve brackets.
#include <vector>

#include "core/session.h"

namespace tellux {

class SilentDialogs : public Dialogs {
 public:
  int told = 0;

 protected:
  Answer show_message(const std::string&, Buttons, Icon, const std::string&) override {
    ++told;
    return Answer::Ok;
  }
  std::optional<std::vector<std::string>> show_open_files(const FileDialogRequest&) override {
    return std::nullopt;
  }
  std::optional<std::string> show_save_file(const FileDialogRequest&) override {
    return std::nullopt;
  }
  std::optional<std::string> show_input(const std::string&, const std::string&,
                                        const std::string&) override {
    return std::nullopt;
  }
  std::optional<int> show_colour(const std::string&, int) override { return std::nullopt; }
};

class DeviationMisfit {
 public:
  explicit DeviationMisfit(const SoundingState& s);
  DeviationMisfit(const DeviationMisfit&) = delete;
  DeviationMisfit& operator=(const DeviationMisfit&) = delete;

  // Signed percent deviations of the bracketed field points for the model (rho[i], h[i]);
  // false when the curve fails.
  bool deviations(const double* rho, const double* h, std::vector<double>& out);
  // Their root mean square; infinity on failure or when no point is bracketed.
  double rms(const double* rho, const double* h);
  long evaluations() const { return evaluations_; }
  int layers() const { return layers_; }

 private:
  SoundingState s_;
  SilentDialogs dialogs_;
  Forms forms_;
  Session session_{s_, dialogs_, forms_};
  int layers_ = 0;
  long evaluations_ = 0;
};

}  // namespace tellux
