#pragma once
// The last equivalence analysis of the session, kept for the diagram and the report while the
// model it was run for is the current one.
#include "model/equivalence.h"

namespace tellux {

void keep_equivalence(const EquivalenceResult& result);
// The analysis of the model now in `LayerModel`, or none.
const EquivalenceResult* equivalence_of_current_model(const SoundingState& s);

// The curves of the equivalent models found (the extremes) on rows 0..ModelCurveLast of the
// current curve: per row the smallest and largest apparent resistivity. False when there is no
// analysis of the current model.
bool equivalence_band(const SoundingState& s, std::vector<double>& low, std::vector<double>& high);

// The titles of the result table in the language, and one row per layer and quantity:
// quantity, minimum, fitted, maximum, as text.
std::vector<std::string> equivalence_table_titles(const LanguageFlags& l);
std::vector<std::vector<std::string>> equivalence_table_rows(const EquivalenceResult& r,
                                                             const LanguageFlags& l);

}  // namespace tellux
