#include "app/print_tab.h"

#include <algorithm>
#include <cmath>

#include "core/runtime/arithmetic.h"
#include "core/runtime/discipline.h"
#include "core/runtime/number_text.h"
#include "plot/report_page.h"

namespace tellux {

PrintTab::PrintTab(Session& session, Settings& settings, PageDocument& VSPrint)
    : session_(session), settings_(settings), VSPrint_(VSPrint) {
  for (const char* p : {"25%", "50%", "75%", "100%", "150%", "200%", "400%"}) cmbPercent.AddItem(p);
  for (const char* m : {"Percentage", "Thumbnail", "TwoPages", "WholePage", "PageWidth", "Stretch"})
    cmbZoomMode.AddItem(m);
}

void PrintTab::margins_to_page() {
  VSPrint_.MarginLeft = settings_.LeftMargin;
  VSPrint_.MarginTop = settings_.UpperMargin;
  VSPrint_.MarginRight = settings_.RightMargin;
  VSPrint_.MarginBottom = settings_.BottomMargin;
}

void PrintTab::build() {
  if (rebuild) {
    margins_to_page();
    rebuild();
  } else {
    ReportTitle = build_report(session_, VSPrint_, settings_.LeftMargin, settings_.UpperMargin,
                               settings_.RightMargin, settings_.BottomMargin);
  }
  after_document();
}

void PrintTab::display_print() {
  cmbPercent.ListIndex(3);
  cmbZoomMode.ListIndex(0);
  cmbZoomMode_Click();
  if (!fonts_listed_ && font_names) {
    for (const std::string& name : font_names()) ListePolices.AddItem(name);
    fonts_listed_ = true;
  }
  build();
}

void PrintTab::cmbPercent_Click() {
  const int zoom = static_cast<int>(rt::Val(cmbPercent.Text()));
  if (zoom > 0) VSPrint_.Zoom = zoom;
}

void PrintTab::cmbZoomMode_Click() {
  ZoomMode = std::max(0, cmbZoomMode.ListIndex());
  cmbPercent_Enabled = ZoomMode == 0;
  if (cmbPercent_Enabled) cmbPercent_Click();
  after_document();  // the read-out of one page or of two
}

void PrintTab::scrlpage_Change(int value) {
  if (value < 1) return;
  scrlpage = value;
  VSPrint_.PreviewPage = value;
  after_document();
}

void PrintTab::after_document() {
  const int m = VSPrint_.PageCount();
  scrlpage_Max = std::max(1, m);
  // A document with fewer pages than before brings the page shown back into it.
  const int n = std::clamp(VSPrint_.PreviewPage, 1, scrlpage_Max);
  VSPrint_.PreviewPage = n;
  scrlpage = n;
  if (ZoomMode == 2)
    lblpage.Caption = rt::CStr(n) + " - " + rt::CStr(std::min(n + 1, m)) + " of " + rt::CStr(m);
  else
    lblpage.Caption = rt::CStr(n) + " of " + rt::CStr(m);
}

void PrintTab::ListePolices_Click() {
  if (ListePolices.ListIndex() < 0) return;
  VSPrint_.DefaultFont.name = ListePolices.Text();
  build();
}

void PrintTab::cmdPrint_Click() {
  // Text that is not a number reads as 0: nothing is printed.
  double copies = rt::Fix(rt::Val(Text23.Text));
  if (copies > 1) {
    const std::string question = "Do you really want to print " + rt::CStr(copies) + " copies ?";
    if (session_.dialogs.message(question, Buttons::YesNo, Icon::Question, kProgramTitle) !=
        Answer::Yes)
      copies = 1;
  }
  if (copies >= 1 && VSPrint_.PageCount() != 0) fit_to_paper();
  for (int copy = 1; copy <= copies; ++copy) {
    if (VSPrint_.PageCount() == 0 || !print_pages) continue;
    const int code = print_pages(1, First_page.Value == 1 ? 1 : VSPrint_.PageCount());
    if (code == 0) continue;
    session_.dialogs.message(
        "The VSPrinter control raised the Error event with the " + rt::CStr(code) + " code.\n\n" +
            session_.text("L'impression n'a pas pu commencer : aucune imprimante n'est prête. "
                          "Choisissez une imprimante, ou «\xC2\xA0Imprimer dans un fichier "
                          "(PDF)\xC2\xA0», avec "
                          "«\xC2\xA0Printer setup\xC2\xA0», puis imprimez de nouveau.",
                          "La impresión no pudo empezar: ninguna impresora está lista. Elija una "
                          "impresora, o «Imprimir a archivo (PDF)», en «Printer setup», y vuelva a "
                          "imprimir.",
                          "Printing could not begin: no printer is ready. Choose a printer, or "
                          "\"Print to File (PDF)\", in \"Printer setup\", then print again."),
        Buttons::Ok, Icon::None, kProgramTitle);
    return;
  }
}

bool PrintTab::fit_to_paper() {
  if (!paper) return false;
  const auto [width, height] = paper();
  // Within half a millimetre the sheet is the same: the toolkit gives A4 in whole points.
  constexpr double kSameSheet = 28;
  if (width < 1000 || height < 1000 ||
      (std::abs(width - VSPrint_.PageWidth) < kSameSheet &&
       std::abs(height - VSPrint_.PageHeight) < kSameSheet))
    return false;
  VSPrint_.PageWidth = width;
  VSPrint_.PageHeight = height;
  build();
  return true;
}

void PrintTab::setup(int kind) {
  const double width = VSPrint_.PageWidth, height = VSPrint_.PageHeight;
  // The dialog shows the margins the report uses, and margins changed there become the report's.
  margins_to_page();
  if (print_dialog) print_dialog(kind);
  const auto twips = [](double v) {
    return static_cast<int16_t>(std::lround(std::clamp(v, 0.0, 32767.0)));
  };
  const bool margins = twips(VSPrint_.MarginLeft) != settings_.LeftMargin ||
                       twips(VSPrint_.MarginTop) != settings_.UpperMargin ||
                       twips(VSPrint_.MarginRight) != settings_.RightMargin ||
                       twips(VSPrint_.MarginBottom) != settings_.BottomMargin;
  if (margins) {
    settings_.LeftMargin = twips(VSPrint_.MarginLeft);
    settings_.UpperMargin = twips(VSPrint_.MarginTop);
    settings_.RightMargin = twips(VSPrint_.MarginRight);
    settings_.BottomMargin = twips(VSPrint_.MarginBottom);
  }
  // The report computes its scale from the new sheet itself.
  if (margins || VSPrint_.PageWidth != width || VSPrint_.PageHeight != height) build();
  Label18.Caption = "Paper size= " + rt::CStr(rt::CInt(VSPrint_.PageHeight / 56.7)) + " / " +
                    rt::CStr(rt::CInt(VSPrint_.PageWidth / 56.7));
}

}  // namespace tellux
