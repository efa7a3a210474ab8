// SPDX-License-Identifier: MIT
#include "host/batch/JuncaoDeResumos.h"

#include <map>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "host/batch/SelecaoLote.h"
#include "host/batch/SituacaoDaParte.h"
#include "host/commands/Mensagens.h"
#include "host/commands/ResultadoEmJSON.h"

namespace tarvo::host {

namespace {

[[noreturn]] void Recusar(const std::string& motivo) {
    throw Erro(NumeroErro::ChamadaInvalida, motivo);
}

using Partes = std::map<Parte, SituacaoDaParte>;

void Acrescentar(Partes& partes, const SituacaoDaParte& situacao) {
    const Parte parte = situacao.parte;
    const Parte outra = partes.empty() ? parte : partes.begin()->first;
    if (parte.partes != outra.partes) {
        Recusar("As partes " + TextoDaParte(outra) + " e " + TextoDaParte(parte) +
                " não são do mesmo lote.");
    }
    const auto [lida, nova] = partes.try_emplace(parte, situacao);
    if (!nova) {
        Recusar("A parte " + TextoDaParte(parte) + " está em \"" + lida->second.pasta.string() +
                "\" e em \"" + situacao.pasta.string() + "\".");
    }
}

// All of them, also those that no folder has.
Partes LerPartes(const std::vector<std::filesystem::path>& pastas) {
    Partes partes;
    for (const auto& pasta : pastas) {
        const auto daPasta = PartesNaPasta(pasta);
        if (daPasta.empty()) {
            Recusar("\"" + pasta.string() + "\" não tem o resumo de um lote.");
        }
        for (const Parte& parte : daPasta) {
            Acrescentar(partes, LerSituacao(pasta, parte));
        }
    }
    const std::int32_t quantas = partes.begin()->first.partes;
    for (Parte parte{1, quantas}; parte.numero <= quantas; ++parte.numero) {
        partes.try_emplace(parte, SituacaoDaParte{.parte = parte});
    }
    return partes;
}

// Parts that were asked for otherwise are no whole together. Whether all were asked for alike.
bool ConferirPedidos(const Partes& partes, Console& console) {
    const SituacaoDaParte* primeira = nullptr;
    bool iguais = true;
    for (const auto& [parte, situacao] : partes) {
        if (!situacao.lote) {
            continue;
        }
        if (primeira == nullptr) {
            primeira = &situacao;
        }
        const LinhaResumo& uma = *primeira->lote;
        const LinhaResumo& outra = *situacao.lote;
        const std::string quais =
            "as partes " + TextoDaParte(primeira->parte) + " e " + TextoDaParte(parte);
        if (uma.opcoes != outra.opcoes || uma.refAtual != outra.refAtual) {
            console.Avisar(quais + " não foram pedidas do mesmo modo: " + uma.opcoes + " " +
                           uma.refAtual + "; " + outra.opcoes + " " + outra.refAtual);
            iguais = false;
        }
        if (uma.dados != outra.dados) {
            console.Avisar(quais +
                           " são de bancos que diferem no que as declarações têm em comum "
                           "(códigos, municípios, guia)");
        }
    }
    return iguais;
}

void DizerSituacao(const SituacaoDaParte& s, Console& console) {
    if (!s.lote) {
        console.Dizer("parte " + TextoDaParte(s.parte) + ": não começou");
        return;
    }
    console.Dizer("parte " + TextoDaParte(s.parte) + ": " +
                  (s.concluida ? "concluída" : "não terminou") + ", " +
                  std::to_string(s.terminadas) + " de " +
                  Contados(s.declaracoes, "declaração", "declarações") + ", " +
                  Contados(s.arquivos, "arquivo", "arquivos") +
                  (s.porTerminar.empty() ? "" : "; por terminar: " + Listados(s.porTerminar)));
    for (const auto& [chave, linha] : s.falhas) {
        console.Dizer("declaração " + std::to_string(linha.NroDRQ) +
                      (linha.relatorio == CodigoUnico ? "" : ", relatório " + linha.relatorio) +
                      ": erro " + std::to_string(linha.erro) + ": " + linha.descricao);
    }
}

}  // namespace

int JuntarResumos(const Argumentos& a, Console& console) {
    const Partes partes = LerPartes(a.pastas);
    SituacaoDaParte todas;
    std::size_t naoComecaram = 0;
    std::size_t abertas = 0;
    std::size_t falhas = 0;
    for (const auto& [parte, s] : partes) {
        DizerSituacao(s, console);
        if (a.json) {
            console.Dados() << ResultadoEmJSON(s) << "\n";
        }
        naoComecaram += s.lote ? 0 : 1;
        abertas += s.lote && !s.concluida ? 1 : 0;
        falhas += s.falhas.size();
        todas.declaracoes += s.declaracoes;
        todas.terminadas += s.terminadas;
        todas.arquivos += s.arquivos;
        todas.paginas += s.paginas;
    }
    console.Dizer(Contados(todas.terminadas, "declaração terminada", "declarações terminadas") +
                  ": " + Contados(todas.arquivos, "arquivo", "arquivos") + ", " +
                  Contados(todas.paginas, "página", "páginas"));
    const bool iguais = ConferirPedidos(partes, console);
    if (naoComecaram + abertas + falhas == 0) {
        console.Dizer("não falta nada");
        return iguais ? Feito : Falhou;
    }
    std::string faltas;
    const auto faltar = [&](std::size_t quantos, const char* um, const char* varios) {
        faltas += quantos == 0 ? "" : (faltas.empty() ? "" : ", ") + Contados(quantos, um, varios);
    };
    faltar(naoComecaram, "parte não começou", "partes não começaram");
    faltar(abertas, "parte não terminou", "partes não terminaram");
    faltar(todas.declaracoes - todas.terminadas, "declaração por terminar",
           "declarações por terminar");
    faltar(falhas, "relatório falhou", "relatórios falharam");
    console.Dizer("falta: " + faltas);
    return Falhou;
}

}  // namespace tarvo::host
