#include "survey/model_export.h"

#include <filesystem>
#include <memory>

#include "core/runtime/token_file.h"
#include "model/forward.h"
#include "platform/headless/scripted_dialogs.h"
#include "survey/fit_sounding.h"

namespace tellux {

using Json = nlohmann::ordered_json;

std::optional<SoundingModel> read_sounding_model(const SoundingState& start,
                                                 const std::string& file,
                                                 std::vector<std::string>& messages) {
  auto s = std::make_unique<SoundingState>(start);
  BatchDialogs dialogs(nullptr);
  Forms forms;
  Session session{*s, dialogs, forms};
  FitChoices choices{start.Spread, start.DecadeStart, start.ThicknessDecimals,
                     start.ModelSensitivity};
  const std::string unreadable = open_for_fit(session, choices, file);
  for (const RecordedMessage& m : dialogs.messages) messages.push_back(file + ": " + m.text);
  if (!unreadable.empty()) messages.push_back(file + ": " + unreadable);
  if (!unreadable.empty() || dialogs.errors() > 0) return std::nullopt;

  SoundingModel model;
  model.file = file;
  model.name = std::filesystem::path(file).stem().string();
  model.x = s->LocationX;
  model.y = s->LocationY;
  model.z = s->LocationZ;
  model.azimuth = s->LocationAzimuth;
  if (s->LayerModel(1, 1).num() > 0) {
    take_layer_count(*s);
    s->WorkMode = mode::kFile;
    s->FitMisfit = int16_t{0};
    ForwardCurve(session);
    model.layers = model_layers(*s);
    model.rms = rms_percent(*s);
  }
  return model;
}

namespace {

// A location string as JSON: its number when it is one, else the text, else null.
Json location_json(const std::string& text) {
  double v = 0.0;
  if (location_number(text, v)) return v;
  if (text.empty()) return nullptr;
  return rt::to_utf8(text);
}

}  // namespace

Json models_geojson(const std::vector<SoundingModel>& models, const LanguageFlags& language,
                    std::vector<std::string>& messages) {
  Json features = Json::array();
  for (const SoundingModel& m : models) {
    double x = 0.0, y = 0.0;
    if (!location_number(m.x, x) || !location_number(m.y, y)) {
      messages.push_back(m.file + pick(language,
                                       " : pas de coordonnées X et Y, laissé hors de la carte",
                                       ": sin coordenadas X e Y, dejado fuera del mapa",
                                       ": no X and Y coordinates, left out of the map"));
      continue;
    }
    Json layers = Json::array();
    for (const LayerRow& l : m.layers)
      layers.push_back(
          {{"Resistivity", l.resistivity}, {"Thickness", l.thickness}, {"Depth", l.depth}});
    Json properties;
    properties["Name"] = rt::to_utf8(m.name);
    properties["File"] = rt::to_utf8(m.file);
    properties["Z"] = location_json(m.z);
    properties["Azimuth"] = location_json(m.azimuth);
    properties["Layers"] = layers;
    properties["RMS"] = m.rms ? Json(*m.rms) : Json(nullptr);
    Json feature;
    feature["type"] = "Feature";
    feature["geometry"] = {{"type", "Point"}, {"coordinates", {x, y}}};
    feature["properties"] = properties;
    features.push_back(feature);
  }
  Json collection;
  collection["type"] = "FeatureCollection";
  collection["features"] = features;
  return collection;
}

std::string models_csv(const std::vector<SoundingModel>& models) {
  size_t most = 0;
  for (const SoundingModel& m : models) most = std::max(most, m.layers.size());
  std::vector<std::string> header = {"File", "Name", "X", "Y", "Z", "Azimuth", "Layers", "RMS"};
  for (size_t k = 1; k <= most; ++k)
    for (const char* what : {"Resistivity", "Thickness", "Depth"})
      header.push_back(what + std::to_string(k));
  std::string out = csv_line(header);
  for (const SoundingModel& m : models) {
    std::vector<std::string> row = {rt::to_utf8(m.file),
                                    rt::to_utf8(m.name),
                                    rt::to_utf8(m.x),
                                    rt::to_utf8(m.y),
                                    rt::to_utf8(m.z),
                                    rt::to_utf8(m.azimuth),
                                    std::to_string(m.layers.size()),
                                    m.rms ? number_text(*m.rms) : std::string()};
    for (const LayerRow& l : m.layers) {
      row.push_back(number_text(l.resistivity));
      row.push_back(number_text(l.thickness));
      row.push_back(number_text(l.depth));
    }
    out += csv_line(row);
  }
  return out;
}

}  // namespace tellux
