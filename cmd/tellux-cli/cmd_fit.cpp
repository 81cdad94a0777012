#include "cli.h"
#include "core/sounding_file.h"
#include "model/automatic_model.h"
#include "model/fit.h"
#include "model/forward.h"

namespace tellux::cli {

namespace {

void apply_thickness_decimals(Cli& cli, const Args& args) {
  const int d = parse_int(args.get("--thickness-decimals", "0"), "--thickness-decimals");
  if (d < 0 || d > 2) throw UsageError{"--thickness-decimals takes 0, 1 or 2"};
  cli.s.ThicknessDecimals = static_cast<int16_t>(d);
}

}  // namespace

int cmd_fit(Cli& cli, const Args& args) {
  if (args.positional.size() != 1)
    throw UsageError{
        "usage: tellux-cli fit FILE [--array A] [--decade-start N] [--thickness-decimals D] "
        "[--sensitivity S] [--out OUT]"};
  apply_array(cli, args);
  apply_decade_start(cli, args);
  apply_thickness_decimals(cli, args);
  open_file(cli, args.positional[0]);
  if (cli.status() != 0) return cli.status();
  apply_sensitivity(cli, args);  // after the read, which sets its own
  SoundingState& s = cli.s;
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
  j.begin_object();
  layer_model_json(j, s);
  j.key("FitMisfit").number(misfit.num());
  j.key("ForwardCalls").integer(cli.session.forward_runs);
  j.end_object();
  bool written = true;
  if (args.has("--out")) {
    s.WorkMode = mode::kFile;
    std::string out = args.get("--out");
    written = write_sounding_file(cli.session, out);
  }
  cli.print(j);
  return written ? cli.status() : 1;
}

}  // namespace tellux::cli
