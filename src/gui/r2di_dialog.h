#pragma once
// The small form `R2DI_par` on the screen: the number of soundings to extract, the first
// electrode's coordinates, the azimuth and the altitude. OK (`Command1`) hands them to the form.
#include "convert/res2dinv.h"

class QWidget;

namespace tellux {

void show_r2di_dialog(R2diForm& form, QWidget* parent);

}  // namespace tellux
