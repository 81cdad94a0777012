#pragma once
// The pieces the report's builders share: positions in millimetres, the diagram's frame on the
// page, the title lines, and the tables that go on over as many pages as their rows need.
#include <functional>
#include <string>
#include <vector>

#include "core/session.h"
#include "platform/page_document.h"
#include "plot/bilog_scale.h"

namespace tellux::report {

inline double mm(double n) { return n * kTwipsPerMm; }

// "Résistivité", "Resistivity", "Resistividad" or "Resistivität".
const char* resistivity_word(const LanguageFlags& l);

// The location line, "Location   X = ...    Y = ..." with Z and the azimuth when given; empty
// when X or Y is missing.
std::string location_text(const SoundingState& s);

// The altitude of layer r's top as text: `LocationZ` minus the depth the model holds now, rounded
// as the model window rounds it; empty when it cannot be worked out.
std::string altitude_text(const SoundingState& s, int r);

// The diagram's geometry on the page, as the report lays it out.
struct Frame {
  double T = 0, Rt = 0;  // top and right edges
  int dX = 0, dY = 0;    // decades on the two axes
};

void write_at(PageDocument& page, double x, double y, const std::string& text);
// The report's title and the sounding's title; the mark of shifted curves.
void titles(const SoundingState& s, PageDocument& page, const std::string& ReportTitle,
            const Frame& f);
void shift_mark(const SoundingState& s, PageDocument& page, const Frame& f);

// The rows of a table from the current position, each "a|b|c;". When the next row would cross
// `bottom`, the table so far is closed and `next_page` starts a page with the table's heading,
// and the rows go on there under the header of units; at least one row goes on each page.
void paged_rows(PageDocument& page, const std::string& format, const std::string& header,
                const std::vector<std::string>& rows, double bottom,
                const std::function<void()>& next_page);

// The location, the model table and the comment under the diagram, from the base line B.
void text_under_diagram(Session& session, PageDocument& page, const std::string& ReportTitle,
                        const Frame& f, double B);
// The field data from a new page on.
void field_data_pages(const SoundingState& s, PageDocument& page, const std::string& ReportTitle,
                      const Frame& f);

}  // namespace tellux::report
