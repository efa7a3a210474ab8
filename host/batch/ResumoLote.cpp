#include "host/batch/ResumoLote.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <tuple>

#include "data/CodigosDeErros.h"
#include "system/files/Arquivos.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo::host {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Recusar(const fs::path& arquivo, const char* motivo) {
    throw Erro(NumeroErro::ChamadaInvalida, "\"" + arquivo.string() + "\" " + motivo);
}

bool Existe(const fs::path& arquivo) {
    std::error_code ignorado;
    return fs::exists(fs::symlink_status(arquivo, ignorado));
}

bool EhLinhaDoLote(const LinhaResumo& linha) {
    return linha.relatorio == CodigoLote && PastaDeEspera::EhNomeDeEspera(linha.arquivo);
}

}  // namespace

ResumoLote::ResumoLote(const fs::path& pasta, bool retomar, LinhaResumo lote)
    : arquivo_(pasta / "resumo.csv") {
    const bool existe = Existe(arquivo_);
    if (existe && !retomar) {
        throw Erro(NumeroErro::ArquivoJaExiste,
                   "\"" + arquivo_.string() + "\" já existe: a pasta tem o resumo de um lote.");
    }
    const bool semFim = existe && LerAnteriores();
    espera_ = loteAnterior_ ? PastaDeEspera::Retomada(pasta / loteAnterior_->arquivo)
                            : PastaDeEspera::Nova(pasta);
    lote.relatorio = CodigoLote;
    lote.arquivo = espera_->Caminho().filename().string();
    if (!existe) {
        GravarArquivo(arquivo_, Cabecalho() + Escrita(lote));
    }
    saida_.emplace(::open(arquivo_.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_CLOEXEC));
    if (saida_->Valor() < 0) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    if (existe) {
        Escrever((semFim ? "\r\n" : "") + Escrita(lote));
    }
}

ResumoLote::~ResumoLote() = default;

bool ResumoLote::LerAnteriores() {
    std::error_code ignorado;
    if (!fs::is_regular_file(fs::symlink_status(arquivo_, ignorado))) {
        Recusar(arquivo_, "não é um arquivo comum; use outra pasta.");
    }
    leitura_.open(arquivo_, std::ios::binary);
    if (!leitura_.is_open()) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    LeitorDeRegistros leitor(leitura_);
    std::string registro;
    leitor.Proximo(registro);
    switch (TipoPeloCabecalho(registro)) {
        case TipoDeResumo::Atual:
            break;
        case TipoDeResumo::SemHashes:
            Recusar(arquivo_,
                    "é o resumo de um lote da versão 1.0, que não diz de que dados foi feito; use "
                    "outra pasta.");
        case TipoDeResumo::Nenhum:
            Recusar(arquivo_, "não é o resumo de um lote; use outra pasta.");
    }
    bool semFim = !registro.ends_with('\n');
    while (leitor.Proximo(registro)) {
        const auto lida = Lida(registro);
        semFim = !registro.ends_with('\n');
        if (semFim && !lida) {
            // A kill cut it short.
            semFim = false;
            if (::truncate(arquivo_.c_str(), static_cast<off_t>(leitor.Inicio())) != 0) {
                LancarErroDeArquivo(arquivo_, errno);
            }
        } else if (lida && EhLinhaDoLote(*lida)) {
            loteAnterior_ = *lida;
            descartadas_.push_back(leitor.Inicio());
        } else if (lida) {
            lugares_.push_back({lida->NroDRQ, leitor.Inicio()});
        }
    }
    std::ranges::sort(lugares_, {}, [](const Lugar& l) { return std::tuple(l.NroDRQ, l.posicao); });
    return semFim;
}

std::vector<ResumoLote::LinhaAnterior> ResumoLote::Anteriores(std::int32_t NroDRQ) {
    std::map<std::string, LinhaAnterior> ultimas;
    std::string registro;
    for (auto lugar = std::ranges::lower_bound(lugares_, NroDRQ, {}, &Lugar::NroDRQ);
         lugar != lugares_.end() && lugar->NroDRQ == NroDRQ; ++lugar) {
        const std::lock_guard trava(mutex_);
        leitura_.seekg(static_cast<std::streamoff>(lugar->posicao));
        LeitorDeRegistros(leitura_).Proximo(registro);
        // The file may have been changed since.
        auto lida = Lida(registro);
        if (!lida || lida->NroDRQ != NroDRQ) {
            continue;
        }
        auto& ultima = ultimas[lida->arquivo.empty() ? lida->relatorio : lida->arquivo];
        if (ultima.posicao != 0) {
            descartadas_.push_back(ultima.posicao);
        }
        ultima = {*std::move(lida), lugar->posicao};
    }
    std::vector<LinhaAnterior> linhas;
    linhas.reserve(ultimas.size());
    for (auto& [nome, linha] : ultimas) {
        linhas.push_back(std::move(linha));
    }
    return linhas;
}

void ResumoLote::Descartar(std::uint64_t posicao) {
    const std::lock_guard trava(mutex_);
    descartadas_.push_back(posicao);
}

void ResumoLote::Acrescentar(const LinhaResumo& linha) {
    Escrever(Escrita(linha));
}

void ResumoLote::Escrever(const std::string& texto) {
    const std::lock_guard trava(mutex_);
    if (const int erro = EscreverTudo(saida_->Valor(), texto); erro != 0) {
        LancarErroDeArquivo(arquivo_, erro);
    }
}

void ResumoLote::Terminar() {
    saida_.reset();
    if (descartadas_.empty()) {
        return;
    }
    std::ranges::sort(descartadas_);
    leitura_.seekg(0);
    GravacaoSegura nova(arquivo_, espera_->Caminho());
    LeitorDeRegistros leitor(leitura_);
    for (std::string registro; leitor.Proximo(registro);) {
        if (!std::ranges::binary_search(descartadas_, leitor.Inicio())) {
            nova.Escrever(registro);
        }
    }
    nova.Confirmar();
}

}  // namespace tarvo::host
