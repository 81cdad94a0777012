#include "cli.h"
#include "model/forward.h"

namespace tellux::cli {

Command forward_command(CLI::App& root) {
  auto* app = root.add_subcommand(
      "forward", "Compute the curve of the file's model and its misfit to the field points");
  struct Options {
    std::string file, array = "schlumberger";
    int decade_start = -1;
    bool accurate = false;
  };
  auto o = std::make_shared<Options>();
  app->add_option("FILE", o->file, "The sounding file")->required();
  add_array_option(app, o->array);
  add_decade_start_option(app, o->decade_start);
  add_accurate_option(app, o->accurate);
  return {app, [o](Cli& cli) {
            SoundingState& s = cli.s;
            apply_array(s, o->array);
            s.DecadeStart = static_cast<int16_t>(o->decade_start);
            if (!open_file(cli, o->file)) return 1;
            if (o->accurate) s.AccurateCurves = true;
            take_layer_count(s);
            s.SuperposeCurve = -1;
            ForwardCurve(cli.session);
            Cell misfit;
            FieldMisfit(s, misfit);
            compute_deviations(s);

            Json j;
            j["ModelCurveLast"] = s.ModelCurveLast;
            Json curve = Json::array();
            // After a failure the last row may not have been stored: its AB/2 is stored last.
            const int last = std::min<int>(s.ModelCurveLast, 100);
            for (int i = 0; i <= last; ++i) {
              if (s.ModelCurve(i, 2).empty()) break;
              curve.push_back({s.ModelCurve(i, 2).num(), s.ModelCurve(i, 1).num()});
            }
            j["ModelCurve"] = curve;
            j["FieldMisfit"] = misfit.num();
            Json deviation = Json::array();
            for (int n = 1; n <= std::min<int>(s.FieldCount, 51); ++n)
              deviation.push_back(s.ModelCurve(n, 3).num());
            j["Deviation"] = deviation;
            j["FilterErrorPercent"] = s.FilterErrorPercent;
            j["Accurate"] = s.AccurateCurves;
            j["Messages"] = cli.messages();
            cli.print(j);
            return cli.status();
          }};
}

}  // namespace tellux::cli
