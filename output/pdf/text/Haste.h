// SPDX-License-Identifier: MIT
#pragma once

#include <hb.h>

namespace tarvo::pdf {

// The width of the face's upright stems, in its own units: what a line across the middle of the
// "l" lies inside of. 0 in a face without that letter.
int MedirHaste(hb_font_t* fonte);

}  // namespace tarvo::pdf
