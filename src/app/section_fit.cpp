// Whether the section fits its sheet: the room the drawing tests, the messages when it does not,
// and "Fit the page", which types the scales that fit.
#include <cmath>

#include "app/profile_tab.h"
#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "profile/page_fit.h"

namespace tellux {

namespace {

// The largest distance of the table, as the page size of the profile takes it.
double line_length(const GridModel& grid) {
  double longest = 0;
  for (int i = 1; i < grid.rows(); ++i) longest = std::max(longest, rt::Val(grid.text(i, 6)));
  return longest;
}

}  // namespace

SectionRoom ProfileTab::room_on(const PageDocument& page) const {
  SectionRoom room;
  rt::skip([&] {
    room.width = rt::CInt(page.PageWidth / kTwipsPerMm) - (Check1.Value == 1 ? 60 : 0) -
                 page.MarginLeft / kTwipsPerMm - page.MarginRight / kTwipsPerMm;
  });
  rt::skip([&] {
    room.height = rt::CInt(page.PageHeight / kTwipsPerMm) - page.MarginTop / kTwipsPerMm -
                  page.MarginBottom / kTwipsPerMm;
  });
  return room;
}

SectionScales ProfileTab::fitting_scales(const PageDocument& page) const {
  const SectionRoom room = room_on(page);
  return {fitting_scale(line_length(sheet.grid()), room.width),
          fitting_scale(sheet.values.ProfileHeightSpan, room.height)};
}

void ProfileTab::warn_if_too_big(const PageDocument& page) {
  const SectionRoom room = room_on(page);
  const SectionScales fit = fitting_scales(page);
  // The second line says which scale would do; none when the sheet has no room at all.
  const auto would_fit = [](const char* which, int32_t scale) {
    return scale > 0 ? "\r\n" + std::string(which) + " 1/" + rt::CStr(scale) + " would fit"
                     : std::string();
  };
  if (room.width < rt::Val(sheet.Text5.Text))
    session_.tell("Plot width too big !" + would_fit("Horizontal scale", fit.horizontal),
                  Icon::Critical);
  if (room.height < rt::Val(sheet.Text6.Text))
    session_.tell("Plot height too big !" + would_fit("Vertical scale", fit.vertical),
                  Icon::Critical);
}

void ProfileTab::Fit_Page_Click() {
  if (!section_page) return;
  PageDocument& page = *section_page;
  page.MarginLeft = settings_.LeftMargin;
  page.MarginTop = settings_.UpperMargin;
  page.MarginRight = settings_.RightMargin;
  page.MarginBottom = settings_.BottomMargin;
  const SectionRoom room = room_on(page);
  const SectionScales fit = fitting_scales(page);
  if (fit.horizontal > 0 && room.width < rt::Val(sheet.Text5.Text))
    sheet.Text14.Text = rt::CStr(fit.horizontal);
  if (fit.vertical > 0 && room.height < rt::Val(sheet.Text6.Text))
    sheet.Text13.Text = rt::CStr(fit.vertical);
  sheet.calcul_echelle();
}

}  // namespace tellux
