// SPDX-License-Identifier: MIT
#include "host/batch/ProgressoLote.h"

#include <utility>

#include "data/Textos.h"
#include "host/batch/SelecaoLote.h"
#include "host/commands/Mensagens.h"

namespace tarvo::host {

namespace {

// "1 h 05 min", "3 min 20 s", "12 s"
std::string Duracao(std::chrono::seconds tempo) {
    const auto doisDigitos = [](std::chrono::seconds::rep n) {
        return (n < 10 ? "0" : "") + std::to_string(n);
    };
    const auto segundos = tempo.count();
    if (segundos >= 3600) {
        return std::to_string(segundos / 3600) + " h " + doisDigitos(segundos / 60 % 60) + " min";
    }
    return segundos >= 60
               ? std::to_string(segundos / 60) + " min " + doisDigitos(segundos % 60) + " s"
               : std::to_string(segundos) + " s";
}

}  // namespace

ProgressoLote::ProgressoLote(Console& console, const Configuracoes& configuracoes,
                             std::string resumo, std::size_t declaracoes, bool noTerminal)
    : console_(console),
      saida_(console.Saida()),
      configuracoes_(configuracoes),
      resumo_(std::move(resumo)),
      declaracoes_(declaracoes),
      noTerminal_(noTerminal) {}

void ProgressoLote::Concluir(const std::string& declaracao, const ContagemDaDeclaracao& contagem) {
    const std::lock_guard trava(mutex_);
    ++concluidas_;
    gravados_ += contagem.gravados;
    prontos_ += contagem.prontos;
    feitas_ += contagem.gravados != 0 ? 1 : 0;
    for (const auto diferenca : contagem.diferencas) {
        refeitas_[diferenca].insert(declaracao);
    }
    if (noTerminal_) {
        EscreverLinha();
    } else {
        saida_ << declaracao << "  " << Contados(contagem.gravados, "arquivo", "arquivos") << "\n"
               << std::flush;
    }
}

void ProgressoLote::Falhar(const Erro& erro, const std::string& contexto) {
    const std::lock_guard trava(mutex_);
    ++falhas_;
    ApagarLinha();
    DizerLinhaDeErro(console_.Erros(), erro, contexto);
    if (aconselhados_.insert(erro.Numero()).second) {
        DizerConselho(console_.Erros(), erro, &configuracoes_);
    }
    EscreverLinha();
}

void ProgressoLote::Avisar(const std::string& aviso) {
    const std::lock_guard trava(mutex_);
    ApagarLinha();
    console_.Avisar(aviso);
    EscreverLinha();
}

void ProgressoLote::EscreverDados(const std::string& linha) {
    const std::lock_guard trava(mutex_);
    console_.Dados() << linha << "\n" << std::flush;
}

void ProgressoLote::Terminar() {
    const std::lock_guard trava(mutex_);
    ApagarLinha();
    saida_ << Contados(concluidas_, "declaração", "declarações") << ": "
           << Contados(gravados_, "arquivo gravado", "arquivos gravados");
    if (prontos_ != 0) {
        saida_ << ", " << Contados(prontos_, "já pronto", "já prontos");
    }
    if (falhas_ != 0) {
        saida_ << ", " << Contados(falhas_, "falha", "falhas") << " (veja " << resumo_ << ")";
    }
    saida_ << "\n";
    for (const auto& [diferenca, declaracoes] : refeitas_) {
        saida_ << "refeitas, porque " << diferenca << ": " << Listados(declaracoes) << "\n";
    }
    saida_ << std::flush;
}

// The estimate counts only what this run makes.
void ProgressoLote::EscreverLinha() {
    if (!noTerminal_) {
        return;
    }
    saida_ << "\r" << concluidas_ << "/" << declaracoes_ << " declarações, "
           << 100 * concluidas_ / declaracoes_ << " %";
    if (feitas_ != 0 && concluidas_ != declaracoes_) {
        const auto decorrido = std::chrono::duration_cast<std::chrono::seconds>(
            std::chrono::steady_clock::now() - inicio_);
        saida_ << ", faltam " << Duracao(decorrido * (declaracoes_ - concluidas_) / feitas_);
    }
    saida_ << "\033[K" << std::flush;
}

void ProgressoLote::ApagarLinha() {
    if (noTerminal_) {
        saida_ << "\r\033[K" << std::flush;
    }
}

}  // namespace tarvo::host
