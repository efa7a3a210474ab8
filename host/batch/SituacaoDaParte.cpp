// SPDX-License-Identifier: MIT
#include "host/batch/SituacaoDaParte.h"

#include <cerrno>
#include <fstream>

#include "host/batch/SelecaoLote.h"
#include "system/files/Arquivos.h"

namespace tarvo::host {

namespace {

struct Tamanho {
    std::size_t paginas = 0;
    std::uintmax_t bytes = 0;
};

// Of what was made or failed again, the last line holds.
struct Linhas {
    std::map<std::string, Tamanho> arquivos;
    std::map<std::int32_t, std::string> comecadas;
    std::set<std::int32_t> terminadas;
    LinhaResumo soma = {};

    void Juntar(const LinhaResumo& linha, SituacaoDaParte& s) {
        if (linha.relatorio == CodigoLote) {
            s.lote = linha;
            return;
        }
        if (linha.relatorio == CodigoFim) {
            terminadas.insert(linha.NroDRQ);
            return;
        }
        soma.Somar(linha);
        comecadas.try_emplace(linha.NroDRQ, NomeDaDeclaracao({linha.NroDRQ, linha.IE, {}}));
        s.falhas.erase({linha.NroDRQ, CodigoUnico});
        if (linha.erro != 0) {
            s.falhas[{linha.NroDRQ, linha.relatorio}] = linha;
        } else {
            s.falhas.erase({linha.NroDRQ, linha.relatorio});
            arquivos[linha.arquivo] = {linha.paginas, linha.bytes};
        }
    }
};

}  // namespace

SituacaoDaParte LerSituacao(const std::filesystem::path& pasta, const Parte& parte) {
    SituacaoDaParte s{.parte = parte, .pasta = pasta};
    const std::filesystem::path arquivo = pasta / NomeDoResumo(parte);
    ExigirArquivoComum(arquivo);
    std::ifstream entrada(arquivo, std::ios::binary);
    if (!entrada.is_open()) {
        LancarErroDeArquivo(arquivo, errno);
    }
    LeitorDeRegistros leitor(entrada);
    std::string registro;
    // A kill may have come before the first line.
    if (leitor.Proximo(registro)) {
        ExigirCabecalho(registro, arquivo);
    }
    Linhas linhas;
    while (leitor.Proximo(registro)) {
        if (const auto linha = Lida(registro)) {
            linhas.Juntar(*linha, s);
        }
    }
    if (!s.lote) {
        return s;
    }
    s.concluida = s.lote->conteudo == Concluido && s.lote->bytes == linhas.soma.bytes &&
                  s.lote->paginas == linhas.soma.paginas;
    s.declaracoes = static_cast<std::size_t>(s.lote->NroDRQ);
    s.terminadas = s.concluida ? s.declaracoes : linhas.terminadas.size();
    for (const auto& [NroDRQ, nome] : linhas.comecadas) {
        if (!s.concluida && !linhas.terminadas.contains(NroDRQ)) {
            s.porTerminar.insert(nome);
        }
    }
    s.arquivos = linhas.arquivos.size();
    for (const auto& [nome, tamanho] : linhas.arquivos) {
        s.paginas += tamanho.paginas;
        s.bytes += tamanho.bytes;
    }
    return s;
}

}  // namespace tarvo::host
