#include "profile/profile_sheet.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "core/file_names.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"

namespace tellux {

namespace {

constexpr const char* kHeader[8] = {"",  "File name", "X",        "Y",
                                    "Z", "Order",     "Distance", "Max. depth"};

// A text as a number the way an assignment converts it: an empty or non-numeric text is a type
// mismatch (the statement is then skipped).
double number_of(const std::string& text) {
  if (text.find_first_not_of(' ') == std::string::npos) rt::raise(rt::kTypeMismatch);
  return rt::parse_number_token(text);
}

// Each end of the resistivity range on its own: above 1000 to the hundred, above 100 to the ten,
// else to the unit, half to even.
double round_range_end(double v) {
  if (v > 1000) return rt::CLng(v / 100) * 100.0;
  if (v > 100) return rt::CLng(v / 10) * 10.0;
  return rt::CLng(v);
}

// What the selection keeps of one file. The selection's variables live across its files: a file
// that cannot be read, or ends early, leaves the values of the one before.
struct FileReading {
  double largest_spacing = 0;  // first value of the last field row, in tenths of a metre
  std::string X, Y, Z;
  double max_res = 0, min_res = 99999999;
};

// Reads one file in the order of the TX3 layout. A failed read ends the reading: every later
// read of the file would fail the same way. Returns the deepest layer depth, in hundredths.
double read_profile_file(const std::string& path, FileReading& f) {
  std::optional<rt::TokenReader> in;
  double deepest = 0;
  const auto read = [&](auto&& statement) { return in && rt::skip(statement); };
  if (!rt::skip([&] { in.emplace(rt::TokenReader::open(path)); })) return deepest;
  double count = 0;
  if (!read([&] { count = rt::Fix(in->single()); })) return deepest;
  for (double row = 1; row <= count; ++row)
    for (int c = 1; c <= 6; ++c) {
      float v = 0;
      if (!read([&] { v = in->single(); })) return deepest;
      if (c == 1) f.largest_spacing = v;
    }
  for (int row = 1; row <= 20; ++row) {
    double R = 0, thickness = 0, D = 0;
    if (!read([&] { R = in->number(); }) || !read([&] { thickness = in->number(); }) ||
        !read([&] { D = in->number(); }))
      return deepest;
    deepest = std::max(deepest, D);
    if (R / 100 > f.max_res) f.max_res = R / 100;
    if (R / 100 < f.min_res && R > 0) f.min_res = R / 100;
  }
  for (int k = 0; k < 3; ++k)
    if (!read([&] { in->text(); })) return deepest;
  std::string azimuth;
  if (read([&] { f.X = in->text(); }) && read([&] { f.Y = in->text(); }) &&
      read([&] { f.Z = in->text(); }))
    read([&] { azimuth = in->text(); });
  return deepest;
}

}  // namespace

ProfileSheet::ProfileSheet(Session& session, GridModel& SEV_Grid)
    : scale(session, Text11, Text12), session_(session), SEV_Grid_(SEV_Grid) {
  Command2.Caption = "Select SEV";
}

FileDialogRequest sev_selection_request() {
  FileDialogRequest request;
  request.filter = "Tellux 5 & 6 (*.TX3)|*.TX3|All files|*.*|";
  request.title = "SEV file selection";
  request.proposed = "*.tx3";
  request.multiple = true;
  return request;
}

void ProfileSheet::Command2_Click() {
  const auto paths = session_.dialogs.open_files(sev_selection_request());
  if (!paths || paths->size() < 2) {
    session_.tell("Impossible with only 1 file", Icon::Critical);
    return;
  }
  select(*paths);
}

void ProfileSheet::select(const std::vector<std::string>& paths) {
  const int N = static_cast<int>(paths.size());
  if (N < 1) return;
  GridModel& grid = SEV_Grid_;
  folder = directory_part(paths.front(), bare_name(paths.front()));
  grid.redraw = false;
  grid.resize(N + 1, 8);
  for (int i = 1; i <= N; ++i) {
    grid.set_text(i, 0, rt::CStr(i));
    grid.set_text(i, 1, bare_name(paths[static_cast<size_t>(i - 1)]));
  }
  for (int c = 0; c < 8; ++c) grid.set_text(0, c, kHeader[c]);

  FileReading f;
  double distance = 0, previous_x = 0, previous_y = 0;
  values.ProfileFloorElevation = 99999;
  const SpreadType spread = session_.s.Spread;
  for (int i = 1; i <= N; ++i) {
    const double deepest = read_profile_file(folder + grid.text(i, 1), f);
    const double S = f.largest_spacing;
    // The approximate depth of the sounding, from the array selected now, not the file's.
    const double P = spread == SpreadType::Wenner ? S * 3 / 30 : (S + S) / 30;
    if (f.Y.empty()) f.Y = "0";
    if (f.Z.empty()) f.Z = "0";
    grid.set_text(i, 2, f.X);
    grid.set_text(i, 3, f.Y);
    grid.set_text(i, 4, f.Z);
    grid.set_text(i, 5, rt::CStr(i));
    rt::skip([&] {
      if (number_of(f.Z) - P < values.ProfileFloorElevation)
        values.ProfileFloorElevation = number_of(f.Z) - P;
    });
    if (i > 1) {
      rt::skip([&] {
        distance += rt::Sqr(std::pow(number_of(f.X) - previous_x, 2) +
                            std::pow(number_of(f.Y) - previous_y, 2));
      });
      // Trimmed through 16 bits, so this first distance stops at 32.767 m; `Re_order` writes the
      // column again before anything uses it.
      rt::skip([&] { distance = rt::CInt(distance * 1000) / 1000.0; });
    }
    rt::skip([&] { previous_x = number_of(f.X); });
    rt::skip([&] { previous_y = number_of(f.Y); });
    grid.set_text(i, 6, rt::CStr(distance));
    grid.set_text(i, 7, rt::CStr(deepest / 100));
  }
  rt::skip([&] { Text11.Text = rt::CStr(round_range_end(f.min_res)); });
  rt::skip([&] { Text12.Text = rt::CStr(round_range_end(f.max_res)); });
  Re_order();
  calcul_echelle();
  scale.affiche_resistivity();
  grid.redraw = true;
}

void ProfileSheet::Re_order() {
  GridModel& grid = SEV_Grid_;
  const int N = grid.rows() - 1;
  if (N < 1 || grid.cols() < 8) return;
  grid.redraw = false;
  struct Row {
    std::array<std::string, 8> cells;
    double key;
  };
  std::vector<Row> rows(static_cast<size_t>(N));
  for (int i = 1; i <= N; ++i) {
    Row& row = rows[static_cast<size_t>(i - 1)];
    for (int c = 1; c <= 7; ++c) row.cells[static_cast<size_t>(c)] = grid.text(i, c);
    const double x = rt::Val(row.cells[2]), y = rt::Val(row.cells[3]);
    row.key = std::sqrt(x * x + y * y);
    row.cells[6] = rt::CStr(row.key);
    grid.set_text(i, 6, row.cells[6]);
  }
  // Bubble sort: equal keys stay in place, so ties keep the selection's order.
  for (int pass = 1; pass < N; ++pass)
    for (size_t j = 0; j + 1 < rows.size(); ++j)
      if (rows[j].key > rows[j + 1].key) std::swap(rows[j], rows[j + 1]);
  for (int i = 1; i <= N; ++i)
    for (int c = 1; c <= 7; ++c)
      grid.set_text(i, c, rows[static_cast<size_t>(i - 1)].cells[static_cast<size_t>(c)]);
  grid.set_text(1, 6, "0");
  double total = 0;
  for (int i = 2; i <= N; ++i) {
    const double dx = rt::Val(grid.text(i, 2)) - rt::Val(grid.text(i - 1, 2));
    const double dy = rt::Val(grid.text(i, 3)) - rt::Val(grid.text(i - 1, 3));
    total += std::sqrt(dx * dx + dy * dy);
    grid.set_text(i, 6, rt::CStr(total));
  }
  grid.redraw = true;
}

void ProfileSheet::calcul_echelle() {
  const GridModel& grid = SEV_Grid_;
  double max_elevation = 0, max_distance = 0, min_distance = 999;
  for (int i = 1; i < grid.rows(); ++i) {
    const double z = rt::Val(grid.text(i, 4)), d = rt::Val(grid.text(i, 6));
    max_elevation = std::max(max_elevation, z);
    max_distance = std::max(max_distance, d);
    min_distance = std::min(min_distance, d);
  }
  ProfileValues& v = values;
  v.ProfileHeightSpan = max_elevation - v.ProfileFloorElevation;
  rt::skip([&] { v.ProfileTopElevation = rt::CInt(10.0 * rt::CInt(max_elevation / 10) + 20); });
  v.ProfileMinDistance = min_distance;
  rt::skip(
      [&] { Text5.Text = rt::CStr(rt::CLng(rt::Div(max_distance * 1000, rt::Val(Text14.Text)))); });
  rt::skip([&] {
    Text6.Text = rt::CStr(rt::CLng(rt::Div(v.ProfileHeightSpan * 1000, rt::Val(Text13.Text))));
  });
  rt::skip([&] { v.TwipsPerMetreX = rt::Div(kTwipsPerMm * 1000, rt::Val(Text14.Text)); });
  rt::skip([&] { v.TwipsPerMetreZ = rt::Div(kTwipsPerMm * 1000, rt::Val(Text13.Text)); });
}

}  // namespace tellux
