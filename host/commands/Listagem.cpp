// SPDX-License-Identifier: MIT
#include "host/commands/ComandosDoBanco.h"

#include <map>
#include <ostream>

#include "dispatch/Declaracoes.h"
#include "document/QuadroPagina.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Mensagens.h"
#include "host/commands/ResultadoEmJSON.h"

namespace tarvo::host {

namespace {

using DeclaracoesDeCada = std::map<std::optional<std::string>, std::vector<Declaracao>>;

std::string LinhaDe(const Declaracao& d) {
    const std::string_view regime = RegimeTributario(d.regime);
    std::string linha = "  DRQ " + std::to_string(d.NroDRQ);
    for (const std::string_view parte :
         {std::string_view(d.referencia), regime.empty() ? std::string_view(d.regime) : regime,
          std::string_view(d.tipo), std::string_view(d.consistente ? "" : "não consistida")}) {
        linha.append(parte.empty() ? "" : "  ").append(parte);
    }
    return linha;
}

// For people: a heading, and a line for each declaration below it.
void Dizer(Console& console, const std::string& titulo, const std::vector<Declaracao>& lista) {
    console.Dizer(titulo);
    for (const auto& declaracao : lista) {
        console.Dizer(LinhaDe(declaracao));
    }
}

void EscreverJSON(std::ostream& dados, const Contribuinte* contribuinte,
                  const std::vector<Declaracao>& lista) {
    for (const auto& declaracao : lista) {
        dados << ResultadoEmJSON(contribuinte, &declaracao) << "\n";
    }
    if (lista.empty()) {
        dados << ResultadoEmJSON(contribuinte, nullptr) << "\n";
    }
}

}  // namespace

int ListarDeclaracoes(const Argumentos& a, Console& console) {
    AberturaInterrompivel abertura(a, console);
    const auto banco = abertura.Abrir({.modo = ModoAbertura::SomenteLeitura});
    const auto contribuintes = LerContribuintes(*banco);
    DeclaracoesDeCada declaracoes;
    for (auto& declaracao : LerDeclaracoes(*banco)) {
        declaracoes[declaracao.IE].push_back(std::move(declaracao));
    }
    if (contribuintes.empty() && declaracoes.empty()) {
        console.Avisar("o banco não tem contribuintes nem declarações");
    }
    const auto mostrar = [&](const std::string& titulo, const Contribuinte* contribuinte,
                             const std::vector<Declaracao>& lista) {
        if (a.json) {
            EscreverJSON(console.Dados(), contribuinte, lista);
        } else {
            Dizer(console, titulo, lista);
        }
    };
    for (const auto& contribuinte : contribuintes) {
        const auto dele = declaracoes.extract(contribuinte.IE);
        mostrar(contribuinte.IE + "  " + contribuinte.razaoSocial, &contribuinte,
                dele.empty() ? std::vector<Declaracao>() : dele.mapped());
    }
    for (const auto& [IE, lista] : declaracoes) {
        mostrar(IE ? *IE + "  (contribuinte ausente do banco)"
                   : "Contribuinte não informado (informe --ie)",
                nullptr, lista);
    }
    return Feito;
}

}  // namespace tarvo::host
