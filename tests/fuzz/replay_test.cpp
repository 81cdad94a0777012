// Every file of the fuzz corpora (small valid files, awkward ones, and the reproducers of the
// defects found) goes through its target again with the ordinary compiler, so that a mended
// defect stays mended.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz_targets.h"

namespace tellux::fuzz {
namespace {

TEST(FuzzReplay, EveryCorpusFileRunsThroughItsTarget) {
  namespace fs = std::filesystem;
  const fs::path root = fs::path(TELLUX_SOURCE_DIR) / "tests" / "fuzz";
  // The converters write into the current folder: a scratch one.
  const fs::path before = fs::current_path();
  const fs::path scratch = fs::temp_directory_path() / "tellux_fuzz_replay";
  fs::create_directories(scratch);
  fs::current_path(scratch);
  int files = 0;
  for (const std::string& name : target_names()) {
    const fs::path corpus = root / name;
    ASSERT_TRUE(fs::is_directory(corpus)) << "no corpus for " << name;
    for (const auto& entry : fs::directory_iterator(corpus)) {
      std::ifstream in(entry.path(), std::ios::binary);
      const std::string bytes((std::istreambuf_iterator<char>(in)), {});
      run_target(name, reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
      ++files;
    }
  }
  fs::current_path(before);
  fs::remove_all(scratch);
  EXPECT_GE(files, static_cast<int>(target_names().size()));
}

}  // namespace
}  // namespace tellux::fuzz
