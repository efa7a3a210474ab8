// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace tarvo {

// A picture of red, green and blue bytes, row by row without gaps, as a PNG file that states its
// resolution in pixels an inch.
std::string CodificarPNG(std::span<const unsigned char> rgb, std::size_t largura,
                         std::size_t altura, int dpi);

}  // namespace tarvo
