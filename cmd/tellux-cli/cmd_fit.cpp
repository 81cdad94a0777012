#include "cli.h"
#include "model/automatic_model.h"
#include "model/fit.h"
#include "model/forward.h"

namespace tellux::cli {

Command fit_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "fit",
      "Fit the file's model to its field points (the automatic model first when the file has "
      "none) and print the fitted model");
  struct Options {
    std::string file, array = "schlumberger", out;
    int decade_start = -1, thickness_decimals = 0;
    double sensitivity = 0.3;
    bool accurate = false;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  add_array_option(app, o->array);
  add_decade_start_option(app, o->decade_start);
  app->add_option("--thickness-decimals", o->thickness_decimals,
                  "Decimals the fitted thicknesses are rounded to")
      ->check(CLI::IsMember({0, 1, 2}))
      ->capture_default_str();
  add_sensitivity_option(app, o->sensitivity);
  add_accurate_option(app, o->accurate);
  app->add_option("--out", o->out, "Write the sounding with the fitted model to this TX3 file");
  return {app, [o](Cli& cli) {
            SoundingState& s = cli.s;
            apply_array(s, o->array);
            s.DecadeStart = static_cast<int16_t>(o->decade_start);
            s.ThicknessDecimals = static_cast<int16_t>(o->thickness_decimals);
            if (!open_file(cli, o->file)) return 1;
            s.ModelSensitivity = o->sensitivity;  // after the read, which sets its own
            if (o->accurate) s.AccurateCurves = true;
            if (!(s.LayerModel(1, 1).num() > 0)) {
              AutomaticModel(cli.session);
              if (cli.status() != 0) return cli.status();
            }
            take_layer_count(s);
            s.SuperposeCurve = -1;
            s.FitMisfit = int16_t{0};
            ForwardCurve(cli.session);
            FitModel(cli.session);
            Cell misfit;
            FieldMisfit(s, misfit);

            Json j;
            add_layer_model(j, s);
            j["FitMisfit"] = misfit.num();
            j["ForwardCalls"] = cli.session.forward_runs;
            bool written = true;
            if (!o->out.empty()) {
              std::string path = o->out;
              written = write_tx3(cli, path);
            }
            j["Messages"] = cli.messages();
            cli.print(j);
            return written ? cli.status() : 1;
          }};
}

}  // namespace tellux::cli
