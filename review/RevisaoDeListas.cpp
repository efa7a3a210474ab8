// SPDX-License-Identifier: MIT
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo::revisao {

void RevisarExportacoes(const Contexto& c) {
    constexpr std::string_view Tabela = "tblRegistroExportação";
    static constexpr std::string_view ColunasLidas[] = {"RE"};
    for (Leitura linha(c.banco, Tabela, ColunasLidas, DaDeclaracao(c.NroDRQ)); !linha.Fim();
         linha.Proxima()) {
        if (linha.Texto("RE").empty()) {
            c.achados.Linha("16", Tabela, "sem número de registro – sai uma célula vazia");
        }
    }
}

void RevisarPagamentos(const Contexto& c) {
    constexpr std::string_view Tabela = "tblPagamento";
    static constexpr std::string_view ColunasLidas[] = {"OpPróprias", "Data", "Valor"};
    constexpr std::string_view Relatorio = "17";
    std::size_t semTipo = 0;
    bool proprias = false;
    bool deST = false;
    for (Leitura linha(c.banco, Tabela, ColunasLidas, DaDeclaracao(c.NroDRQ)); !linha.Fim();
         linha.Proxima()) {
        const std::string valor = FormatarValor(linha.Quantia("Valor"));
        if (linha.Nulo("Valor")) {
            c.achados.Linha(Relatorio, Tabela, "pagamento sem valor – o relatório termina em erro");
        }
        if (linha.Nulo("Data")) {
            c.achados.Linha(Relatorio, Tabela, "pagamento sem data – sai com 30/12/1899", valor);
        }
        if (linha.Nulo("OpPróprias")) {
            ++semTipo;
            c.achados.Linha(Relatorio, Tabela,
                            "não diz se é de operações próprias – sai como substituição tributária",
                            valor);
        } else {
            (BooleanoCampo(linha.Ler("OpPróprias")) ? proprias : deST) = true;
        }
    }
    if (semTipo > 0 && proprias && deST) {
        c.achados.Frase(
            Relatorio,
            "a substituição tributária sai em dois blocos, cada um com o seu total, por "
            "causa dos pagamentos que não dizem se são de operações próprias");
    }
}

}  // namespace tarvo::revisao
