#include <sstream>

#include "cli.h"
#include "model/equivalence.h"

namespace tellux::cli {

namespace {

// "--fix rho1,h2,...": resistivity or thickness of a layer held fixed, as the model window's
// locks hold them.
bool apply_fixes(SoundingState& s, const std::string& list, std::string& bad) {
  std::stringstream in(list);
  std::string item;
  while (std::getline(in, item, ',')) {
    if (item.size() < 2 || (item.rfind("rho", 0) != 0 && item[0] != 'h')) return bad = item, false;
    const bool rho = item.rfind("rho", 0) == 0;
    const std::string digits = item.substr(rho ? 3 : 1);
    if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos)
      return bad = item, false;
    const int layer = std::stoi(digits);
    if (layer < 1 || layer > s.LayerCount || (!rho && layer == s.LayerCount))
      return bad = item, false;
    s.LayerLocks[layer] = static_cast<int16_t>(s.LayerLocks[layer] | (rho ? 1 : 2));
  }
  return true;
}

Json pair_json(const std::pair<double, double>& p) { return Json::array({p.first, p.second}); }

}  // namespace

Command equivalence_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "equivalence",
      "The range of each layer's resistivity, thickness, conductance and transverse resistance "
      "over the models that fit the field points about as well as the file's model");
  struct Options {
    std::string file, array = "schlumberger", fix;
    double tolerance = 1.0, threshold = 0;
    EquivalenceOptions search;
    int decade_start = -1;
    bool accurate = false;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The sounding file, with its fitted model")->required();
  auto* tol =
      app->add_option("--tolerance", o->tolerance, "Percentage points of RMS above the model's own")
          ->check(CLI::PositiveNumber)
          ->capture_default_str();
  app->add_option("--threshold", o->threshold, "The RMS (percent) itself")
      ->check(CLI::PositiveNumber)
      ->excludes(tol);
  auto bound = [app](const char* name, double& value, const char* text) {
    app->add_option(name, value, text)->check(CLI::PositiveNumber)->capture_default_str();
  };
  bound("--min-res", o->search.min_res, "Smallest resistivity (ohm-m)");
  bound("--max-res", o->search.max_res, "Largest resistivity (ohm-m)");
  bound("--min-thick", o->search.min_thick, "Smallest thickness (m)");
  bound("--max-thick", o->search.max_thick, "Largest thickness (m)");
  app->add_option("--fix", o->fix, "Values held fixed, as rho1,h2,... (layers from 1)");
  app->add_option("--seed", o->search.seed, "Seed of the search's random restarts")
      ->capture_default_str();
  app->add_option("--jobs", o->search.jobs, "Threads")
      ->check(CLI::Range(1, 16))
      ->capture_default_str();
  add_accurate_option(app, o->accurate);
  add_array_option(app, o->array);
  add_decade_start_option(app, o->decade_start);
  return {app, [o](Cli& cli) {
            SoundingState& s = cli.s;
            EquivalenceOptions search = o->search;
            if (search.min_res >= search.max_res || search.min_thick >= search.max_thick)
              throw UsageError{"tellux-cli: each lower bound must be below its upper bound"};
            apply_array(s, o->array);
            s.DecadeStart = static_cast<int16_t>(o->decade_start);
            if (!open_file(cli, o->file)) return 1;
            if (o->accurate) s.AccurateCurves = true;
            take_layer_count(s);
            std::string bad;
            if (!apply_fixes(s, o->fix, bad))
              throw UsageError{"tellux-cli: --fix: not a layer's value: " + bad};
            search.tolerance = o->tolerance;
            search.threshold = o->threshold;
            s.SuperposeCurve = -1;
            s.MaxAbHalf = 1;
            const EquivalenceResult r = analyse_equivalence(s, search);

            Json j;
            j["BestRMS"] = r.best_rms;
            j["Threshold"] = r.threshold;
            Json ranges = Json::array();
            for (size_t i = 0; i < r.ranges.size(); ++i) {
              Json layer;
              layer["Layer"] = i + 1;
              for (int q = 0; q < 4; ++q)
                if (q == 0 || i + 1 < r.ranges.size())
                  layer[quantity_name(static_cast<Quantity>(q))] =
                      pair_json(r.ranges[i][static_cast<size_t>(q)]);
              ranges.push_back(layer);
            }
            j["Ranges"] = ranges;
            Json extremes = Json::array();
            for (const Extreme& e : r.extremes) {
              Json model = Json::array();
              for (const auto& layer : e.model) model.push_back(pair_json(layer));
              extremes.push_back({{"Parameter", quantity_name(e.quantity)},
                                  {"Layer", e.layer},
                                  {"Bound", e.maximum ? "max" : "min"},
                                  {"Model", model},
                                  {"RMS", e.rms}});
            }
            j["Extremes"] = extremes;
            j["ModelsTried"] = r.models_tried;
            Json messages = cli.messages();
            for (const std::string& m : r.messages) messages.push_back(m);
            j["Messages"] = messages;
            cli.print(j);
            return r.ranges.empty() ? 1 : cli.status();
          }};
}

}  // namespace tellux::cli
