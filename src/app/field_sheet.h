#pragma once
// The field sheet `BuildGrid` on the tab "SEV model": where readings are typed, and Compute, which
// turns the sheet into `FieldTable` with the geometric factor and the apparent resistivity of each
// row. Around it stand the boxes of the strings, the marine survey, the half array and the shift,
// and the buttons New, Compute, Delete line, Insert line, Save and Quit. The desktop program shows
// these models and forwards the user's actions to the handlers below.
#include <string>

#include "app/sounding_boxes.h"
#include "core/session.h"
#include "platform/controls.h"
#include "platform/grid_model.h"

namespace tellux {

// The sheet: header row 0, data rows 1..50; column 0 the row number, columns 1..6 MN/2, AB/2,
// DeltaV, I, K and the resistivity (`FieldTable` columns 3, 1, 4, 6, 5, 2).
inline constexpr int kBuildGridRows = 51;
inline constexpr int kBuildGridCols = 7;

// How the sheet looks: all columns right-aligned, Arial, rows of 200 twips under a header of 250.
struct SheetLayout {
  static constexpr const char* kFormatString = "> |> |> |> |> |> |> ";
  static constexpr const char* kFontName = "Arial";
  static constexpr int kHeaderHeight = 250;  // twips
  static constexpr int kRowHeight = 200;
};

class FieldSheet {
 public:
  // `sev_file` is the setting "SEV File", the default spread file of a new sounding; it is read
  // each time a new sheet is filled, so it follows a change of array.
  FieldSheet(Session& session, const std::string& sev_file);

  GridModel BuildGrid{kBuildGridRows, kBuildGridCols};

  // The strings of the sounding: shown by `Load_build`, taken back by Save.
  TextBox CommentBox, TitleBox, XBox, YBox, ZBox, AzimBox;
  CheckBox Marine_floor;  // marine floor survey, read at Compute
  TextBox Reau;           // the water resistivity, read at Compute
  CheckBox lissbox;       // the splice shift
  CheckBox Check10;       // the half array
  Label Frame1, Frame2, Frame5, Frame9, Label25, Label26, Label27;
  Button Command1, Computation, CorrectButton, RecordButton, SaveButton, ExitButton;

  // Rebuilds the frame (the first time after a reset), captions, headers, the boxes and the
  // sheet's rows. An unnamed sounding becomes "NEW"; a new sounding without data gets the default
  // spacings of its array, any other the readings of `FieldTable`.
  void Load_build();
  // The sheet's rows again: the default spread file for a "NEW" sounding whose first row has no
  // resistivity, else `fill_sheet`.
  void refill();
  // Empties the sounding and rebuilds the sheet (the button New, the toolbar's New).
  void New_SEV();

  // The sheet into `FieldTable`, row by row from the top: K, the resistivity, the marine
  // correction, the rounding, the splice shift, the order of rising AB/2 and the end of the data
  // at the first empty row. Failing statements are skipped.
  void Compute();
  // The button Compute; and what the main window does on coming to the tab.
  void Computation_Click();
  void focus_and_compute();

  // A key typed in the sheet: a character code, the numeric pad's digits as 96..105 and its
  // point as 62 (the main keyboard's point as 46 or 142), 8 the backspace. Other keys are
  // dropped; column 5 (K) takes none.
  void BuildGrid_KeyPress(int key);

  void CorrectButton_Click();  // Delete line
  void RecordButton_Click();   // Insert line
  void ExitButton_Click();     // Quit: the diagram with its models again
  void SaveButton_Click();
  // The question with the number of rows, then the TX3 writer. Returns true when it wrote.
  bool save_from_sheet();
  void lissbox_Click();
  void Check10_Click();
  void Command1_Click() { New_SEV(); }

 private:
  void build_frame();
  void set_captions();
  void set_headers();
  SoundingBoxes string_boxes();
  void show_strings();
  void take_strings();
  void after_switch();
  void exchange_rows(int upper, int lower);
  void remove_sheet_row(int r);
  void insert_sheet_row(int r);

  Session& session_;
  SoundingState& s_;
  const std::string& sev_file_;
  // Typed, deleted or inserted since the last Compute: only then does Quit compute, so that
  // quitting a sheet emptied by Save leaves the record whole.
  bool edited_ = false;
};

}  // namespace tellux
