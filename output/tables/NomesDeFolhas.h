// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace tarvo {

// Gives the sheets of a workbook names that spreadsheets take: of at most 31 characters, without
// those that mean something in a formula, and no two alike.
class NomesDeFolhas {
  public:
    std::string Novo(std::string_view desejado);

  private:
    // How a name counts: without regard to case. What is beyond ASCII counts as one character, so
    // that nobody's rules of case make two names one.
    static std::string Chave(std::string_view nome);

    std::set<std::string> usadas_ = {"history"};  // that one is the spreadsheet's own
};

}  // namespace tarvo
