// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

// How a CFOP code is printed, by the code table to which it belongs. A code's digits are what
// counts, its points are set anew; a code with anything else in it is printed as it is stored.
namespace tarvo {

// Four-digit table: "5101" and "5.101" are "5.101"; a code that has neither 4 nor 5 characters
// is "".
std::string FormatarCFOPNovo(std::string_view codigo);
// Three-digit table: "511" and "5.11" are "5.11", "5991" and "5.99.1" are "5.99.1"; any other
// number of digits without points is "".
std::string FormatarCFOPAntigo(std::string_view codigo);

}  // namespace tarvo
