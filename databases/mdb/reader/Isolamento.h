// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace tarvo::mdb {

// Gives up every right that reading a file already mapped does not need: memory (by the file's
// size), processor time, new files, new privileges; of the system's calls only those remain that
// move memory or write to standard output or error. Any other ends the process. False when the
// system cannot do that.
[[nodiscard]] bool Isolar(std::size_t bytesDoArquivo);

}  // namespace tarvo::mdb
