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
    ~RelatorioApuracaoSubTrib() override;

    // Single fields of the assessment as printed ("1.234,56"): "0,00" when the declaration has
    // nothing to add up, the empty text when scit_db is null. They need no Construir and change
    // nothing.
    [[nodiscard]] std::string Campo051st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo051(scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo052st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo052(scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo053st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo053(scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo056st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo056(scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo057st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo057(scit_db, NroDRQ);
    }
    [[nodiscard]] std::string Campo058st(BancoDados* scit_db, std::int32_t NroDRQ) const {
        return Campo058(scit_db, NroDRQ);
    }
};

}  // namespace tarvo
