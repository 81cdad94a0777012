#pragma once
// The tab "Print Bilog": the report in a preview, with its zoom, pages, copies, font, page setup
// and printer setup. The printer and its dialogs are the desktop's; they are reached through the
// hooks below, which tests and batch work answer themselves.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/session.h"
#include "core/settings.h"
#include "platform/controls.h"
#include "platform/page_document.h"

namespace tellux {

class PrintTab {
 public:
  PrintTab(Session& session, Settings& settings, PageDocument& VSPrint);

  ListModel cmbPercent;   // "25%" ... "400%"
  ListModel cmbZoomMode;  // "Percentage", "Thumbnail", "TwoPages", "WholePage", "PageWidth",
                          // "Stretch"
  bool cmbPercent_Enabled = true;
  int ZoomMode = 0;
  int scrlpage = 1, scrlpage_Max = 1;
  Label lblpage{"Page count"};
  TextBox Text23{"1"};  // copies
  Label Label10{"Nb copies"};
  CheckBox chkPhysicalPage{"Physical page", 1}, chkShowGuides{"Show guides", 0};
  CheckBox First_page{"Print &first page only", 0};
  ListModel ListePolices;
  std::string ReportTitle;
  Label Label18;  // the paper's size after a setup, for the section

  // What the preview shows: the report unless set (the section sets it).
  std::function<void()> rebuild;

  // The preview's build: lists, title, margins from the settings, then the report.
  void display_print();
  void cmbPercent_Click();
  void cmbZoomMode_Click();
  void scrlpage_Change(int value);
  // After a document: the scroll bar's maximum and the page read-out.
  void after_document();
  void ListePolices_Click();
  // Print: the copies, their question, the first page only.
  void cmdPrint_Click();
  // Page setup (kind 1) and printer setup (kind 0): the dialog, then the report again when the
  // sheet changed.
  void cmdPageSetup_Click() { setup(1); }
  void cmdPrinterSetup_Click() { setup(0); }

  // The desktop's side.
  // `PrintDoc`: pages from 1, `to` included, at their own size on the sheet; 0 when they went to
  // the printer, else the error code of a printer that could not begin (it is released then).
  std::function<int(int from, int to)> print_pages;
  std::function<void(int kind)> print_dialog;  // shows a setup; returns when it closes
  std::function<std::vector<std::string>()> font_names;
  // The printer's sheet as it lies, twips: width, height.
  std::function<std::pair<double, double>()> paper;

  // The document takes the printer's sheet when it differs and is built anew on it, so that a
  // decade keeps its length on both axes; true when it was rebuilt.
  bool fit_to_paper();

 private:
  void setup(int kind);
  void build();
  void margins_to_page();

  Session& session_;
  Settings& settings_;
  PageDocument& VSPrint_;
  bool fonts_listed_ = false;
};

}  // namespace tellux
