// SPDX-License-Identifier: MIT
#pragma once

#include <hb.h>

namespace tarvo::pdf {

// Of every text, whatever the process's locale; looked up once for all threads.
inline hb_language_t Lingua() {
    static const hb_language_t lingua = hb_language_from_string("pt", -1);
    return lingua;
}

}  // namespace tarvo::pdf
