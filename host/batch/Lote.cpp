// SPDX-License-Identifier: MIT
#include "host/batch/Lote.h"

#include <fcntl.h>
#include <malloc.h>
#include <poll.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <mutex>
#include <optional>
#include <ostream>
#include <thread>

#include "data/Formatos.h"
#include "databases/sqlite/BancoSQLite.h"
#include "host/batch/HashDeDados.h"
#include "host/batch/ProgressoLote.h"
#include "host/batch/ResumoLote.h"
#include "host/batch/SelecaoLote.h"
#include "host/batch/TrabalhadorLote.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Avisos.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "output/pdf/RenderizadorPDF.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/files/Arquivos.h"
#include "system/files/Descritor.h"
#include "system/files/TravaDePasta.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

// The C library gives each thread an arena, which takes 128 MB of addresses while it is made. Where
// the process may not have that for each, it would try in vain at every allocation, and the batch
// would crawl: then all share one.
void PrepararMemoria(std::size_t trabalhos) {
    constexpr rlim_t Arena = rlim_t{128} * 1024 * 1024;
    rlimit limite{};
    if (::getrlimit(RLIMIT_AS, &limite) == 0 && limite.rlim_cur / Arena <= trabalhos) {
        ::mallopt(M_ARENA_MAX, 1);
    }
}

// A reader of the output that goes away ("| head") ends the output, not the batch.
class SaidaSemLeitor {
  public:
    explicit SaidaSemLeitor(std::ostream& saida)
        : saida_(saida), anterior_(std::signal(SIGPIPE, SIG_IGN)) {}
    ~SaidaSemLeitor() {
        pollfd padrao{.fd = STDOUT_FILENO, .events = POLLOUT, .revents = 0};
        if (!saida_ && ::poll(&padrao, 1, 0) == 1 && (padrao.revents & POLLERR) != 0) {
            const Descritor nada(::open("/dev/null", O_WRONLY | O_CLOEXEC));
            ::dup2(nada.Valor(), STDOUT_FILENO);
            saida_.clear();
        }
        std::signal(SIGPIPE, anterior_);
    }
    SaidaSemLeitor(const SaidaSemLeitor&) = delete;
    SaidaSemLeitor& operator=(const SaidaSemLeitor&) = delete;

  private:
    std::ostream& saida_;
    void (*anterior_)(int);
};

// The declarations, which the workers take one after the other until the last, an interruption or
// an error that ends the batch.
class Fila {
  public:
    explicit Fila(const std::vector<DeclaracaoDoLote>& declaracoes) : declaracoes_(declaracoes) {}

    // nullptr: no more.
    const DeclaracaoDoLote* Proxima() {
        const std::size_t i = proxima_++;
        return i < declaracoes_.size() && !Interrompido() ? &declaracoes_[i] : nullptr;
    }
    void Encerrar(Erro erro) {
        const std::lock_guard trava(mutex_);
        erro_ = std::move(erro);
        proxima_ = declaracoes_.size();
    }
    // That ended it; to be asked when the workers have.
    [[nodiscard]] const std::optional<Erro>& ErroQueEncerrou() const { return erro_; }

  private:
    const std::vector<DeclaracaoDoLote>& declaracoes_;
    std::atomic<std::size_t> proxima_ = 0;
    std::mutex mutex_;
    std::optional<Erro> erro_;
};

void ProduzirAteOFim(Fila& fila, const LoteEmCurso& lote) {
    try {
        TrabalhadorLote trabalhador(lote);
        while (const DeclaracaoDoLote* const declaracao = fila.Proxima()) {
            trabalhador.Produzir(*declaracao);
        }
    } catch (...) {
        fila.Encerrar(ErroCorrente());
    }
}

// This thread is one of them.
void ProduzirEmParalelo(Fila& fila, const LoteEmCurso& lote, std::size_t trabalhos) {
    std::vector<std::jthread> outros;
    try {
        while (outros.size() + 1 < trabalhos) {
            outros.emplace_back([&] { ProduzirAteOFim(fila, lote); });
        }
    } catch (const std::system_error&) {
        // The machine gives no more threads: those that there are do all.
    }
    ProduzirAteOFim(fila, lote);
}

// What all parts of a batch were asked for alike.
std::string OpcoesDoLote(const Argumentos& a) {
    std::string opcoes(a.saida.formato->nome);
    opcoes += a.unico ? " --unico" : "";
    for (const auto& codigo : a.codigos) {
        opcoes += (&codigo == &a.codigos.front() ? " --relatorios " : ",") + codigo;
    }
    opcoes += a.IE ? " --ie " + *a.IE : "";
    opcoes += a.de ? " --de " + FormatarMesAno(*a.de) : "";
    opcoes += a.ate ? " --ate " + FormatarMesAno(*a.ate) : "";
    return opcoes;
}

// What this batch is made from, as its summary says it.
LinhaResumo LinhaDoLote(const Argumentos& a, std::size_t declaracoes,
                        const std::string& dadosComuns) {
    std::error_code erro;
    const auto arquivo = std::filesystem::canonical(a.banco, erro);
    LinhaResumo linha;
    linha.descricao = "banco " + (erro ? a.banco : arquivo).string();
    linha.refAtual = a.refDaDeclaracao ? "declaração" : a.refAtual.value_or("");
    linha.NroDRQ = static_cast<std::int32_t>(declaracoes);
    linha.opcoes = OpcoesDoLote(a);
    linha.dados = dadosComuns;
    return linha;
}

void AvisarDiferencas(const std::optional<LinhaResumo>& anterior, const LinhaResumo& agora,
                      Console& console) {
    if (anterior && anterior->descricao != agora.descricao) {
        console.Avisar("o lote começou com o " + anterior->descricao);
    }
    if (anterior && anterior->dados != agora.dados) {
        console.Avisar(
            "o que as declarações têm em comum no banco (códigos, municípios, guia) mudou");
    }
}

}  // namespace

int ExecutarLote(const Argumentos& a, Console& console) {
    PrepararParaVariosFios();
    PrepararMemoria(static_cast<std::size_t>(a.trabalhos));
    PrepararFontes();
    AberturaInterrompivel abertura(a, console);
    const auto fonte = abertura.Localizar(
        {.modo = ModoAbertura::SomenteLeitura, .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
    const auto banco = abertura.Acompanhada(fonte);
    // The whole database is looked through, which the first part does for all.
    if (a.parte.numero == 1) {
        AvisarDanos(*banco, console);
    }
    const auto declaracoes = EscolherDeclaracoes(*banco, a);
    if (declaracoes.empty()) {
        console.Avisar("nenhuma declaração corresponde ao que foi pedido");
    }
    const SaidaSemLeitor saidaSemLeitor(console.Dados());
    CriarPasta(a.saida.pasta);
    const TravaDePasta trava(a.saida.pasta,
                             a.parte.partes == 1 ? Trava::Exclusiva : Trava::Partilhada,
                             "outro lote está trabalhando nesta pasta");
    const std::string dadosComuns = HashDosDadosComuns(*banco);
    const LinhaResumo origem = LinhaDoLote(a, declaracoes.size(), dadosComuns);
    ResumoLote resumo(a.saida.pasta, a.parte, a.retomar, origem);
    AvisarDiferencas(resumo.LoteAnterior(), origem, console);
    const ConfiguracoesIni doUsuario;
    const ConfiguracoesDaChamada configuracoes(doUsuario, a.refAtual);
    ProgressoLote progresso(console, configuracoes, NomeDoResumo(a.parte), declaracoes.size(),
                            ::isatty(STDOUT_FILENO) == 1);
    const LoteEmCurso lote{a, fonte, configuracoes, dadosComuns, resumo, progresso};
    Fila fila(declaracoes);
    ProduzirEmParalelo(fila, lote,
                       std::min(static_cast<std::size_t>(a.trabalhos), declaracoes.size()));
    progresso.Terminar();
    if (!fila.ErroQueEncerrou()) {
        resumo.Terminar(!Interrompido());
    }
    if (fila.ErroQueEncerrou() || Interrompido()) {
        if (fila.ErroQueEncerrou()) {
            DizerErro(console.Erros(), *fila.ErroQueEncerrou());
        }
        console.Erros() << "o lote parou antes do fim; a mesma chamada com --retomar continua\n";
        return Falhou;
    }
    EsperarPeloDisco(a.saida.pasta);
    return progresso.Falhas() == 0 ? Feito : Falhou;
}

}  // namespace tarvo::host
