#include <map>
#include <memory>

#include "cli.h"
#include "core/runtime/errors.h"
#include "profile/extraction.h"

namespace tellux::cli {

Command extract_command(CLI::App& root) {
  struct Options {
    std::vector<std::string> files;
    std::string by, altitude, layer, out;
  };
  auto o = std::make_shared<Options>();
  auto* app = root.add_subcommand(
      "extract", "A horizontal slice through the models as X,Y,value lines for contouring");
  app->add_option("FILE", o->files, "Sounding files, at least two, in any order")->required();
  app->add_option("--by", o->by,
                  "What to extract: res-altitude (resistivity at an altitude), res-layer, "
                  "thick-altitude, thick-layer or depth-layer (of layer --layer)")
      ->required()
      ->check(CLI::IsMember(
          {"res-altitude", "res-layer", "thick-altitude", "thick-layer", "depth-layer"}));
  app->add_option("--altitude", o->altitude, "Altitude A, for the two altitude slices");
  app->add_option("--layer", o->layer, "Layer number L, for the three layer slices");
  app->add_option("--out", o->out,
                  "File to write, used as it stands (default: the name the program proposes, "
                  "such as Res_by_alt_A.DAT, in the current folder)");
  return {app, [o](Cli& cli) {
            static const std::map<std::string, int> kOptions = {{"res-altitude", 1},
                                                                {"res-layer", 2},
                                                                {"thick-altitude", 3},
                                                                {"thick-layer", 4},
                                                                {"depth-layer", 5}};
            Json j;
            j["Path"] = nullptr;
            j["Lines"] = 0;
            ExtractionForm form;
            form.option = kOptions.at(o->by);
            form.Text1 = o->altitude;
            form.Text2 = o->layer;
            std::optional<Slice> slice;
            if (o->files.size() < 2)
              cli.session.tell("Impossible with only 1 file", Icon::Critical);
            else
              slice = slice_of(cli.session, form);
            if (slice) {
              const std::string out =
                  o->out.empty() ? extraction_file_name(*slice, form.Text1, form.Text2) : o->out;
              try {
                j["Lines"] = write_slice(cli.s, o->files, *slice, form.Text1, form.Text2, out);
                j["Path"] = text(out);
              } catch (const rt::RuntimeError& e) {
                Cli::complain("cannot write " + out + ": " + e.reason());
                return 1;
              }
            }
            j["Messages"] = cli.messages();
            cli.print(j);
            return cli.status();
          }};
}

}  // namespace tellux::cli
