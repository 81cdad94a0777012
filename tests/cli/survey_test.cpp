// A whole survey through the batch command: fit-all writes what fit --out writes alone, whatever
// the number of workers; export-models puts the soundings with coordinates on a map.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "cli_run.h"

namespace {

namespace fs = std::filesystem;

const std::string kSurvey = TELLUX_SOURCE_DIR "/tests/data/survey/";
const char* const kSoundings[] = {"VES01.TX3", "VES02.TX3", "VES03.TX3",
                                  "VES04.TX3", "VES05.TX3", "damaged.TX3"};

std::string text_of(const fs::path& file) { return tellux::rt::read_whole_file(file.string()); }

std::string survey_files() {
  std::string files;
  for (const char* f : kSoundings) files += kSurvey + f + " ";
  return files;
}

TEST(FitAll, WritesWhatFitWritesAloneWhateverTheWorkers) {
  const fs::path dir = tellux::testing::fresh_folder("tellux-fit-all-");
  for (const char* f : kSoundings) {
    const std::string name = fs::path(f).stem().string();
    tellux::testing::run_cli(dir, "fit " + kSurvey + f + " --out alone_" + name + ".TX3");
  }
  for (const char* jobs : {"1", "2"}) {
    const fs::path out = dir / (std::string("jobs") + jobs);
    const auto r = tellux::testing::run_cli(
        dir, "fit-all " + survey_files() + "--out-dir " + out.string() + " --jobs " + jobs +
                 " --summary " + (out / "summary.csv").string());
    EXPECT_EQ(r.status, 1) << r.err;  // the damaged file
    const auto j = nlohmann::json::parse(r.out);
    EXPECT_EQ(j["Soundings"].size(), 5u);
    EXPECT_EQ(j["Files"].size(), 5u);
    ASSERT_EQ(j["Messages"].size(), 1u);
    EXPECT_NE(j["Messages"][0].get<std::string>().find("damaged.TX3: Reading File Error"),
              std::string::npos);
    for (const char* f : kSoundings) {
      const std::string name = fs::path(f).stem().string();
      if (name == "damaged") continue;
      EXPECT_EQ(text_of(out / (name + ".TX3")), text_of(dir / ("alone_" + name + ".TX3")))
          << name << " with " << jobs;
    }
    const std::string summary = text_of(out / "summary.csv");
    EXPECT_EQ(summary.substr(0, summary.find('\n')),
              "File,X,Y,Z,Layers,RMS,Resistivity1,Thickness1,Resistivity2,Thickness2,"
              "Resistivity3,Thickness3");
  }
  fs::remove_all(dir);
}

TEST(ExportModels, PointsAtTheSoundingsPlacesAndNoneWithoutCoordinates) {
  const fs::path dir = tellux::testing::fresh_folder("tellux-export-models-");
  const auto r =
      tellux::testing::run_cli(dir, "export-models " + kSurvey + "VES01.TX3 " + kSurvey +
                                        "VES05.TX3 --geojson m.geojson " + "--csv m.csv");
  EXPECT_EQ(r.status, 0) << r.err;
  const auto map = nlohmann::json::parse(text_of(dir / "m.geojson"));
  EXPECT_EQ(map["type"], "FeatureCollection");
  ASSERT_EQ(map["features"].size(), 1u);
  const auto& point = map["features"][0];
  EXPECT_EQ(point["geometry"]["type"], "Point");
  EXPECT_EQ(point["geometry"]["coordinates"], nlohmann::json::parse("[652310.5,4812405]"));
  EXPECT_EQ(point["properties"]["Name"], "VES01");
  EXPECT_EQ(point["properties"]["Layers"].size(), 3u);
  const auto j = nlohmann::json::parse(r.out);
  ASSERT_EQ(j["Messages"].size(), 1u);
  EXPECT_NE(j["Messages"][0].get<std::string>().find("VES05.TX3: no X and Y coordinates"),
            std::string::npos);
  const std::string csv = text_of(dir / "m.csv");
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 3);
  fs::remove_all(dir);
}

TEST(ConvertTable, RolesByNameAndReadingsLeftOutAreNamed) {
  const fs::path dir = tellux::testing::fresh_folder("tellux-convert-table-");
  const std::string table = kSurvey + "field_resistances.csv";
  auto r = tellux::testing::run_cli(
      dir, "convert table " + table + " --columns ab2,mn2,r,r,r,r,- " + "--skip 4 --out VES07.TX3");
  EXPECT_EQ(r.status, 0) << r.err;
  auto j = nlohmann::json::parse(r.out);
  EXPECT_EQ(j["FieldCount"], 18);
  EXPECT_EQ(j["Messages"].size(), 6u);
  EXPECT_TRUE(fs::exists(dir / "VES07.TX3"));
  r = tellux::testing::run_cli(dir, "convert table " + table + " --columns ab2,rho");
  EXPECT_EQ(r.status, 2);
  fs::remove_all(dir);
}

}  // namespace
