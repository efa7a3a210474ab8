#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/Publico.h"
#include "reports/RelatorioDeTabela.h"

namespace tarvo {

struct RegimeApuracao;
struct TipoApuracao;

// The ICMS assessment of one declaration: debits, credits and balances, item by item.
//
// Errors of Construir leave the lines so far in the work table: 3021 for a missing declaration and
// 94 for a Null in an amount that must be there, when the line that needs it is reached.
class TARVO_PUBLICO RelatorioApuracao : public RelatorioDeTabela {
  protected:
    RelatorioApuracao(const TipoApuracao& tipo, const Ambiente& ambiente);

    // The summed fields as printed: "0,00" when there is nothing to add up, the empty text without
    // a database.
    [[nodiscard]] std::string Campo051(BancoDados* banco, std::int32_t NumeroDRQ) const;
    [[nodiscard]] std::string Campo052(BancoDados* banco, std::int32_t NumeroDRQ) const;
    [[nodiscard]] std::string Campo053(BancoDados* banco, std::int32_t NumeroDRQ) const;
    [[nodiscard]] std::string Campo056(BancoDados* banco, std::int32_t NumeroDRQ) const;
    [[nodiscard]] std::string Campo057(BancoDados* banco, std::int32_t NumeroDRQ) const;
    [[nodiscard]] std::string Campo058(BancoDados* banco, std::int32_t NumeroDRQ) const;

  private:
    void Montar(BancoDados& banco, std::int32_t NumeroDRQ) override {
        MontarApuracao(banco, NumeroDRQ);
    }
    void ImprimirLinha(Recordset& linha, Recordset& identificacao, double y) override;

    void MontarApuracao(BancoDados& banco, std::int32_t NumeroDRQ);
    [[nodiscard]] const RegimeApuracao& LerRegime(BancoDados& banco, std::int32_t NumeroDRQ) const;
    [[nodiscard]] std::string SomaDosCFOPs(BancoDados* banco, std::string_view grupos,
                                           std::int32_t NumeroDRQ) const;
    [[nodiscard]] std::string SomaDosSubitens(BancoDados* banco, std::string_view item,
                                              std::int32_t NumeroDRQ) const;

    const TipoApuracao& tipo_;
};

}  // namespace tarvo
