// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tarvo::postgresql {

// The statements that make all tables of a declaration database, with their keys and indexes.
std::string CriacaoDeTabelas();

}  // namespace tarvo::postgresql
