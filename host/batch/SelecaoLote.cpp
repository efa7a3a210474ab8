#include "host/batch/SelecaoLote.h"

#include <algorithm>

#include "dispatch/Declaracoes.h"
#include "host/commands/RelatoriosPorCodigo.h"

namespace tarvo::host {

namespace {

// A declaration without a month is outside every interval.
bool NoIntervalo(const std::optional<Data>& ref1, const Argumentos& a) {
    if (!a.de && !a.ate) {
        return true;
    }
    if (!ref1) {
        return false;
    }
    const int ordem = OrdemDoMes(*ref1);
    return (!a.de || OrdemDoMes(*a.de) <= ordem) && (!a.ate || ordem <= OrdemDoMes(*a.ate));
}

}  // namespace

std::vector<DeclaracaoDoLote> EscolherDeclaracoes(BancoDados& banco, const Argumentos& a) {
    std::vector<DeclaracaoDoLote> lista;
    bool dizDeQuem = false;
    PercorrerDeclaracoes(banco, [&](const Declaracao& d) {
        dizDeQuem = dizDeQuem || d.IE;
        lista.push_back({d.NroDRQ, d.IE.value_or(""),
                         d.referencia.empty() ? std::nullopt : std::optional(d.ref1)});
    });
    if (!dizDeQuem && !lista.empty()) {
        if (!a.IE) {
            throw UsoErrado("o banco não diz de quem são as declarações; informe --ie");
        }
        for (auto& declaracao : lista) {
            declaracao.IE = *a.IE;
        }
    }
    std::erase_if(lista, [&](const DeclaracaoDoLote& d) {
        return (a.IE && d.IE != *a.IE) || !NoIntervalo(d.ref1, a);
    });
    std::ranges::sort(lista, {}, &DeclaracaoDoLote::NroDRQ);
    return lista;
}

const DeclaracaoDoLote* Procurar(const std::vector<DeclaracaoDoLote>& declaracoes,
                                 std::int32_t NroDRQ) {
    const auto achada =
        std::ranges::lower_bound(declaracoes, NroDRQ, {}, &DeclaracaoDoLote::NroDRQ);
    return achada != declaracoes.end() && achada->NroDRQ == NroDRQ ? &*achada : nullptr;
}

std::string NomeDaDeclaracao(const DeclaracaoDoLote& declaracao) {
    constexpr std::size_t MaiorInscricao = 64;
    std::string nome;
    for (const char c : declaracao.IE.substr(0, MaiorInscricao)) {
        const bool simples = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                             (c >= 'a' && c <= 'z') || c == '-' || c == '.';
        nome += simples && !(nome.empty() && c == '.') ? c : '_';
    }
    return nome + "-" + std::to_string(declaracao.NroDRQ);
}

std::string ArquivoNoLote(const DeclaracaoDoLote& declaracao, const std::string& codigo,
                          const FormatoDeSaida& formato) {
    const std::string nome = NomeDaDeclaracao(declaracao);
    if (codigo == CodigoUnico) {
        return PrimeiroArquivo(formato, nome);
    }
    return nome + "/" + PrimeiroArquivo(formato, NomeDoArquivo(codigo));
}

}  // namespace tarvo::host
