#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "reports/RelatorioDeTabela.h"

namespace tarvo {

class LinhasApuracao;

// How the balances are settled under a tax regime.
struct RegimeApuracao {
    std::string_view codigo;  // "01"
    std::string_view titulo;  // empty: no line of its own
    // Writes the block of deductions and hands back their amount; null: no block, no deductions.
    Moeda (*deduzir)(LinhasApuracao& linhas) = nullptr;
    bool fixadoAMaior = false;  // whether deductions above the debit balance have a line
};

// What differs between the assessments; constant data of the report classes.
struct TipoApuracao {
    IdentidadeRelatorio identidade;
    FormatoDeTabela formato;
    std::span<const std::string_view> colunasCFOP;  // columns of the CFOP details that count
    std::string_view gruposDebito;                  // CFOP groups, one digit each
    std::string_view gruposCredito;
    bool opProprias;               // which of the sub-items count
    std::string_view saldoCredor;  // the declaration's credit balance of the previous period
    // By the declaration's tax regime, the last for every other code; a single one for all.
    std::span<const RegimeApuracao> regimes;
};

// The pages of the assessments: portrait, 31 lines.
constexpr FormatoDeTabela FormatoDeApuracao(std::string_view tabela, std::string_view titulo) {
    return {.tabela = tabela,
            .cabecalho = {.titulo = titulo},
            .yPrimeiraLinha = 5.9,
            .yUltimaLinha = 24.4,
            .yRodape = YRodape};
}

// The ICMS assessment of one declaration: debits, credits and balances, item by item.
//
// Errors of Construir leave the lines so far in the work table: 3021 for a missing declaration and
// 94 for a Null in an amount that must be there, when the line that needs it is reached.
class RelatorioApuracao : public RelatorioDeTabela {
  protected:
    RelatorioApuracao(const TipoApuracao& tipo, const Ambiente& ambiente)
        : RelatorioDeTabela(tipo.identidade, tipo.formato, ambiente), tipo_(tipo) {}

    // The summed fields as printed: "0,00" when there is nothing to add up, the empty text without
    // a database.
    [[nodiscard]] std::string Campo051(BancoDados* banco, std::int32_t NumeroDRQ) const {
        return SomaDosCFOPs(banco, tipo_.gruposDebito, NumeroDRQ);
    }
    [[nodiscard]] std::string Campo052(BancoDados* banco, std::int32_t NumeroDRQ) const {
        return SomaDosSubitens(banco, "002", NumeroDRQ);
    }
    [[nodiscard]] std::string Campo053(BancoDados* banco, std::int32_t NumeroDRQ) const {
        return SomaDosSubitens(banco, "003", NumeroDRQ);
    }
    [[nodiscard]] std::string Campo056(BancoDados* banco, std::int32_t NumeroDRQ) const {
        return SomaDosCFOPs(banco, tipo_.gruposCredito, NumeroDRQ);
    }
    [[nodiscard]] std::string Campo057(BancoDados* banco, std::int32_t NumeroDRQ) const {
        return SomaDosSubitens(banco, "007", NumeroDRQ);
    }
    [[nodiscard]] std::string Campo058(BancoDados* banco, std::int32_t NumeroDRQ) const {
        return SomaDosSubitens(banco, "008", NumeroDRQ);
    }

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
