#include "cli.h"
#include "model/automatic_model.h"

namespace tellux::cli {

Command automodel_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "automodel", "Make the automatic first model of the file's field curve and print it");
  struct Options {
    std::string file, array = "schlumberger";
    double sensitivity = 0.3;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  add_array_option(app, o->array);
  add_sensitivity_option(app, o->sensitivity);
  return {app, [o](Cli& cli) {
            apply_array(cli.s, o->array);
            if (!open_file(cli, o->file)) return 1;
            cli.s.ModelSensitivity = o->sensitivity;  // after the read, which sets its own
            AutomaticModel(cli.session);
            if (cli.status() != 0) return cli.status();
            Json j;
            add_layer_model(j, cli.s);
            j["Messages"] = cli.messages();
            cli.print(j);
            return cli.status();
          }};
}

}  // namespace tellux::cli
