#pragma once
// The models of a survey as tables for spreadsheets and maps: numbers in their shortest form that
// reads back as the same double, CSV fields quoted only when they must be.
#include <string>
#include <vector>

#include "core/sounding_state.h"

namespace tellux {

// One layer of a sounding's model; the half space has thickness 0.
struct LayerRow {
  double resistivity = 0.0, thickness = 0.0, depth = 0.0;  // depth of the layer's top
};

// Rows 1..LayerCount of `LayerModel`, the depths summed from the thicknesses.
std::vector<LayerRow> model_layers(const SoundingState& s);

// The shortest text of a number that reads back as the same double ("12", "0.5", "1e-05").
std::string number_text(double v);
// A location string as a number: the number when the whole text is one, else none.
bool location_number(const std::string& text, double& v);

// A CSV field: quoted, with doubled quotes, when it holds a comma, a quote or a line end.
std::string csv_field(const std::string& text);
// Fields joined by commas, ended by a line end.
std::string csv_line(const std::vector<std::string>& fields);

}  // namespace tellux
