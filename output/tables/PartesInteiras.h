// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvo {

// Whether each part of a workbook's ZIP file is an XML text to its end. The library that writes
// them keeps them in temporary files and does not see when one of these could not be written whole.
bool PartesInteiras(std::string_view zip);

}  // namespace tarvo
