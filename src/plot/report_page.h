#pragma once
// The report of a sounding: the bilog diagram at true scale with its titles, the location, the
// model table and the comment, then a page of field data. `DrawBilogPage` lays it out on the page
// surface of the preview (what prints is what the preview shows); `PrintReportDirect` writes a
// similar report straight on a printer's drawing surface in logical coordinates.
#include <functional>
#include <string>

#include "core/session.h"
#include "platform/drawing_surface.h"
#include "platform/page_document.h"

namespace tellux {

// Fixed text 1 to 9 of the report in the language (French, then English, then Spanish, then
// German); 1, 2 and 9 end with the file name, 10 to 19 are one blank.
std::string PageText(const SoundingState& s, int number);

// The report's heading by the array: text 1 (Schlumberger), 2 (dipole) or 9 (Wenner).
std::string report_title(const SoundingState& s);

// A number set in a column of a proportional font: 12 - 2 x length blanks in front, one more
// when it has a point; 0 gives an empty text.
std::string PadNumberLeft(double value, rt::Kind kind = rt::Kind::Double);

// The report on `page`, between the caller's `StartDoc` and `EndDoc`. Sets `PlotScale`,
// `PlotOriginX`, `PlotOriginY`; draws the stored and current models through the session's
// curve routines. Failing statements are skipped.
void DrawBilogPage(Session& session, PageDocument& page, const std::string& ReportTitle);

// The preview's build: margins from the settings (twips), the title by the array, StartDoc,
// DrawBilogPage, EndDoc. Returns the title used.
std::string build_report(Session& session, PageDocument& page, double left, double top,
                         double right, double bottom);

// The report straight on `printer`, a surface whose `Scale` maps the sheet: the diagram in the
// decades of the axes with the lower part of the sheet kept for the text, then, after
// `new_sheet` (when given), the field data on a sheet of its own. Failing statements are skipped.
void PrintReportDirect(Session& session, DrawingSurface& printer, const std::string& ReportTitle,
                       const std::function<void()>& new_sheet);

}  // namespace tellux
