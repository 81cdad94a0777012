// The geoelectrical section: a log of coloured layers for each sounding of the table, hung at its
// distance along the line and its elevation, with the topographic line, elevation lines,
// correlation lines between neighbouring logs, the colour legend, the title and the scales.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include "app/profile_tab.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "core/runtime/token_file.h"

namespace tellux {

using rt::skip;

namespace {

constexpr double kMm = kTwipsPerMm;

// Blanks in front of a short text, up to five characters.
std::string pad_to_five(const std::string& text) {
  return text.size() >= 5 ? text : std::string(5 - text.size(), ' ') + text;
}

// One file of the table read for its log: the field count (into the record), the largest
// spacing in tenths of a metre, the 20 model rows and the elevation. What a failed read leaves is
// what the reads before left.
struct LogReading {
  double largest_spacing = 0;
};

void read_log(SoundingState& s, const std::string& path, LogReading& f,
              std::array<std::array<double, 3>, 22>& layers) {
  std::optional<rt::TokenReader> in;
  const auto read = [&](auto&& statement) { return in && skip(statement); };
  if (!skip([&] { in.emplace(rt::TokenReader::open(path)); })) return;
  double count = 0;
  if (!read([&] { count = in->single(); })) return;
  skip([&] { s.FieldCount = rt::CInt(rt::Fix(count)); });
  for (double row = 1; row <= count; ++row)
    for (int c = 1; c <= 6; ++c) {
      float v = 0;
      if (!read([&] { v = in->single(); })) return;
      if (c == 1) f.largest_spacing = v;
    }
  for (int k = 1; k <= 20; ++k) {
    float R = 0, h = 0, D = 0;
    if (!read([&] { R = in->single(); }) || !read([&] { h = in->single(); }) ||
        !read([&] { D = in->single(); }))
      return;
    skip([&] { layers[size_t(k)][0] = rt::Div(R, s.ResistScale); });
    layers[size_t(k)][1] = h / 100.0;
    layers[size_t(k)][2] = D / 100.0;
  }
  for (int k = 0; k < 7; ++k)
    if (!read([&] { in->text(); })) return;
}

}  // namespace

void ProfileTab::Check7_Click() {
  if (Check7.Value == 1) Check9.Value = 0;
}

void ProfileTab::Check9_Click() {
  if (Check9.Value == 1) Check7.Value = 0;
}

void ProfileTab::Check8_Click() {
  TextBox& Text8 = sheet.Text8;
  if (Check8.Value == 1) {
    Text8.Text.clear();
    Text8.Enabled = false;
    Check3.Value = Check5.Value = Check7.Value = 0;
    Check9.Value = 1;
  } else {
    Text8.Enabled = true;
    Text8.Text = rt::CStr(std::floor(SEVLogWidth / 5.67) / 10);
    Check3.Value = Check5.Value = Check7.Value = 1;
    Check9.Value = 0;
  }
}

void ProfileTab::Trace_Rectangle(PageDocument& page, double& X, double& top, double& bottom,
                                 double r) {
  const int32_t colour = sheet.scale.colour_of_resistivity(r);
  if (Check8.Value == 0) {
    SEVLogWidth = rt::Val(sheet.Text8.Text) * kMm;
  } else {
    // The profile's length over the gaps between soundings; with one gap the division by 0 is
    // passed over and the width stays.
    skip([&] { SEVLogWidth = rt::Div(rt::Val(sheet.Text5.Text), sheet.grid().rows() - 2) * kMm; });
  }
  const ProfileValues& v = sheet.values;
  X = X * v.TwipsPerMetreX + page.MarginLeft;
  const double right = X + SEVLogWidth;
  top = top * v.TwipsPerMetreZ + page.MarginTop;
  bottom = bottom * v.TwipsPerMetreZ + page.MarginTop;
  page.BrushStyle(0);
  page.BrushColor(colour);
  page.DrawRectangle(X, top, right, bottom);
  page.CurrentX = right + 10;
  page.CurrentY = (top + bottom) / 2 - 50;
  page.FontBold(false);
  page.FontSize(8);
  if (Check3.Value == 1) page.Text(pad_to_five(rt::CStr(std::floor(r))));
}

void ProfileTab::Trace_Profil(PageDocument& page) {
  SoundingState& s = session_.s;
  ProfileValues& v = sheet.values;
  const GridModel& grid = sheet.grid();
  if (v.TwipsPerMetreX == 0 || v.TwipsPerMetreZ == 0) return;
  const double ML = page.MarginLeft, MT = page.MarginTop;

  warn_if_too_big(page);  // the warnings do not stop the drawing

  page.StartDoc();
  page.PenStyle(0);
  page.PenWidth(10);
  page.PenColor(0);
  page.BrushStyle(1);
  page.BrushColor(0);
  page.CurrentX = ML;
  page.CurrentY = MT;
  page.FontBold(true);
  page.FontSize(13);
  page.Text(Text10.Text);

  const int rows = grid.rows() - 1;
  if (Check2.Value == 1) {
    page.PenColor(Text9.BackColor);
    std::string line;
    for (int i = 1; i <= rows; ++i) {
      skip([&] {
        const double x = rt::CLng(v.TwipsPerMetreX * rt::Val(grid.text(i, 6)) + ML);
        const double y =
            rt::CLng(v.TwipsPerMetreZ * (v.ProfileTopElevation - rt::Val(grid.text(i, 4))) + MT);
        // Each log gives a flat step of its own width.
        line += rt::Str(x) + rt::Str(y) + rt::Str(rt::CLng(x + SEVLogWidth)) + rt::Str(y);
      });
    }
    page.Polyline(line);
    page.PenColor(0);
  }

  double right = 0;
  if (Check4.Value == 1) {
    right = rt::Val(sheet.Text5.Text) * kMm + ML + SEVLogWidth + 1000;
    const double left = ML - 300;
    // The floor is the one the drawing before left; logs drawn now may lower it. A floor beyond
    // the 32-bit range fails the loop's statement, and the loop is passed over.
    int32_t floor_line = v.ProfileTopElevation;
    skip([&] { floor_line = rt::CLng(v.ProfileFloorElevation - 10); });
    // Lines stop where the page ends, and there are never more than its height in twips.
    const int64_t most = std::max<int64_t>(0, std::llround(page.PageHeight));
    int64_t drawn = 0;
    for (int64_t e = v.ProfileTopElevation - 10; e >= floor_line && drawn < most;
         e -= 10, ++drawn) {
      const double y = v.TwipsPerMetreZ * (v.ProfileTopElevation - e) + MT;
      if (!(y - 100 <= page.PageHeight && y + 100 >= 0)) break;
      page.PenColor(14737632);
      page.PenStyle(0);
      page.PenWidth(0);
      page.DrawLine(left, y, right, y);
      page.CurrentX = right + 200;
      page.CurrentY = y - 100;
      page.FontBold(false);
      page.FontSize(8);
      page.PenColor(0);
      page.Text(rt::CStr(static_cast<int32_t>(e)) + " m");
    }
  }
  if (Check6.Value == 1) {
    // Without elevation lines `right` is 0 and the text starts beyond the left of the page.
    page.CurrentX = right / 2 - 1000;
    page.CurrentY = page.PageHeight - 1999;
    page.FontBold(true);
    page.FontSize(13);
    page.Text("X_scale = 1/ " + sheet.Text14.Text + "  Z_scale = 1/ " + sheet.Text13.Text);
  }

  const SpreadType spread = s.Spread;
  LogReading f;
  for (int i = 1; i <= rows; ++i) {
    std::string name = grid.text(i, 1);
    const double Z = rt::Val(grid.text(i, 4)), distance = rt::Val(grid.text(i, 6));
    if (const size_t slash = name.find_last_of("\\/"); slash != std::string::npos)
      name = name.substr(slash + 1);
    const std::string label = name.size() >= 4 ? name.substr(0, name.size() - 4) : std::string();
    page.CurrentX = v.TwipsPerMetreX * distance + ML;
    page.CurrentY = v.TwipsPerMetreZ * ((v.ProfileTopElevation - Z) - 7) + MT;
    page.FontBold(true);
    page.FontSize(10);
    // From 3276.8 degrees the angle overflows; the statement is passed over.
    skip([&] { page.TextAngle(rt::CInt(rt::Val(Text17.Text) * 10)); });
    if (Check7.Value == 1) page.Text(label);
    if (Check9.Value == 1 && i % 10 == 0) page.Text(rt::CStr(i));
    page.TextAngle(0);
    page.FontBold(false);

    read_log(s, sheet.folder + grid.text(i, 1), f, layers_);
    const double S = f.largest_spacing;
    const double P = spread == SpreadType::Wenner ? S * 3 / 30 : (S + S) / 30;
    for (int k = 1; k <= 20; ++k) previous_[size_t(k)] = current_[size_t(k)];

    double depth = 0, bottom_before = 0;
    for (int k = 1; k <= 20; ++k) {
      const auto& layer = layers_[size_t(k)];
      if (layer[0] == 0) break;
      depth += layer[1];
      if (layer[1] == 0) {
        // The half space: down to P, or to the largest spacing when the model is deeper.
        depth = depth < P - 10 ? P : S / 10;
        if (Z - depth < v.ProfileFloorElevation) v.ProfileFloorElevation = Z - depth;
      }
      double X = distance;
      double top = k == 1 ? v.ProfileTopElevation - Z : bottom_before;
      double bottom = v.ProfileTopElevation - Z + depth;
      bottom_before = bottom;
      skip([&] { Trace_Rectangle(page, X, top, bottom, layer[0]); });
      current_[size_t(k)] = {X, top};
    }

    if (Check5.Value == 1 && i > 1) {
      for (int k = 2; k <= 20; ++k) {
        const auto [px, pt] = previous_[size_t(k)];
        const auto [cx, ct] = current_[size_t(k)];
        if (px == 0 || cx == 0 || pt == 0 || ct == 0) break;
        page.PenColor(Text15.BackColor);
        page.PenWidth(5);
        page.DrawLine(px + SEVLogWidth, pt, cx, ct);
        page.PenColor(0);
      }
    }
  }

  if (Check1.Value == 1) {
    const double x1 = 2500 + SEVLogWidth + rt::Val(sheet.Text5.Text) * kMm + ML, x2 = x1 + 600;
    for (int k = 1; k <= 16; ++k) {
      const double y = MT + 200 * k;
      const TextBox& box = sheet.scale.ClassBox[size_t(k)];
      std::string text;
      for (char c : box.Text)
        if (c != ' ') text += c;
      page.BrushStyle(0);
      page.BrushColor(box.BackColor);
      page.DrawRectangle(x1, y, x2, y + 200);
      page.CurrentX = x2 + 100;
      page.CurrentY = y + 100;
      page.FontBold(false);
      page.FontSize(8);
      page.Text(pad_to_five(text));
    }
    // The unit stands once above the boxes.
    page.CurrentX = x1;
    page.CurrentY = MT;
    page.FontBold(true);
    page.Text("Ohm . m");
    page.FontBold(false);
  }
  page.EndDoc();
}

}  // namespace tellux
