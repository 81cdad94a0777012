#pragma once
// The one record of the current sounding and of the run. Every reader, sheet, diagram and
// calculation reads and writes it directly; the application owns exactly one and passes it by
// reference. Field names are the program's own names for them.
#include <array>
#include <cstdint>
#include <string>

#include "core/runtime/cell.h"
#include "core/runtime/table.h"

namespace tellux {

using rt::Cell;

enum class SpreadType { Schlumberger, Dipole, Wenner };

// Work modes: whose behalf the shared calculation and drawing routines run on.
namespace mode {
inline constexpr const char* kNormal = "NORMAL";
inline constexpr const char* kFile = "FICHIER";         // batch: no questions, no drawing
inline constexpr const char* kField = "FIELD";          // table being filled: no field marks
inline constexpr const char* kPrinter = "IMPRIME";      // curves on the printed page
inline constexpr const char* kPreview = "FRMPRINT";     // curves on the preview page
inline constexpr const char* kAutomatic = "AUTOMATIC";  // a first model was just built
inline constexpr const char* kSuperpose = "SUPERPOSE";  // tested everywhere, set by no command
}  // namespace mode

// Spanish, French, English, German: exactly one is true.
struct LanguageFlags {
  bool Spanish = false;
  bool French = false;
  bool English = true;
  bool German = false;
};

using FieldTableT = rt::Table<Cell, 52, 8>;   // rows 0..51, columns 0..7; data from row 1
using LayerTableT = rt::Table<Cell, 22, 4>;   // rows 0..21, columns 0..3; data from row 1
using HistorySlotT = rt::Table<Cell, 22, 3>;  // rows 0..21, columns 0..2
using ModelCurveT = rt::Table<Cell, 101, 4>;  // rows 0..100, columns 0..3

struct SoundingState {
  // Field readings. Columns: 1 AB/2, 2 apparent resistivity in use, 3 MN/2, 4 DeltaV, 5 K, 6 I,
  // 7 resistivity before any shift.
  FieldTableT FieldTable;
  int16_t FieldCount = 0;
  int16_t MaxAbHalf = 0;

  // The layered model. Columns: 1 resistivity, 2 thickness (0 for the half space), 3 depth of top.
  LayerTableT LayerModel;
  int16_t LayerCount = 0;
  LayerTableT OverlayModel;
  rt::Array1<int16_t, 22> LayerLocks;  // 0 free, 1 resistivity fixed, 2 thickness fixed, 3 both
  // Altitude of the top of each layer: the number of `LocationZ` less the depth, rounded to the
  // decimals of the thicknesses (`ComputeDepths`). Only meaningful while `LocationZ` is not empty.
  rt::Array1<double, 22> LayerAltitudes;

  // Stored models of the model editor.
  rt::Array1<HistorySlotT, 22> LayerHistory;
  rt::Array1<int16_t, 22> HistoryCounts;
  int16_t HistoryLast = 0;
  int16_t HistoryShown = 0;
  int16_t HistoryBase = 0;
  int16_t OverlayHold = 0;

  // The computed curve: column 1 resistivity, 2 its AB/2; column 3 by field row, the percent
  // deviation of that field point.
  ModelCurveT ModelCurve;
  int16_t ModelCurveLast = -1;
  rt::Array1<double, 62> TransformSamples;
  int16_t DecadeStart = -1;
  Cell FitMisfit;                   // 0 also means that no fit is running
  bool AccurateCurves = false;      // setup option "Accurate curves": rows take the accurate values
  double FilterErrorPercent = 0.0;  // the short filter's largest error on the last curve, percent
  int16_t SuperposeCurve = -1;      // 1: the overlay box is ticked, -1: not
  double ModelSensitivity = 0.3;
  rt::Array1<float, 51> FieldSlopes;
  int16_t ThicknessDecimals = 0;

  // The seven strings, in file order.
  std::string CommentText;
  std::string DataOrigin;
  std::string GraphTitle;
  std::string LocationX;
  std::string LocationY;
  std::string LocationZ;
  std::string LocationAzimuth;

  // Files and mode.
  std::string FileName;
  std::string FilePath;
  std::string FileDir;
  std::string OverlayFileName;
  int16_t FormatLevel = 3;
  int16_t ResistScale = 100;
  std::string WorkMode;
  std::array<std::string, 6> RecentFiles{};  // slots 1..5, most recent first
  // The spreadsheet export's own name and path: the only memory of an earlier export.
  std::string SheetFileName, SheetPath;

  // Array and correction.
  SpreadType Spread = SpreadType::Schlumberger;
  std::string SpreadTag = "0";
  int16_t HalfArray = 1;
  int16_t ShiftCurves = 0;
  int16_t ShiftCurvesSaved = 0;

  // The diagram: limits as values (for the tests whether a point lies inside) and as exponents of
  // ten (for the frame and the curve), kept apart on purpose. Defaults are those of a missing
  // settings file: AB/2 from 0.1 (held as 0) to 10000, resistivity from 1 to 10000.
  int16_t AB2min = 0;
  int16_t AB2max = 10000;
  int16_t RHOmin = 1;
  int32_t RHOmax = 10000;
  int16_t DecadeEnd = 4;
  int16_t RhoDecadeStart = 0;
  int32_t RhoDecadeEnd = 4;
  double MarkHalfSize = 0.0;
  bool ColourGrid = true;
  // Colours are red + 256 x green + 65536 x blue.
  int32_t GridColour = 16512;
  int32_t CurveColour = 255;
  int32_t PointsColour = 255;
  int32_t ModelColour = 16711935;
  int32_t ErrorColour = 255;
  int32_t BackColour = 255;  // back colour of the setup tab's sample picture
  int32_t SuperposedColour = 32768;
  int16_t OverlayColourIndex = 0;
  int16_t ShowErrorCurve = 0;  // 1: the error curve is wanted
  int16_t ShowModelSteps = 1;  // 1: the model's staircase is wanted
  bool FirstPoint = true;      // the next point starts a stroke
  // The diagram on the report page: millimetres per decade on both axes, and the page position
  // (twips) of the frame's corner (DecadeStart, RhoDecadeStart). The report sets them.
  double PlotScale = 0.0;
  double PlotOriginX = 0.0;
  double PlotOriginY = 0.0;
  int16_t KeepConfiguration = 0;  // 1: the setup tab's "keep the configuration" box was set

  // Flags of progress.
  bool DataSaved = false;
  int16_t ModelComputed = 0;
  bool ModelOutdated = true;
  bool ModelEverComputed = false;
  int16_t CellFresh = 1;
  bool FreshStart = true;
  bool SheetBuilt = false;       // the sheet's private "BUILD" mark: it has been built once
  bool SetupRedrawMark = false;  // tells the setup tab to redraw

  LanguageFlags Language;
};

// The text for the language in force: French first, then Spanish, else English (German too).
inline const char* pick(const LanguageFlags& l, const char* french, const char* spanish,
                        const char* english) {
  if (l.French) return french;
  if (l.Spanish) return spanish;
  return english;
}

inline constexpr const char* kProgramTitle = "Tellux 6.4";

// The last row of `FieldTable`.
inline constexpr int kLastFieldRow = 51;

// The rows a walk over the readings reaches: `FieldCount`, held to the table's last row. A count
// beyond it (the header of a damaged file) would only meet the table's bound on every further
// row, one error each.
inline int field_rows(const SoundingState& s) {
  return s.FieldCount < kLastFieldRow ? s.FieldCount : kLastFieldRow;
}

}  // namespace tellux
