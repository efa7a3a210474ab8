// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo::host {

// Error 445 when this session has no display that windows could be opened on. To be called before
// the GUI library, which would abort the program.
void ExigirTela();

}  // namespace tarvo::host
