// SPDX-License-Identifier: MIT
#include "desktop/printing/FilaImpressao.h"

#include <algorithm>
#include <memory>

#include "data/ObjetoDeC.h"
#include "desktop/printing/ConexaoCups.h"

namespace tarvo {

namespace {

struct LiberarDestino {
    void operator()(cups_dest_t* destino) const { cupsFreeDests(1, destino); }
};
using Destino = std::unique_ptr<cups_dest_t, LiberarDestino>;

using Informacao = ObjetoDeC<LiberarInformacao>;

// Job options as CUPS keeps them.
class Opcoes {
  public:
    Opcoes() = default;
    ~Opcoes() { cupsFreeOptions(quantidade_, opcoes_); }
    Opcoes(const Opcoes&) = delete;
    Opcoes& operator=(const Opcoes&) = delete;
    void Acrescentar(const char* nome, const std::string& valor) {
        quantidade_ = cupsAddOption(nome, valor.c_str(), quantidade_, &opcoes_);
    }
    [[nodiscard]] int Quantidade() const { return quantidade_; }
    [[nodiscard]] cups_option_t* Lista() const { return opcoes_; }

  private:
    int quantidade_ = 0;
    cups_option_t* opcoes_ = nullptr;
};

std::string Atributo(const cups_dest_t& destino, const char* nome) {
    const char* valor = cupsGetOption(nome, destino.num_options, destino.options);
    return valor != nullptr ? valor : "";
}

std::vector<Impressora> Listar(const ConexaoCups& conexao) {
    cups_dest_t* destinos = nullptr;
    const int quantidade = cupsGetDests2(conexao.Http(), &destinos);
    std::vector<Impressora> impressoras;
    for (int i = 0; i < quantidade; ++i) {
        if (destinos[i].instance == nullptr) {
            impressoras.push_back({destinos[i].name, destinos[i].is_default != 0});
        }
    }
    cupsFreeDests(quantidade, destinos);
    if (impressoras.empty()) {
        if (cupsLastError() >= IPP_STATUS_ERROR_BAD_REQUEST &&
            cupsLastError() != IPP_STATUS_ERROR_NOT_FOUND) {
            conexao.Lancar("As impressoras não puderam ser consultadas");
        }
        LancarErroImpressora("Não há impressora instalada neste sistema.");
    }
    // The user's environment may name another default than the list does.
    if (const Destino padrao(cupsGetNamedDest(conexao.Http(), nullptr, nullptr));
        padrao != nullptr) {
        for (auto& impressora : impressoras) {
            impressora.padrao = impressora.nome == padrao->name;
        }
    }
    return impressoras;
}

std::string Nomes(const std::vector<Impressora>& impressoras) {
    std::string nomes;
    for (const auto& impressora : impressoras) {
        nomes += (nomes.empty() ? "" : ", ") + impressora.nome;
    }
    return nomes;
}

Destino Escolher(const ConexaoCups& conexao, const std::string& nome) {
    Destino destino(
        cupsGetNamedDest(conexao.Http(), nome.empty() ? nullptr : nome.c_str(), nullptr));
    if (destino != nullptr) {
        return destino;
    }
    conexao.LancarSeCalado();
    const auto nomes = Nomes(Listar(conexao));
    LancarErroImpressora(nome.empty()
                             ? "Não há impressora padrão. Escolha uma destas: " + nomes + "."
                             : "Não há impressora \"" + nome + "\". Existem: " + nomes + ".");
}

void RecusarSeParada(const cups_dest_t& destino) {
    const std::string impressora = "A impressora \"" + std::string(destino.name) + "\" ";
    if (Atributo(destino, "printer-state") == std::to_string(IPP_PSTATE_STOPPED)) {
        LancarErroImpressora(impressora + "está parada.");
    }
    if (Atributo(destino, "printer-is-accepting-jobs") == "false") {
        LancarErroImpressora(impressora + "não está aceitando trabalhos.");
    }
}

void DefinirOpcoes(const OpcoesDeImpressao& pedidas, Opcoes& opcoes) {
    // No orientation: each page brings its own, and asking for one would turn it again.
    opcoes.Acrescentar("media", "iso_a4_210x297mm");
    opcoes.Acrescentar("print-scaling", pedidas.ajustar ? "fit" : "none");
    if (pedidas.copias > 1) {
        opcoes.Acrescentar("copies", std::to_string(pedidas.copias));
        opcoes.Acrescentar("multiple-document-handling", "separate-documents-collated-copies");
    }
    constexpr const char* NomesDosLados[] = {"", "one-sided", "two-sided-long-edge",
                                             "two-sided-short-edge"};
    if (pedidas.lados != Lados::ComoNaFila) {
        opcoes.Acrescentar("sides", NomesDosLados[static_cast<int>(pedidas.lados)]);
    }
}

Informacao Consultar(const ConexaoCups& conexao, cups_dest_t& destino) {
    Informacao informacao(cupsCopyDestInfo(conexao.Http(), &destino));
    if (informacao == nullptr) {
        conexao.Lancar("A impressora não pôde ser consultada");
    }
    return informacao;
}

// The job between its creation and its last byte; given up, it is cancelled in the queue.
class TrabalhoAberto {
  public:
    TrabalhoAberto(const ConexaoCups& conexao, cups_dest_t& destino,
                   const TrabalhoImpressao& trabalho)
        : conexao_(conexao), destino_(destino), informacao_(Consultar(conexao, destino)) {
        DefinirOpcoes(trabalho.opcoes, opcoes_);
        if (cupsCreateDestJob(conexao.Http(), &destino, informacao_.get(), &numero_,
                              trabalho.titulo.c_str(), opcoes_.Quantidade(),
                              opcoes_.Lista()) >= IPP_STATUS_ERROR_BAD_REQUEST) {
            conexao.Lancar("O trabalho foi recusado");
        }
    }
    ~TrabalhoAberto() {
        if (!completo_ && numero_ > 0) {
            cupsCancelDestJob(conexao_.Http(), &destino_, numero_);
        }
    }
    TrabalhoAberto(const TrabalhoAberto&) = delete;
    TrabalhoAberto& operator=(const TrabalhoAberto&) = delete;

    int Enviar(const TrabalhoImpressao& trabalho, const std::atomic<bool>* cancelar) {
        constexpr std::size_t Bloco = 65'536;
        auto* http = conexao_.Http();
        if (cupsStartDestDocument(http, &destino_, informacao_.get(), numero_,
                                  trabalho.titulo.c_str(), CUPS_FORMAT_PDF, 0, nullptr,
                                  1) != HTTP_STATUS_CONTINUE) {
            conexao_.Lancar("O trabalho foi recusado");
        }
        for (auto resto = trabalho.pdf; !resto.empty();) {
            LancarSeCancelado(cancelar);
            const auto bytes = std::min(resto.size(), Bloco);
            if (cupsWriteRequestData(http, resto.data(), bytes) != HTTP_STATUS_CONTINUE) {
                conexao_.Lancar("O envio à impressora foi interrompido");
            }
            resto.remove_prefix(bytes);
        }
        LancarSeCancelado(cancelar);
        if (cupsFinishDestDocument(http, &destino_, informacao_.get()) >=
            IPP_STATUS_ERROR_BAD_REQUEST) {
            conexao_.Lancar("O trabalho foi recusado");
        }
        completo_ = true;
        return numero_;
    }

  private:
    const ConexaoCups& conexao_;
    cups_dest_t& destino_;
    Informacao informacao_;
    Opcoes opcoes_;
    int numero_ = 0;
    bool completo_ = false;
};

}  // namespace

std::vector<Impressora> ListarImpressoras(const std::atomic<bool>* cancelar) {
    return Listar(ConexaoCups(cancelar));
}

RecursosDaImpressora ConsultarRecursos(const std::string& impressora,
                                       const std::atomic<bool>* cancelar) {
    const ConexaoCups conexao(cancelar);
    const Destino destino = Escolher(conexao, impressora);
    // Nothing prepares the pages for such a queue, although its attributes say otherwise.
    if (Atributo(*destino, "printer-make-and-model") == "Local Raw Printer") {
        return {};
    }
    const Informacao informacao = Consultar(conexao, *destino);
    const auto faz = [&](const char* opcao, const char* valor) {
        return cupsCheckDestSupported(conexao.Http(), destino.get(), informacao.get(), opcao,
                                      valor) != 0;
    };
    return {.copias = faz("copies", "2"),
            .frenteEVerso = faz("sides", "two-sided-long-edge"),
            .escala = faz("print-scaling", "fit")};
}

int EnviarTrabalho(const TrabalhoImpressao& trabalho, const std::atomic<bool>* cancelar) {
    LancarSeCancelado(cancelar);
    const ConexaoCups conexao(cancelar);
    const Destino destino = Escolher(conexao, trabalho.opcoes.impressora);
    RecusarSeParada(*destino);
    LancarSeCancelado(cancelar);
    return TrabalhoAberto(conexao, *destino, trabalho).Enviar(trabalho, cancelar);
}

}  // namespace tarvo
