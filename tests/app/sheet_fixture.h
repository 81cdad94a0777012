#pragma once
// A field sheet in a headless session: its own data folder with small default spread files,
// forms that also record the diagram's redraws, the focus and the beeps, and helpers that type
// into the sheet key by key as a user would.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "app/field_sheet.h"
#include "session_fixture.h"

namespace tellux::testing {

class SheetForms : public RecordingForms {
 public:
  int frames = 0;
  int focus = 0;
  int beeps = 0;
  int tab_now = 1;
  void redraw_bilog_frame() override {
    ++frames;
    log.push_back("frame");
  }
  void focus_field_sheet() override { ++focus; }
  void beep() override { ++beeps; }
  int current_tab() const override { return tab_now; }
};

class SheetTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    data_ = (dir_ / "data").string();
    std::filesystem::create_directories(data_);
    setenv("TELLUX_DATA_DIR", data_.c_str(), 1);
  }
  void TearDown() override {
    unsetenv("TELLUX_DATA_DIR");
    SessionTest::TearDown();
  }

  // Types `keys` into the cell: '\b' is the backspace; other characters are sent as typed.
  void type(int row, int col, const std::string& keys) {
    sheet.BuildGrid.row = row;
    sheet.BuildGrid.col = col;
    for (char k : keys) sheet.BuildGrid_KeyPress(static_cast<unsigned char>(k));
  }
  // Cells of a row set directly, columns 1..6 in order (empty strings included).
  void put_row(int row, const std::vector<std::string>& cells) {
    for (size_t c = 0; c < cells.size(); ++c)
      sheet.BuildGrid.set_text(row, static_cast<int>(c) + 1, cells[c]);
  }
  const std::string& cell(int row, int col) const { return sheet.BuildGrid.text(row, col); }
  double table(int row, int col) const { return s.FieldTable(row, col).num(); }

  SheetForms sheet_forms;
  Session sheet_session{s, dialogs, sheet_forms};
  std::string sev_file = "C:\\Tellux\\DataVes.txt";  // a fresh settings file's value
  FieldSheet sheet{sheet_session, sev_file};
  std::string data_;
};

}  // namespace tellux::testing
