#include "platform/page_document.h"

#include <cstdio>
#include <sstream>

namespace tellux {

namespace {

std::string number(double v) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.1f", v);
  return buffer;
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(text);
  while (std::getline(in, part, separator)) parts.push_back(part);
  return parts;
}

// "a|b;c|d;" as rows of fields.
std::vector<std::vector<std::string>> rows_of(const std::string& text) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& row : split(text, ';')) rows.push_back(split(row, '|'));
  return rows;
}

PageOp make_op(PageOp::Kind kind, std::vector<double> points, std::string text = {}) {
  PageOp op;
  op.kind = kind;
  op.points = std::move(points);
  op.text = std::move(text);
  return op;
}

const char* kind_name(PageOp::Kind kind) {
  switch (kind) {
    case PageOp::Kind::Line:
      return "Line";
    case PageOp::Kind::Rectangle:
      return "Rectangle";
    case PageOp::Kind::Polyline:
      return "Polyline";
    case PageOp::Kind::Text:
      return "Text";
    case PageOp::Kind::Cell:
      return "Cell";
  }
  return "";
}

}  // namespace

void PageDocument::StartDoc() {
  pages_.assign(1, Page{});
  open_ = true;
  pen_ = {};
  brush_ = {};
  font_ = DefaultFont;
  angle_ = 0;
  in_table_ = false;
  tables_.clear();
  CurrentX = MarginLeft;
  CurrentY = MarginTop;
}

void PageDocument::NewPage() {
  if (pages_.empty()) pages_.emplace_back();
  pages_.emplace_back();
  CurrentX = MarginLeft;
  CurrentY = MarginTop;
}

void PageDocument::add(PageOp op) {
  if (pages_.empty()) pages_.emplace_back();
  op.pen = pen_;
  op.brush = brush_;
  op.font = font_;
  pages_.back().ops.push_back(std::move(op));
}

void PageDocument::DrawLine(double x1, double y1, double x2, double y2) {
  add(make_op(PageOp::Kind::Line, {x1, y1, x2, y2}));
  last_x_ = x2;
  last_y_ = y2;
}

void PageDocument::DrawLine(double x, double y) { DrawLine(last_x_, last_y_, x, y); }

void PageDocument::DrawRectangle(double x1, double y1, double x2, double y2) {
  add(make_op(PageOp::Kind::Rectangle, {x1, y1, x2, y2}));
}

void PageDocument::Polyline(const std::string& numbers) {
  std::string spaced = numbers;
  for (char& c : spaced)
    if (c == ',') c = ' ';
  std::istringstream in(spaced);
  PageOp op = make_op(PageOp::Kind::Polyline, {});
  double v = 0;
  while (in >> v) op.points.push_back(v);
  if (op.points.size() % 2) op.points.pop_back();
  if (op.points.size() >= 4) add(std::move(op));
}

double PageDocument::line_height() const { return font_.size * 20 * 1.2; }

void PageDocument::Text(const std::string& text) {
  PageOp op = make_op(PageOp::Kind::Text, {CurrentX, CurrentY}, text);
  op.angle = angle_;
  add(std::move(op));
  // About half an em a character: enough for what follows on the same line.
  CurrentX += font_.size * 20 * 0.5 * static_cast<double>(text.size());
}

void PageDocument::StartTable() {
  in_table_ = true;
  tables_.clear();
}

void PageDocument::AddTable(const std::string& format, const std::string& header,
                            const std::string& body, bool add_rows) {
  if (!add_rows || tables_.empty()) {
    Table table;
    for (const std::string& column : split(format.substr(0, format.find(';')), '|')) {
      const char align = column.empty() ? '<' : column[0];
      const size_t plus = column.find('+');
      const double width = plus == std::string::npos ? 1000 : std::atof(column.c_str() + plus + 1);
      table.columns.emplace_back(align == '>' || align == '^' ? align : '<', width);
    }
    const auto header_rows = rows_of(header);
    if (!header_rows.empty()) table.header = header_rows.front();
    tables_.push_back(std::move(table));
  }
  for (auto& row : rows_of(body)) tables_.back().rows.push_back(std::move(row));
  if (!in_table_) EndTable();
}

void PageDocument::EndTable() {
  for (const Table& table : tables_) lay_out(table);
  tables_.clear();
  in_table_ = false;
}

void PageDocument::lay_out(const Table& table) {
  const double h = line_height();
  std::vector<std::vector<std::string>> rows;
  if (!table.header.empty()) rows.push_back(table.header);
  rows.insert(rows.end(), table.rows.begin(), table.rows.end());
  for (const auto& row : rows) {
    double x = CurrentX;
    for (size_t c = 0; c < table.columns.size(); ++c) {
      const auto [align, width] = table.columns[c];
      if (c < row.size() && !row[c].empty()) {
        PageOp op = make_op(PageOp::Kind::Cell, {x, CurrentY, x + width, CurrentY + h}, row[c]);
        op.align = align;
        add(std::move(op));
      }
      if (TableBorder != 0)
        add(make_op(PageOp::Kind::Rectangle, {x, CurrentY, x + width, CurrentY + h}));
      x += width;
    }
    CurrentY += h;
  }
}

std::string PageDocument::text() const {
  std::string out;
  for (size_t p = 0; p < pages_.size(); ++p) {
    out += "Page " + std::to_string(p + 1) + "\n";
    for (const PageOp& op : pages_[p].ops) {
      out += kind_name(op.kind);
      for (double v : op.points) out += " " + number(v);
      if (op.kind == PageOp::Kind::Text || op.kind == PageOp::Kind::Cell) {
        out += op.kind == PageOp::Kind::Cell ? std::string(" ") + op.align : "";
        out += " \"" + op.text + "\" font " + number(op.font.size) + (op.font.bold ? " bold" : "") +
               (op.font.italic ? " italic" : "");
        if (op.angle != 0) out += " angle " + std::to_string(op.angle);
      } else {
        out += " pen " + std::to_string(op.pen.style) + " " + std::to_string(op.pen.width) + " " +
               std::to_string(op.pen.colour);
        if (op.kind == PageOp::Kind::Rectangle && op.brush.style == 0)
          out += " brush " + std::to_string(op.brush.colour);
      }
      out += "\n";
    }
  }
  if (!Footer.empty()) out += "Footer \"" + Footer + "\"\n";
  return out;
}

}  // namespace tellux
