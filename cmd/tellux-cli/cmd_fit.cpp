#include "cli.h"
#include "model/forward.h"

namespace tellux::cli {

Command fit_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "fit",
      "Fit the file's model to its field points (the automatic model first when the file has "
      "none) and print the fitted model");
  struct Options {
    std::string file, out;
    FitOptions fit;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  add_fit_options(app, o->fit);
  app->add_option("--out", o->out, "Write the sounding with the fitted model to this TX3 file");
  return {app, [o](Cli& cli) {
            SoundingState& s = cli.s;
            const FitChoices choices = o->fit.choices();
            if (const std::string reason = open_for_fit(cli.session, choices, o->file);
                !reason.empty()) {
              Cli::complain(o->file + ": " + reason);
              return 1;
            }
            if (cli.status() != 0) return 1;
            if (!fit_opened_sounding(cli.session, choices, [&cli] { return cli.status(); }))
              return cli.status();
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
