#include "host/Lote.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <mutex>
#include <ostream>
#include <thread>

#include "data/Formatos.h"
#include "host/Declaracoes.h"
#include "host/Mensagens.h"
#include "host/ResumoLote.h"
#include "platform/arquivo/Arquivos.h"
#include "platform/configuracoes/ConfiguracoesDaChamada.h"
#include "platform/sqlite/BancoSQLite.h"

namespace tarvo::host {

namespace {

// Set by SIGINT and SIGTERM; read between pages.
std::atomic<bool> Interrompido = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler writes it");

// Catches the two signals for the length of a batch.
class CapturaDeSinais {
  public:
    CapturaDeSinais() {
        Interrompido = false;
        struct sigaction acao {};
        acao.sa_handler = [](int /*sinal*/) { Interrompido = true; };
        sigaction(SIGINT, &acao, &sigint_);
        sigaction(SIGTERM, &acao, &sigterm_);
    }
    ~CapturaDeSinais() {
        sigaction(SIGINT, &sigint_, nullptr);
        sigaction(SIGTERM, &sigterm_, nullptr);
    }
    CapturaDeSinais(const CapturaDeSinais&) = delete;
    CapturaDeSinais& operator=(const CapturaDeSinais&) = delete;

  private:
    struct sigaction sigint_ {};
    struct sigaction sigterm_ {};
};

class CancelaSeInterrompido final : public Andamento {
  public:
    bool PaginaConcluida(std::size_t /*paginas*/) override { return !Interrompido; }
};

// A name that is one part of a path, whatever the registration holds.
std::string NomeSeguro(const std::string& IE, std::int32_t NroDRQ) {
    std::string nome;
    for (const char c : IE) {
        const bool simples = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                             (c >= 'a' && c <= 'z') || c == '-' || c == '.';
        nome += simples && !(nome.empty() && c == '.') ? c : '_';
    }
    return nome + "-" + std::to_string(NroDRQ);
}

std::vector<Declaracao> Escolher(const Argumentos& a) {
    const auto banco = BancoSQLite::Abrir(a.banco, {.modo = ModoAbertura::SomenteLeitura});
    std::vector<Declaracao> lista = LerDeclaracoes(*banco);
    const bool dizDeQuem = std::any_of(lista.begin(), lista.end(),
                                       [](const Declaracao& d) { return d.IE.has_value(); });
    if (!dizDeQuem && !lista.empty() && !a.IE) {
        throw UsoErrado("o banco não diz de quem são as declarações; informe --ie");
    }
    const auto mesAno = [](const std::optional<std::string>& texto) {
        return Data::DeTexto("01/" + *texto);
    };
    std::erase_if(lista, [&](const Declaracao& d) {
        return (dizDeQuem && a.IE && d.IE != a.IE) || (a.de && d.ref1 < mesAno(a.de)) ||
               (a.ate && FormatarMesAno(d.ref1) != *a.ate && d.ref1 > mesAno(a.ate));
    });
    if (!dizDeQuem) {
        for (auto& declaracao : lista) {
            declaracao.IE = a.IE;
        }
    }
    return lista;
}

// Tells how far the batch is: one line that is rewritten on a terminal, a line each elsewhere.
class Progresso {
  public:
    Progresso(std::ostream& saida, std::size_t total)
        : saida_(saida), total_(total), terminal_(isatty(STDOUT_FILENO) == 1) {}

    void Concluir(const std::string& nome, std::size_t falhas) {
        const std::lock_guard trava(mutex_);
        ++concluidas_;
        const auto decorrido = std::chrono::steady_clock::now() - inicio_;
        const auto restante = std::chrono::duration_cast<std::chrono::seconds>(
                                  decorrido * (total_ - concluidas_) / concluidas_)
                                  .count();
        if (terminal_) {
            saida_ << "\r" << concluidas_ << "/" << total_ << " declarações, "
                   << 100 * concluidas_ / total_ << " %, faltam " << restante / 60 << " min "
                   << restante % 60 << " s   " << (concluidas_ == total_ ? "\n" : "") << std::flush;
        } else {
            saida_ << nome << (falhas == 0 ? "" : "  " + std::to_string(falhas) + " falha(s)")
                   << "\n";
        }
    }

  private:
    std::ostream& saida_;
    std::size_t total_;
    bool terminal_;
    std::mutex mutex_;
    std::size_t concluidas_ = 0;
    std::chrono::steady_clock::time_point inicio_ = std::chrono::steady_clock::now();
};

// What the workers share.
struct Lote {
    const Argumentos& argumentos;
    const std::vector<Declaracao>& declaracoes;
    ResumoLote& resumo;
    Progresso& progresso;
    std::atomic<std::size_t> proxima = 0;
    std::atomic<std::size_t> falhas = 0;
    std::mutex mutexErro;
    std::optional<Erro> erro;  // that ended the batch
};

// One thread of the batch with its connection.
class Trabalhador {
  public:
    explicit Trabalhador(Lote& lote)
        : lote_(lote),
          banco_(BancoSQLite::Abrir(lote.argumentos.banco,
                                    {.modo = ModoAbertura::SomenteLeitura,
                                     .tabelasDeTrabalho = TabelasDeTrabalho::Privadas})),
          configuracoes_(lote.argumentos.refAtual) {}

    void Trabalhar() {
        for (std::size_t i = lote_.proxima++; i < lote_.declaracoes.size() && !Interrompido;
             i = lote_.proxima++) {
            Produzir(lote_.declaracoes[i]);
        }
    }

  private:
    void Produzir(const Declaracao& d) {
        const Argumentos& a = lote_.argumentos;
        const std::string nome = NomeSeguro(d.IE.value_or(""), d.NroDRQ);
        falhas_ = 0;
        const auto codigos = a.todos ? CodigosOferecidos(*banco_, d.NroDRQ) : a.codigos;
        if (a.unico) {
            ProduzirUnico(d, nome, codigos);
        } else {
            for (const auto& codigo : codigos) {
                ProduzirRelatorio(d, nome, codigo);
            }
        }
        lote_.falhas += falhas_;
        if (!Interrompido) {
            lote_.progresso.Concluir(nome, falhas_);
        }
    }

    // Runs one step; its error becomes a line of the summary, unless it only says that the batch
    // was interrupted.
    template <class Passo>
    void Tentar(LinhaResumo& linha, Passo&& passo) {
        try {
            passo();
        } catch (const Erro& erro) {
            if (Interrompido) {
                return;
            }
            linha.erro = static_cast<int>(erro.Numero());
            linha.descricao = erro.Descricao();
            ++falhas_;
            lote_.resumo.Acrescentar(linha);
        }
    }

    std::unique_ptr<Relatorio> Construir(const Declaracao& d, const std::string& codigo) {
        return ConstruirRelatorio(codigo, *banco_, {d.IE.value_or(""), d.NroDRQ},
                                  {.configuracoes = &configuracoes_, .andamento = &andamento_});
    }

    void Registrar(LinhaResumo& linha, const ResultadoPDF& resultado) {
        linha.paginas = resultado.paginas;
        linha.cortados = resultado.cortados.size();
        lote_.resumo.Acrescentar(linha);
    }

    static LinhaResumo NovaLinha(const Declaracao& d, std::string relatorio, std::string arquivo) {
        LinhaResumo linha;
        linha.IE = d.IE.value_or("");
        linha.NroDRQ = d.NroDRQ;
        linha.referencia = d.referencia;
        linha.relatorio = std::move(relatorio);
        linha.arquivo = std::move(arquivo);
        return linha;
    }

    // The file that stands for a report in the summary; of PNG pages, the first.
    [[nodiscard]] std::string ArquivoPrincipal(const std::string& codigo) const {
        const Formato formato = lote_.argumentos.destino.formato;
        return NomeDoArquivo(codigo) + (formato == Formato::PNG ? "-001." : ".") +
               std::string(Extensao(formato));
    }

    void ProduzirRelatorio(const Declaracao& d, const std::string& pasta,
                           const std::string& codigo) {
        const Argumentos& a = lote_.argumentos;
        LinhaResumo linha = NovaLinha(d, codigo, pasta + "/" + ArquivoPrincipal(codigo));
        if (Interrompido || lote_.resumo.Produzido(linha.arquivo)) {
            return;
        }
        Tentar(linha, [&] {
            const auto relatorio = Construir(d, codigo);
            Destino destino = a.destino;
            destino.pasta /= pasta;
            Registrar(linha, Gravar(codigo, *relatorio, destino));
        });
    }

    void ProduzirUnico(const Declaracao& d, const std::string& nome,
                       const std::vector<std::string>& codigos) {
        LinhaResumo linha = NovaLinha(d, "todos", nome + ".pdf");
        if (lote_.resumo.Produzido(linha.arquivo)) {
            return;
        }
        std::vector<std::unique_ptr<Relatorio>> relatorios;
        std::vector<SecaoPDF> secoes;
        for (const auto& codigo : codigos) {
            LinhaResumo falha = NovaLinha(d, codigo, "");
            Tentar(falha, [&] {
                relatorios.push_back(Construir(d, codigo));
                secoes.push_back({&relatorios.back()->Documento(),
                                  codigo + " - " + relatorios.back()->Documento().tituloResumido});
            });
        }
        if (Interrompido || secoes.empty()) {
            return;
        }
        Tentar(linha, [&] {
            Registrar(linha, GravarPDF(secoes, lote_.argumentos.destino.pasta / linha.arquivo));
        });
    }

    Lote& lote_;
    std::unique_ptr<BancoSQLite> banco_;
    ConfiguracoesDaChamada configuracoes_;
    CancelaSeInterrompido andamento_;
    std::size_t falhas_ = 0;  // of the current declaration
};

void Trabalhar(Lote& lote) {
    try {
        Trabalhador(lote).Trabalhar();
    } catch (const Erro& erro) {
        const std::lock_guard trava(lote.mutexErro);
        lote.erro = erro;
        lote.proxima = lote.declaracoes.size();
    }
}

}  // namespace

int ExecutarLote(const Argumentos& a, std::ostream& saida, std::ostream& erros) {
    const std::vector<Declaracao> declaracoes = Escolher(a);
    CriarPasta(a.destino.pasta);
    ResumoLote resumo(a.destino.pasta, a.retomar);
    Progresso progresso(saida, declaracoes.size());
    Lote lote{.argumentos = a,
              .declaracoes = declaracoes,
              .resumo = resumo,
              .progresso = progresso,
              .mutexErro = {},
              .erro = {}};
    const CapturaDeSinais captura;
    {
        std::vector<std::jthread> trabalhadores;
        trabalhadores.reserve(static_cast<std::size_t>(a.trabalhos));
        for (int i = 0; i < a.trabalhos; ++i) {
            trabalhadores.emplace_back([&lote] { Trabalhar(lote); });
        }
    }
    if (lote.erro) {
        throw Erro(*lote.erro);
    }
    if (Interrompido) {
        erros << "interrompido; a mesma chamada com --retomar continua\n";
        return Falhou;
    }
    if (lote.falhas != 0) {
        erros << lote.falhas << " falha(s); veja resumo.csv\n";
        return Falhou;
    }
    return Feito;
}

}  // namespace tarvo::host
