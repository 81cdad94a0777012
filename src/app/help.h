#pragma once
// The commands that leave the program for another: the manual, the calculator, the video, the
// graphical program, and the text about the program.
#include <string>

#include "core/session.h"
#include "core/settings.h"

namespace tellux {

// Where a section of the manual begins: its page (from 1) and the distance of its heading from
// the page's top edge, in points.
struct ManualPlace {
  int page = 1;
  double top = 0;
};

// What starting other programs needs of the desktop. The defaults find nothing.
class Programs {
 public:
  virtual ~Programs() = default;
  // The program that opens PDF files; empty when there is none.
  virtual std::string pdf_viewer() { return {}; }
  // The desktop's calculator, the first one found; empty when there is none.
  virtual std::string calculator() { return {}; }
  // Starts `program` with `argument` (none when empty); false when it could not be started.
  virtual bool start(const std::string& /*program*/, const std::string& /*argument*/) {
    return false;
  }
  // Shows a PDF in the program's own view at `place`; false when the view cannot.
  virtual bool show_pdf(const std::string& /*path*/, const ManualPlace& /*place*/) { return false; }
};

// The manual of the language under the data folder: Manual/TELLUX6_FR.PDF, _ES or _US (German
// users get the English one).
std::string manual_path(const SoundingState& s);

// The manual's section of a tab of the main window, by its index: "tab-bilog", "tab-sheet",
// "tab-print", "tab-setup", "tab-profile", "tab-section"; "introduction" for any other.
std::string help_topic_of_tab(int tab);

// Where the manual's section `topic` begins, from the index of pages beside the manual (its name
// with ".TOC": a line "topic page top" per section); the first page when the index or the topic
// is not there.
ManualPlace manual_place(const std::string& manual, const std::string& topic);

// Help: the manual of the language at the section `topic` (the active tab or window), in the
// program's own view. Where that view cannot show it, the desktop's PDF viewer ("Unable to shell "
// + path when it does not start); with neither, the two messages about installing a reader. A
// missing manual is said with its path.
void open_manual(Session& session, Programs& programs, const std::string& topic = {});
// The same with the manual's file given.
void open_manual_file(Session& session, Programs& programs, const std::string& manual,
                      const std::string& topic);

// The calculator; a message when the desktop has none.
void open_calculator(Session& session, Programs& programs);

// The video in the manual folder, when one is installed.
std::string video_path();

// The graphical program of "Graphical_Prog": a path of fewer than 5 characters (a blank too) is
// not located: the message, then the program chooser, whose path is kept. Started with the
// picture file of the current sounding. False when nothing was started.
bool open_graphical_program(Session& session, Settings& settings, Programs& programs);

// The text of "Author": in French for French, in English for the other languages, with the
// program's version and the libraries it is built on.
std::string about_text(const SoundingState& s);

}  // namespace tellux
