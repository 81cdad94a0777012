// Every file of the fuzz corpora (small valid files, awkward ones, and the reproducers of the
// defects found) goes through its target again with the ordinary compiler, so that a mended
// defect stays mended. Then each reader meets the largest inputs it reads: its corpus repeated
// to 4 MB, and 4 MB of empty lines or of one-character items, the most lines and items a file
// can hold; it stays within 64 MB, the process and its input included. Each runs in a child,
// whose peak the system counts apart (not under the sanitizers, whose shadow memory is not ours).
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz_targets.h"

namespace tellux::fuzz {
namespace {

namespace fs = std::filesystem;

// The peak memory of `name` run on `input` in a child process, in KB; -1 when it failed.
[[maybe_unused]] long peak_of(const std::string& name, const std::string& input) {
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      run_reader(name, input);
    } catch (...) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  int status = 1;
  rusage usage{};
  return child > 0 && ::wait4(child, &status, 0, &usage) == child && status == 0 ? usage.ru_maxrss
                                                                                 : -1;
}

TEST(FuzzReplay, EveryCorpusFileRunsThroughItsTargetAndTheLargestInputsStayWithinTheirMemory) {
  const fs::path root = fs::path(TELLUX_SOURCE_DIR) / "tests" / "fuzz";
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
#if !defined(__SANITIZE_ADDRESS__)
    for (const std::string& unit : {std::string(), std::string("\n"), std::string("1 ")}) {
      std::string input = largest_input(root.string(), name);
      for (size_t at = 0; !unit.empty() && at + unit.size() <= input.size(); at += unit.size())
        input.replace(at, unit.size(), unit);
      const long peak = peak_of(name, input);
      EXPECT_TRUE(peak > 0 && peak < 64 * 1024) << name << " peaks at " << peak << " KB";
    }
#endif
  }
  EXPECT_GE(files, static_cast<int>(target_names().size()));
}

}  // namespace
}  // namespace tellux::fuzz
