// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "reports/RelatorioApuracao.h"

namespace tarvo {

// The assessment of the operations under tax substitution, the same whatever the tax regime:
// entry 14 of the selection list.
class TARVO_PUBLICO RelatorioApuracaoSubTrib final : public RelatorioApuracao {
  public:
    explicit RelatorioApuracaoSubTrib(const Ambiente& ambiente = {});

    // Single fields of the assessment as printed ("1.234,56"): "0,00" when the declaration has
    // nothing to add up, the empty text when scit_db is null. They need no Construir and change
    // nothing.
    [[nodiscard]] std::string Campo051st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo(51, scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo052st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo(52, scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo053st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo(53, scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo056st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo(56, scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo057st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo(57, scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo058st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo(58, scit_db, NroDRQ);
    }
    // The same by the field's number; error 5 for another than these six.
    using RelatorioApuracao::Campo;
};

}  // namespace tarvo
