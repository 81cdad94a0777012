#pragma once
// The equivalence analysis on the diagram and the report: the band of the equivalent models'
// curves in light grey, the spread of their staircases, and (on the report page) the table of
// each layer's ranges. Drawn only while the analysis belongs to the current model.
#include <functional>

#include "core/session.h"
#include "platform/page_document.h"
#include "plot/curve_drawing.h"

namespace tellux {

// The band and the staircases on the surface of the work mode, then the computed curve again
// over them. Failing statements are skipped.
void DrawEquivalenceBand(Session& session, const BilogSurfaces& surfaces);

// The report's lines below the model table: a note when the short filter is more than 1 % off
// on this model and the accurate curves are off; the table of ranges when an analysis was run
// for this model. `next_page` starts a page with the report's title lines and returns where its
// text may begin; the table goes on over as many pages as its rows need.
void report_accuracy_and_equivalence(const SoundingState& s, PageDocument& page,
                                     const std::function<double()>& next_page);

}  // namespace tellux
