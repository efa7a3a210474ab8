// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>

namespace tarvo::host {

// The commands that open windows: the selection dialog of a declaration, the payment slip's
// preview, and the window of the host. Returns the exit status once the last window is closed.
int ExecutarComJanelas(int argc, char** argv, std::ostream& erros);

}  // namespace tarvo::host
