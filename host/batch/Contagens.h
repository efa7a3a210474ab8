// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <set>
#include <string>

namespace tarvo::host {

// "1 falha", "2 falhas"
std::string Contados(std::size_t quantos, const char* um, const char* varios);
// The first twenty by name, and how many more.
std::string Listados(const std::set<std::string>& nomes);

}  // namespace tarvo::host
