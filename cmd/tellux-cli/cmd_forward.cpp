#include "cli.h"
#include "model/forward.h"

namespace tellux::cli {

int cmd_forward(Cli& cli, const Args& args) {
  if (args.positional.size() != 1)
    throw UsageError{"usage: tellux-cli forward FILE [--array A] [--decade-start N]"};
  apply_array(cli, args);
  apply_decade_start(cli, args);
  open_file(cli, args.positional[0]);
  if (cli.status() != 0) return cli.status();
  SoundingState& s = cli.s;
  take_layer_count(s);
  s.SuperposeCurve = -1;
  ForwardCurve(cli.session);
  Cell misfit;
  FieldMisfit(s, misfit);
  compute_deviations(s);

  Json j;
  j.begin_object();
  j.key("ModelCurveLast").integer(s.ModelCurveLast);
  j.key("ModelCurve").begin_array();
  // After a failure the last row may not have been stored: its AB/2 is stored last.
  const int last = std::min<int>(s.ModelCurveLast, 100);
  for (int i = 0; i <= last; ++i) {
    if (s.ModelCurve(i, 2).empty()) break;
    j.begin_array().number(s.ModelCurve(i, 2).num()).number(s.ModelCurve(i, 1).num()).end_array();
  }
  j.end_array();
  j.key("FieldMisfit").number(misfit.num());
  j.key("Deviation").begin_array();
  for (int n = 1; n <= std::min<int>(s.FieldCount, 51); ++n) j.number(s.ModelCurve(n, 3).num());
  j.end_array();
  j.end_object();
  cli.print(j);
  return cli.status();
}

}  // namespace tellux::cli
