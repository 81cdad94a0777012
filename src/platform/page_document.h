#pragma once
// The page surface of the report and of the section (`VSPrint`, `VSPrint1`): a document of pages
// in twips, origin at the top left of the sheet, ordinate downward. Each drawing call becomes one
// operation of the current page, with the pen, brush and font it was made with, so that the
// preview, the printer, PDF and SVG all paint the same operations. `text()` lists them, one line
// each, for tests and the batch command.
#include <cstdint>
#include <string>
#include <vector>

#include "platform/page_surface.h"

namespace tellux {

struct PagePen {
  int style = 0;  // 0 solid, 1 dash, 2 dot, 5 none
  int width = 10;
  int32_t colour = 0;
  bool operator==(const PagePen&) const = default;
};

struct PageBrush {
  int style = 1;  // 0 solid, 1 hollow
  int32_t colour = 0;
  bool operator==(const PageBrush&) const = default;
};

struct PageFont {
  std::string name = "Liberation Sans";
  double size = 10;  // points
  bool bold = false;
  bool italic = false;
  bool operator==(const PageFont&) const = default;
};

struct PageOp {
  enum class Kind { Line, Rectangle, Polyline, Text, Cell };
  Kind kind = Kind::Line;
  std::vector<double> points;  // x1, y1, x2, y2 ...; a text's top left; a cell's box
  std::string text;
  PagePen pen;
  PageBrush brush;
  PageFont font;
  int angle = 0;     // tenths of a degree, counterclockwise, for text
  char align = '<';  // a cell's alignment: '<' left, '>' right, '^' centred
};

struct Page {
  std::vector<PageOp> ops;
};

class PageDocument : public PageSurface {
 public:
  // The sheet and its margins, twips.
  double PageWidth = 11906;  // A4 upright
  double PageHeight = 16838;
  double MarginLeft = 1440, MarginTop = 1440, MarginRight = 1440, MarginBottom = 1440;
  // The font each document starts with (the font list of the preview sets its name).
  PageFont DefaultFont;
  // Zoom and paging of the preview: kept here, used by the windows.
  int Zoom = 100;
  int PreviewPage = 1;

  // A new document with one empty page; `EndDoc` closes it.
  void StartDoc();
  void EndDoc() { open_ = false; }
  void NewPage();
  int PageCount() const { return static_cast<int>(pages_.size()); }
  const std::vector<Page>& pages() const { return pages_; }
  bool open() const { return open_; }

  // Pen, brush and font of what follows.
  void PenStyle(int style) { pen_.style = style; }
  void PenWidth(int width) override { pen_.width = width; }
  void PenColor(int32_t colour) override { pen_.colour = colour; }
  void BrushStyle(int style) { brush_.style = style; }
  void BrushColor(int32_t colour) { brush_.colour = colour; }
  void FontName(const std::string& name) { font_.name = name; }
  void FontSize(double points) { font_.size = points; }
  void FontBold(bool on) { font_.bold = on; }
  void FontItalic(bool on) { font_.italic = on; }
  void TextAngle(int tenths) { angle_ = tenths; }
  const PagePen& pen() const { return pen_; }
  const PageFont& font() const { return font_; }

  // The writing position, twips.
  double CurrentX = 0, CurrentY = 0;

  void DrawLine(double x1, double y1, double x2, double y2) override;
  void DrawLine(double x, double y) override;
  void DrawRectangle(double x1, double y1, double x2, double y2);
  // A line through the points of `numbers`: "x1 y1 x2 y2 ...", blanks or commas between them.
  void Polyline(const std::string& numbers);
  // Writes `text` at the current position (its top left) in the current font. The position moves
  // to the end of the line, by an estimate of the text's width.
  void Text(const std::string& text);

  // The footer of every page, in the header font; "||" in front puts it at the right.
  bool HdrFontBold = false;
  double HdrFontSize = 10;
  std::string Footer;

  // Tables by format strings. `format`: per column an alignment ('<', '>' or '^'), "+" and the
  // width in twips, "|" between columns, ";" at the end. `header` and `body`: fields separated by
  // "|", rows closed by ";". A table stands at the current position; after it the position is
  // under its last row. Between `StartTable` and `EndTable`, `AddTable` with `add` set appends
  // rows to the table begun by the one before; outside them a table is laid out at once.
  int TableBorder = 1;  // 0: no lines
  void StartTable();
  void AddTable(const std::string& format, const std::string& header, const std::string& body,
                bool add = false);
  void EndTable();

  // The height of a line of text in the current font, twips.
  double line_height() const;
  // One line per operation, positions in twips to one decimal; pages start with "Page n".
  std::string text() const;

 private:
  struct Table {
    std::vector<std::pair<char, double>> columns;
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;
  };
  void add(PageOp op);
  void lay_out(const Table& table);

  std::vector<Page> pages_;
  PagePen pen_;
  PageBrush brush_;
  PageFont font_;
  int angle_ = 0;
  double last_x_ = 0, last_y_ = 0;
  bool open_ = false;
  bool in_table_ = false;
  std::vector<Table> tables_;
};

}  // namespace tellux
