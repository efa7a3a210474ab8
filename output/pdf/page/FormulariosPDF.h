// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "output/pdf/file/EscritorPDF.h"
#include "output/pdf/page/Formas.h"

namespace tarvo::pdf {

// Groups of shapes that come again and again (the frames of a row, of a page) are written once, as
// form XObjects, and then only named. A group becomes a form when it is seen for the second time.
class FormulariosPDF {
  public:
    FormulariosPDF(EscritorPDF& escritor, std::string prefixo, std::size_t maximo)
        : escritor_(escritor), prefixo_(std::move(prefixo)), maximo_(maximo) {}

    // The name of the form that draws these shapes with (x0, y0) at the origin; empty for none.
    std::string_view Procurar(std::span<const Forma> formas, Centesimos x0, Centesimos y0);
    // Entries of a resource dictionary's XObject.
    [[nodiscard]] const std::string& Recursos() const { return recursos_; }

  private:
    struct Formulario {
        std::string nome;
        std::vector<Forma> formas;  // moved to the origin
    };

    std::string_view Criar(std::uint64_t digestao, std::span<const Forma> formas, Centesimos x0,
                           Centesimos y0);

    EscritorPDF& escritor_;
    std::string prefixo_;
    std::size_t maximo_;
    std::unordered_map<std::uint64_t, Formulario> formularios_;
    std::array<std::uint64_t, 2048> vistos_{};  // groups seen once lately, by their last bits
    std::string recursos_;
};

}  // namespace tarvo::pdf
