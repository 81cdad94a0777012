#include "cli.h"

namespace tellux::cli {

Command write_command(CLI::App& root) {
  auto* app = root.add_subcommand("write", "Read a sounding file and write it as TX3 to OUT");
  auto file = std::make_shared<std::string>();
  auto out = std::make_shared<std::string>();
  app->add_option("FILE", *file, "The sounding file")->required();
  app->add_option("OUT", *out, "The TX3 file to write (replaced when it exists)")->required();
  return {app, [file, out](Cli& cli) {
            if (!open_file(cli, *file)) return 1;
            std::string path = *out;
            const bool written = write_tx3(cli, path);
            Json j;
            j["written"] = written;
            j["FilePath"] = text(path);
            j["Messages"] = cli.messages();
            cli.print(j);
            return written ? cli.status() : 1;
          }};
}

}  // namespace tellux::cli
