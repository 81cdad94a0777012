#pragma once
// The window "Equivalence...": the tolerance (or the threshold itself), the bounds, a progress
// bar and Cancel while the analysis runs, then the table of each layer's ranges. The result is
// kept for the diagram's grey band and the report while the model stays as it is.
#include <functional>

#include "core/session.h"

class QWidget;

namespace tellux {

// Runs modally over `parent` on the current model; `redraw` shows the diagram again after an
// analysis.
void show_equivalence_dialog(Session& session, QWidget* parent,
                             const std::function<void()>& redraw);

}  // namespace tellux
