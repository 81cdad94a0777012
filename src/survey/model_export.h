#pragma once
// The models of many soundings for a map: a GeoJSON FeatureCollection of points at the soundings'
// X and Y, and the same as a CSV table. Each file is read in a record of its own, as the program
// opens it, and its model's curve computed for its RMS.
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "core/sounding_state.h"
#include "survey/model_table.h"

namespace tellux {

// The model of one sounding file and where it stands.
struct SoundingModel {
  std::string file, name;  // the path as given; the file's name without its extension
  std::string x, y, z, azimuth;
  std::vector<LayerRow> layers;  // empty when the file holds no model
  std::optional<double> rms;     // percent; none without a model
};

// Reads `file` from a copy of `start`. The boxes the open shows are added to `messages`; a file
// that cannot be read gives no model.
std::optional<SoundingModel> read_sounding_model(const SoundingState& start,
                                                 const std::string& file,
                                                 std::vector<std::string>& messages);

// One Point feature a sounding with coordinates; a sounding without them is named in `messages`
// (in the language of `language`) and left out.
nlohmann::ordered_json models_geojson(const std::vector<SoundingModel>& models,
                                      const LanguageFlags& language,
                                      std::vector<std::string>& messages);
// The same soundings as CSV, a header first: file, name, X, Y, Z, azimuth, the number of layers,
// RMS, then resistivity, thickness and depth of each layer.
std::string models_csv(const std::vector<SoundingModel>& models);

}  // namespace tellux
