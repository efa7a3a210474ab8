#include "host/batch/Lote.h"

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <ostream>
#include <thread>

#include "data/Formatos.h"
#include "databases/AbrirBanco.h"
#include "databases/sqlite/BancoSQLite.h"
#include "dispatch/Declaracoes.h"
#include "host/batch/LotesAnteriores.h"
#include "host/batch/ProgressoLote.h"
#include "host/batch/ResumoLote.h"
#include "host/batch/SelecaoLote.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "host/commands/RelatoriosPorCodigo.h"
#include "output/pdf/RenderizadorPDF.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/files/Arquivos.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

std::unique_ptr<BancoDados> AbrirParaLer(const Argumentos& a) {
    return AbrirBanco(a.banco, {.modo = ModoAbertura::SomenteLeitura,
                                .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
}

// What makes every other report fail too: the batch ends, and can be resumed.
bool EncerraOLote(NumeroErro numero) {
    return numero == NumeroErro::DiscoCheio || numero == NumeroErro::BancoOcupado ||
           numero == NumeroErro::BancoNaoEncontrado || numero == NumeroErro::MemoriaInsuficiente ||
           numero == NumeroErro::FonteAusente;
}

// What the workers share.
struct Lote {
    const Argumentos& argumentos;
    const std::vector<DeclaracaoDoLote>& declaracoes;
    const ArquivosProntos& prontos;
    ResumoLote& resumo;
    ProgressoLote& progresso;
    std::atomic<std::size_t> proxima = 0;
    std::mutex mutex;
    std::optional<Erro> erro;  // that ended the batch
};

// One thread of the batch with its connection.
class Trabalhador {
  public:
    explicit Trabalhador(Lote& lote)
        : lote_(lote),
          banco_(AbrirParaLer(lote.argumentos)),
          configuracoes_(doUsuario_, lote.argumentos.refAtual) {
        banco_->Acompanhar(&andamento_);
    }

    void Trabalhar() {
        for (std::size_t i = lote_.proxima++; i < lote_.declaracoes.size() && !Interrompido();
             i = lote_.proxima++) {
            Produzir(lote_.declaracoes[i]);
        }
    }

  private:
    void Produzir(const DeclaracaoDoLote& d) {
        gravados_ = 0;
        prontos_ = 0;
        ausente_ = false;
        LinhaResumo linha = NovaLinha(d, CodigoUnico);
        Tentar(linha, [&] {
            if (d.IE.empty()) {
                throw Erro(NumeroErro::UsoInvalidoDeNull,
                           "A declaração não diz de que contribuinte é.");
            }
            const auto& a = lote_.argumentos;
            const auto codigos = a.todos ? CodigosOferecidos(*banco_, d.NroDRQ) : a.codigos;
            ausente_ = !ExisteContribuinte(*banco_, d.IE);
            if (ausente_) {
                lote_.progresso.Avisar("o contribuinte " + d.IE + " da declaração " +
                                       std::to_string(d.NroDRQ) + " não existe neste banco");
            }
            if (a.unico) {
                ProduzirUnico(d, codigos);
            } else {
                ProduzirCadaUm(d, codigos);
            }
        });
        if (!Interrompido()) {
            lote_.progresso.Concluir(NomeDaDeclaracao(d), gravados_, prontos_);
        }
    }

    void ProduzirCadaUm(const DeclaracaoDoLote& d, const std::vector<std::string>& codigos) {
        SaidaEmArquivos saida = lote_.argumentos.saida;
        saida.pasta /= NomeDaDeclaracao(d);
        saida.opcoes.espera = Espera::Nenhuma;
        for (const auto& codigo : codigos) {
            if (Interrompido()) {
                return;
            }
            if (lote_.prontos.Contem(d.NroDRQ, codigo)) {
                ++prontos_;
                continue;
            }
            LinhaResumo linha = NovaLinha(d, codigo);
            Tentar(linha, [&] {
                const auto relatorio = Construir(d, codigo);
                Registrar(linha, GravarRelatorio(codigo, *relatorio, saida));
            });
        }
    }

    void ProduzirUnico(const DeclaracaoDoLote& d, const std::vector<std::string>& codigos) {
        if (lote_.prontos.Contem(d.NroDRQ, CodigoUnico)) {
            ++prontos_;
            return;
        }
        std::vector<std::unique_ptr<Relatorio>> relatorios;
        std::vector<DocumentoDeSaida> documentos;
        for (const auto& codigo : codigos) {
            LinhaResumo linha = NovaLinha(d, codigo);
            Tentar(linha, [&] {
                relatorios.push_back(Construir(d, codigo));
                auto& documento = documentos.emplace_back(DocumentoDe(*relatorios.back()));
                documento.marcador = codigo + " - " + documento.conteudo->tituloResumido;
            });
            if (Interrompido()) {
                return;
            }
        }
        if (documentos.empty()) {
            return;
        }
        LinhaResumo linha = NovaLinha(d, CodigoUnico);
        Tentar(linha, [&] {
            const auto& saida = lote_.argumentos.saida;
            Registrar(linha, Gravar(documentos, *saida.formato, saida.pasta, NomeDaDeclaracao(d),
                                    {.espera = Espera::Nenhuma}));
        });
    }

    std::unique_ptr<Relatorio> Construir(const DeclaracaoDoLote& d, const std::string& codigo) {
        return ConstruirRelatorio(codigo, *banco_, {d.IE, d.NroDRQ},
                                  {.configuracoes = &configuracoes_, .andamento = &andamento_});
    }

    // Runs one step; its error becomes a line of the summary, unless it only says that the batch
    // was interrupted, or it ends the batch.
    template <class Passo>
    void Tentar(LinhaResumo& linha, Passo&& passo) {
        try {
            passo();
        } catch (...) {
            const Erro erro = ErroCorrente();
            if (EncerraOLote(erro.Numero())) {
                throw;
            }
            if (Interrompido()) {
                return;
            }
            linha.erro = static_cast<int>(erro.Numero());
            linha.descricao = erro.Descricao();
            lote_.resumo.Acrescentar(linha);
            lote_.progresso.Falhar(
                erro, "declaração " + std::to_string(linha.NroDRQ) +
                          (linha.relatorio == CodigoUnico ? "" : ", relatório " + linha.relatorio));
        }
    }

    LinhaResumo NovaLinha(const DeclaracaoDoLote& d, const std::string& codigo) const {
        LinhaResumo linha;
        linha.IE = d.IE;
        linha.NroDRQ = d.NroDRQ;
        linha.referencia = d.ref1 ? FormatarMesAno(*d.ref1) : "";
        linha.relatorio = codigo;
        linha.descricao = ausente_ ? "O contribuinte não existe neste banco." : "";
        return linha;
    }

    void Registrar(LinhaResumo& linha, const ResultadoDaSaida& resultado) {
        const ArquivoGravado& primeiro = resultado.arquivos.front();
        linha.arquivo = primeiro.caminho.lexically_relative(lote_.argumentos.saida.pasta);
        linha.bytes = primeiro.bytes;
        linha.paginas = resultado.paginas;
        linha.cortados = resultado.cortados.size();
        lote_.resumo.Acrescentar(linha);
        ++gravados_;
    }

    Lote& lote_;
    std::unique_ptr<BancoDados> banco_;
    ConfiguracoesIni doUsuario_;
    ConfiguracoesDaChamada configuracoes_;
    CancelaSeInterrompido andamento_;
    // Of the current declaration:
    std::size_t gravados_ = 0;
    std::size_t prontos_ = 0;
    bool ausente_ = false;  // its taxpayer
};

void Trabalhar(Lote& lote) {
    try {
        Trabalhador(lote).Trabalhar();
    } catch (...) {
        const std::lock_guard trava(lote.mutex);
        lote.erro = ErroCorrente();
        lote.proxima = lote.declaracoes.size();
    }
}

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

// All workers, to the end.
void Trabalhar(Lote& lote, std::size_t trabalhos) {
    std::vector<std::jthread> trabalhadores;
    for (std::size_t i = 0; i < std::min(trabalhos, lote.declaracoes.size()); ++i) {
        trabalhadores.emplace_back([&lote] { Trabalhar(lote); });
    }
}

}  // namespace

int ExecutarLote(const Argumentos& a, Console& console) {
    PrepararParaVariosFios();
    PrepararMemoria(static_cast<std::size_t>(a.trabalhos));
    PrepararFontes();
    const CapturaDeInterrupcao captura;
    const auto banco = AbrirParaLer(a);
    CancelaSeInterrompido andamento(&console);
    banco->Acompanhar(&andamento);
    const auto declaracoes = EscolherDeclaracoes(*banco, a);
    if (declaracoes.empty()) {
        console.Avisar("nenhuma declaração corresponde ao que foi pedido");
    }
    CriarPasta(a.saida.pasta);
    const ArquivosProntos prontos = a.retomar ? Retomar(a, declaracoes) : ArquivosProntos();
    ResumoLote resumo(a.saida.pasta, a.retomar);
    const ConfiguracoesIni doUsuario;
    const ConfiguracoesDaChamada configuracoes(doUsuario, a.refAtual);
    ProgressoLote progresso(console, configuracoes, declaracoes.size(),
                            ::isatty(STDOUT_FILENO) == 1);
    Lote lote{.argumentos = a,
              .declaracoes = declaracoes,
              .prontos = prontos,
              .resumo = resumo,
              .progresso = progresso,
              .mutex = {},
              .erro = {}};
    Trabalhar(lote, static_cast<std::size_t>(a.trabalhos));
    progresso.Terminar();
    if (lote.erro || Interrompido()) {
        if (lote.erro) {
            DizerErro(console.Erros(), *lote.erro);
        }
        console.Erros() << "o lote parou antes do fim; a mesma chamada com --retomar continua\n";
        return Falhou;
    }
    EsperarPeloDisco(a.saida.pasta);
    return progresso.Falhas() == 0 ? Feito : Falhou;
}

}  // namespace tarvo::host
