// SPDX-License-Identifier: MIT
#include "host/batch/SelecaoLote.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>

#include "data/Textos.h"
#include "dispatch/Declaracoes.h"
#include "host/batch/HashDeDados.h"
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

// By a hash, so that numbers with a pattern spread evenly too.
bool NaParte(std::int32_t NroDRQ, const Parte& parte) {
    return HashCurto(std::to_string(NroDRQ)) % static_cast<std::uint64_t>(parte.partes) ==
           static_cast<std::uint64_t>(parte.numero - 1);
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
            throw UsoErrado(
                "contribuinte não informado: o banco não diz de quem são as declarações; informe "
                "--ie");
        }
        for (auto& declaracao : lista) {
            declaracao.IE = *a.IE;
        }
    }
    std::erase_if(lista, [&](const DeclaracaoDoLote& d) {
        return (a.IE && d.IE != *a.IE) || !NoIntervalo(d.ref1, a) || !NaParte(d.NroDRQ, a.parte);
    });
    const auto chave = [](const DeclaracaoDoLote& d) { return std::tie(d.NroDRQ, d.IE); };
    std::ranges::sort(lista, {}, chave);
    lista.erase(
        std::unique(lista.begin(), lista.end(),
                    [&](const auto& uma, const auto& outra) { return chave(uma) == chave(outra); }),
        lista.end());
    return lista;
}

std::string NomeDaDeclaracao(const DeclaracaoDoLote& declaracao) {
    constexpr std::string_view Digitos = "0123456789ABCDEF";
    constexpr std::size_t MaiorInscricao = 64;
    std::string nome;
    for (const char c : declaracao.IE) {
        if (EhLetraOuDigito(c) || (!nome.empty() && (c == '-' || c == '.'))) {
            nome += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            (nome += '_').append({Digitos[byte >> 4U], Digitos[byte & 0xFU]});
        }
    }
    if (nome.size() > MaiorInscricao) {
        nome = nome.substr(0, MaiorInscricao) + "_" + HashDeTexto(declaracao.IE);
    }
    // A minus would make the registration's end look like the number's sign.
    return nome + (declaracao.NroDRQ < 0 ? "-_" : "-") +
           std::to_string(std::abs(std::int64_t{declaracao.NroDRQ}));
}

std::string Listados(const std::set<std::string>& nomes) {
    constexpr std::size_t PorNome = 20;
    std::string lista;
    std::size_t quantos = 0;
    for (const auto& nome : nomes) {
        if (quantos == PorNome) {
            return lista + " e mais " + std::to_string(nomes.size() - PorNome);
        }
        lista += (quantos++ == 0 ? "" : ", ") + nome;
    }
    return lista;
}

}  // namespace tarvo::host
