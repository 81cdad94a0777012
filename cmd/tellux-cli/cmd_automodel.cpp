#include <algorithm>

#include "cli.h"
#include "model/automatic_model.h"

namespace tellux::cli {

void layer_model_json(Json& j, const SoundingState& s) {
  j.key("LayerCount").integer(s.LayerCount);
  j.key("LayerModel").begin_array();
  const int rows = std::min<int>(s.LayerCount, 21);
  for (int r = 1; r <= rows; ++r)
    j.begin_array().number(s.LayerModel(r, 1).num()).number(s.LayerModel(r, 2).num()).end_array();
  j.end_array();
}

void apply_sensitivity(Cli& cli, const Args& args) {
  cli.s.ModelSensitivity = parse_double(args.get("--sensitivity", "0.3"), "--sensitivity");
}

int cmd_automodel(Cli& cli, const Args& args) {
  if (args.positional.size() != 1)
    throw UsageError{"usage: tellux-cli automodel FILE [--array A] [--sensitivity S]"};
  apply_array(cli, args);
  open_file(cli, args.positional[0]);
  if (cli.status() != 0) return cli.status();
  apply_sensitivity(cli, args);  // after the read, which sets its own
  AutomaticModel(cli.session);
  if (cli.status() != 0) return cli.status();
  Json j;
  j.begin_object();
  layer_model_json(j, cli.s);
  j.end_object();
  cli.print(j);
  return cli.status();
}

}  // namespace tellux::cli
