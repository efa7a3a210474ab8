// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <memory>
#include <string>

#include "system/files/Descritor.h"

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

namespace tarvo {

// Error 57 unless a call of the library (a lxw_error) went well.
void ConferirPlanilha(int erro);

// How a cell looks: what it holds, and whether it is a heading's or a total's.
enum class EstiloDeCelula { Texto, TextoQuebrado, Quantia, Dia, Quantos };

// A workbook that is being written, without a file of anyone's.
class PastaDeTrabalho {
  public:
    // Error 57 when the system has no room for it.
    PastaDeTrabalho();

    // The name is one that spreadsheets take, and no other sheet's.
    lxw_worksheet& NovaFolha(const std::string& nome);
    lxw_format* Formato(EstiloDeCelula estilo, bool negrito);

    // The file's bytes, after which nothing can be added. The same content gives the same bytes
    // where SOURCE_DATE_EPOCH is set. Error 57 when it could not be put together whole.
    std::string Fechar();

  private:
    struct Liberar {
        void operator()(lxw_workbook* pasta) const;
    };

    Descritor arquivo_;  // in memory
    std::unique_ptr<lxw_workbook, Liberar> pasta_;
    std::array<lxw_format*, 2 * static_cast<std::size_t>(EstiloDeCelula::Quantos)> formatos_{};
};

}  // namespace tarvo
