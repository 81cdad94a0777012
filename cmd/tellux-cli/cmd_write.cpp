#include "cli.h"
#include "core/sounding_file.h"

namespace tellux::cli {

int cmd_write(Cli& cli, const Args& args) {
  if (args.positional.size() != 2) throw UsageError{"usage: tellux-cli write FILE OUT"};
  open_file(cli, args.positional[0]);
  if (cli.status() != 0) return cli.status();
  cli.s.WorkMode = mode::kFile;
  std::string out = args.positional[1];
  const bool written = write_sounding_file(cli.session, out);
  Json j;
  j.begin_object().key("written").boolean(written).key("FilePath").text(out).end_object();
  cli.print(j);
  return written ? cli.status() : 1;
}

}  // namespace tellux::cli
