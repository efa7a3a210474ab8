// SPDX-License-Identifier: MIT
#include "host/batch/ResumoLote.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <tuple>
#include <utility>

#include "data/CodigosDeErros.h"
#include "system/files/Arquivos.h"
#include "system/files/GravacaoSegura.h"
#include "system/files/TravaDePasta.h"

namespace tarvo::host {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Recusar(const fs::path& arquivo, const char* motivo) {
    throw Erro(NumeroErro::ChamadaInvalida, "\"" + arquivo.string() + "\" " + motivo);
}

bool EhLinhaDoLote(const LinhaResumo& linha) {
    return linha.relatorio == CodigoLote && PastaDeEspera::EhNomeDeEspera(linha.arquivo);
}

}  // namespace

ResumoLote::ResumoLote(const fs::path& pasta, const Parte& parte, bool retomar, LinhaResumo lote)
    : arquivo_(pasta / NomeDoResumo(parte)), lote_(std::move(lote)) {
    for (const Parte& outra : PartesNaPasta(pasta)) {
        if (outra.partes != parte.partes) {
            Recusar(pasta / NomeDoResumo(outra),
                    "é o resumo de um lote dividido de outra forma; use outra pasta.");
        }
    }
    std::error_code ignorado;
    const auto estado = fs::symlink_status(arquivo_, ignorado);
    const bool comum = !fs::exists(estado) || fs::is_regular_file(estado);
    if (comum) {
        Travar();
    }
    const bool existe = !comum || tamanho_ != 0;
    if (existe && !retomar) {
        throw Erro(NumeroErro::ArquivoJaExiste,
                   "\"" + arquivo_.string() + "\" já existe: a pasta tem o resumo de um lote.");
    }
    if (!comum) {
        Recusar(arquivo_, "não é um arquivo comum; use outra pasta.");
    }
    const bool semFim = existe && LerAnteriores();
    espera_ = loteAnterior_ ? PastaDeEspera::Retomada(pasta / loteAnterior_->arquivo)
                            : PastaDeEspera::Nova(pasta);
    lote_.relatorio = CodigoLote;
    lote_.arquivo = espera_->Caminho().filename().string();
    const std::string antes = existe ? semFim ? "\r\n" : "" : Cabecalho();
    posicaoDoLote_ = Escrever(antes + Escrita(lote_)) + antes.size();
}

// Another batch may have put a new file in its place until it was locked.
void ResumoLote::Travar() {
    saida_.emplace(AbrirDescritor(arquivo_, O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW));
    constexpr const char* EmUso = "outro lote está trabalhando com este resumo";
    tarvo::Travar(*saida_, Trava::Exclusiva, arquivo_, EmUso);
    struct stat travado {};
    struct stat atual {};
    if (::fstat(saida_->Valor(), &travado) != 0 || ::stat(arquivo_.c_str(), &atual) != 0 ||
        travado.st_dev != atual.st_dev || travado.st_ino != atual.st_ino) {
        throw Erro(NumeroErro::EmUso, "\"" + arquivo_.string() + "\": " + EmUso + ".");
    }
    tamanho_ = static_cast<std::uint64_t>(travado.st_size);
}

ResumoLote::~ResumoLote() = default;

bool ResumoLote::LerAnteriores() {
    leitura_.open(arquivo_, std::ios::binary);
    if (!leitura_.is_open()) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    LeitorDeRegistros leitor(leitura_);
    std::string registro;
    leitor.Proximo(registro);
    ExigirCabecalho(registro, arquivo_);
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
            tamanho_ = leitor.Inicio();
        } else if (lida && EhLinhaDoLote(*lida)) {
            loteAnterior_ = *lida;
            descartadas_.push_back(leitor.Inicio());
        } else if (lida && lida->relatorio == CodigoFim) {
            fins_.push_back(leitor.Inicio());
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
    const std::string texto = Escrita(linha);
    const std::lock_guard trava(mutex_);
    Escrever(texto);
}

void ResumoLote::Concluir(const LinhaResumo& linha) {
    const std::string texto = Escrita(linha);
    const std::lock_guard trava(mutex_);
    fins_.push_back(Escrever(texto));
}

std::uint64_t ResumoLote::Escrever(const std::string& texto) {
    const std::uint64_t posicao = tamanho_;
    if (const int erro = EscreverTudo(saida_->Valor(), texto); erro != 0) {
        LancarErroDeArquivo(arquivo_, erro);
    }
    tamanho_ += texto.size();
    return posicao;
}

void ResumoLote::Terminar(bool todas) {
    if (!todas && descartadas_.empty()) {
        return;
    }
    if (todas) {
        descartadas_.insert(descartadas_.end(), fins_.begin(), fins_.end());
    }
    std::ranges::sort(descartadas_);
    if (todas) {
        lote_.conteudo = Concluido;
        PercorrerQueFicam([&](const std::string& registro, std::uint64_t /*posicao*/) {
            if (const auto linha = Lida(registro)) {
                lote_.Somar(*linha);
            }
        });
    }
    GravacaoSegura nova(arquivo_, espera_->Caminho());
    PercorrerQueFicam([&](const std::string& registro, std::uint64_t posicao) {
        nova.Escrever(posicao == posicaoDoLote_ ? Escrita(lote_) : registro);
    });
    nova.Confirmar();
}

void ResumoLote::PercorrerQueFicam(
    const std::function<void(const std::string&, std::uint64_t)>& receber) const {
    std::ifstream atual(arquivo_, std::ios::binary);
    LeitorDeRegistros leitor(atual);
    for (std::string registro; leitor.Proximo(registro);) {
        if (!std::ranges::binary_search(descartadas_, leitor.Inicio())) {
            receber(registro, leitor.Inicio());
        }
    }
}

}  // namespace tarvo::host
