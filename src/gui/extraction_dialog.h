#pragma once
// The small form `Extraction` on the screen: what to extract (five options), the altitude and the
// layer number. OK (`Command1`) hands them to the logic's form; closing the window leaves no
// option chosen.
#include "profile/extraction.h"

class QWidget;

namespace tellux {

// Shows the form modally over `parent` and fills `form` from it.
void show_extraction_dialog(ExtractionForm& form, QWidget* parent);

}  // namespace tellux
