#include "survey/survey_fit.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <thread>

#include "core/runtime/token_file.h"
#include "core/sounding_file.h"
#include "model/forward.h"
#include "platform/headless/scripted_dialogs.h"
#include "survey/model_table.h"

namespace tellux {

namespace {

// A session for one sounding: batch dialogs that print nothing, windows that are not there.
struct WorkerRun {
  explicit WorkerRun(const SoundingState& start)
      : s(std::make_unique<SoundingState>(start)), dialogs(nullptr) {}
  std::unique_ptr<SoundingState> s;
  BatchDialogs dialogs;
  Forms forms;
  Session session{*s, dialogs, forms};
};

FittedSounding fit_one(const SoundingState& start, const FitChoices& choices,
                       const std::string& file) {
  WorkerRun run(start);
  FittedSounding out;
  out.file = file;
  const auto errors = [&run] { return run.dialogs.errors(); };
  out.unreadable = open_for_fit(run.session, choices, file);
  if (out.unreadable.empty() && errors() == 0) {
    out.fitted = fit_opened_sounding(run.session, choices, errors);
    if (out.fitted) {
      Cell misfit;
      FieldMisfit(*run.s, misfit);
      out.misfit = misfit.num();
    }
  }
  for (const RecordedMessage& m : run.dialogs.messages) out.messages.push_back(m.text);
  out.errors = run.dialogs.errors();
  if (out.fitted) out.s = std::move(run.s);
  return out;
}

}  // namespace

std::vector<FittedSounding> fit_survey(const SoundingState& start, const FitChoices& choices,
                                       const std::vector<std::string>& files, int jobs,
                                       SurveyProgress* progress,
                                       const std::function<void(FittedSounding&)>& then) {
  std::vector<FittedSounding> results(files.size());
  std::atomic<size_t> next{0};
  const auto work = [&] {
    for (;;) {
      if (progress && progress->cancel.load()) return;
      const size_t i = next.fetch_add(1);
      if (i >= files.size()) return;
      try {
        results[i] = fit_one(start, choices, files[i]);
        if (then && results[i].s) then(results[i]);
      } catch (const std::exception& e) {  // no failure of one file may end the others
        results[i].file = files[i];
        results[i].messages.push_back(e.what());
        results[i].errors = 1;
      }
      if (progress) progress->done.fetch_add(1);
    }
  };
  if (jobs < 1) jobs = static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  const size_t workers = std::min<size_t>(static_cast<size_t>(jobs), files.size());
  std::vector<std::thread> threads;
  for (size_t w = 1; w < workers; ++w) threads.emplace_back(work);
  work();
  for (std::thread& t : threads) t.join();
  // Soundings never begun (after a cancel) are not part of the result.
  std::erase_if(results, [](const FittedSounding& f) { return f.file.empty(); });
  return results;
}

std::string write_fitted(FittedSounding& fitted, const std::string& path) {
  BatchDialogs dialogs(nullptr);
  Forms forms;
  Session session{*fitted.s, dialogs, forms};
  fitted.s->WorkMode = mode::kFile;
  std::string target = path;
  if (write_sounding_file(session, target)) return {};
  return session.file_failure.empty() ? path : session.file_failure;
}

std::string fitted_file_name(const std::string& file) {
  return std::filesystem::path(file).stem().string() + ".TX3";
}

std::string survey_summary_csv(const std::vector<FittedSounding>& soundings) {
  size_t most = 0;
  for (const FittedSounding& f : soundings)
    if (f.s) most = std::max(most, model_layers(*f.s).size());
  std::vector<std::string> header = {"File", "X", "Y", "Z", "Layers", "RMS"};
  for (size_t k = 1; k <= most; ++k) {
    header.push_back("Resistivity" + std::to_string(k));
    header.push_back("Thickness" + std::to_string(k));
  }
  std::string out = csv_line(header);
  for (const FittedSounding& f : soundings) {
    if (!f.s) continue;
    const std::vector<LayerRow> layers = model_layers(*f.s);
    std::vector<std::string> row = {rt::to_utf8(f.file),           rt::to_utf8(f.s->LocationX),
                                    rt::to_utf8(f.s->LocationY),   rt::to_utf8(f.s->LocationZ),
                                    std::to_string(layers.size()), number_text(f.rms)};
    for (const LayerRow& l : layers) {
      row.push_back(number_text(l.resistivity));
      row.push_back(number_text(l.thickness));
    }
    out += csv_line(row);
  }
  return out;
}

}  // namespace tellux
