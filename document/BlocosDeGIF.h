// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace tarvo {

// Whether a file is a GIF whose blocks go up to its end mark, with a picture that has colours among
// them. The pixels are not decoded.
bool EhGIFInteiro(std::span<const unsigned char> bytes);

}  // namespace tarvo
