#pragma once

#include <string_view>

namespace tarvo::c {

// Whether the text is well-formed UTF-8: no truncated, overlong or surrogate sequences.
bool EhUtf8(std::string_view texto);

}  // namespace tarvo::c
