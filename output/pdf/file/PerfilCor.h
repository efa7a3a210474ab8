// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tarvo::pdf {

// An ICC profile (version 4) of the sRGB colour space: its primaries adapted to D50 and its
// transfer curve.
std::string PerfilSRGB();

}  // namespace tarvo::pdf
