#pragma once
// The readers of outside data, each driven as the program drives it after the open dialog, then
// the data used: one forward calculation, one automatic model, one error curve and the TX3
// writer. The fuzz targets and the replay test share these entries.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tellux::fuzz {

// The targets by name: the folder of their corpus under tests/fuzz/.
const std::vector<std::string>& target_names();

// Runs target `name` on `data`. Never throws; a crash or a sanitizer report is the finding. The
// converters write beside the current folder: run it from a scratch folder.
void run_target(const std::string& name, const uint8_t* data, size_t size);

// The same without the fuzzing's bound of 64 KB on the input, for the benchmarks.
void run_reader(const std::string& name, const std::string& bytes);

// The largest file of the target's corpus in `corpus_root`, repeated to just under the 4 MB the
// program reads: the largest input a reader meets.
std::string largest_input(const std::string& corpus_root, const std::string& name);

}  // namespace tellux::fuzz
