#pragma once
// Pictures that leave the program: the report page or the section as a vector file (SVG, where
// the old program wrote a metafile) and on the clipboard, and the screen's diagram on the
// clipboard.
#include <string>

#include "core/session.h"
#include "platform/page_document.h"
#include "platform/pictures.h"

namespace tellux {

// The name proposed for the picture of the sounding at `FilePath`: the report's drops the last
// three characters and adds "svg" ("X.TX3" gives "X.svg"); the section's drops four and adds
// "profil.svg".
std::string picture_file_name(const std::string& FilePath, bool section);

// "Record WMF" of the report (`Record_WMF`) or of the section (`Command16`): the name asked in an
// input box titled for SVG, the question on an existing file, the page on the clipboard and in the
// file, and the size in a message. Returns the path written, or an empty text.
std::string Record_WMF(Session& session, const PageDocument& page, bool section,
                       Pictures& pictures);

// The box that says where a picture or a PDF was written: the path, its size in Kb (bytes over
// 1000, rounded) and " Kb has been recorded".
void tell_recorded(Session& session, const std::string& name);
// Whether the section's page holds a drawing; when it does not, says that soundings must be
// chosen first ("First, you must load SEV files") and where.
bool section_drawn(Session& session, const PageDocument& page);

// "Copy the diagram" (menu `CopyClipBoard`, toolbar "Clip_Bd"): the picture, then the message.
void copy_diagram(Session& session, Pictures& pictures);

}  // namespace tellux
