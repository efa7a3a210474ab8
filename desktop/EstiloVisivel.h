// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo {

// Lets Qt's own style, where the program has it, show frames of check boxes and the keyboard's
// focus clearly in every palette; a desktop's style stays as it is. Once per program that is ours,
// after the QApplication was made.
void InstalarEstiloVisivel();

}  // namespace tarvo
