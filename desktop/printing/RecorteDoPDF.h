// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

// A file of this project's own, reduced to these of its pages, each of which exists, in this order.
// Pages count from 1, and one that is named twice is there twice. It keeps what the file says of
// itself, the tags of what is still there (rows whose headings stand on another page have none) and
// the outline's entries that lead to it; more than 500 pages have no tags. Error 51 when pdf cannot
// be read.
std::string EscolherPaginas(std::string_view pdf, const std::vector<int>& paginas);

}  // namespace tarvo
