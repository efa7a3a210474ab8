// SPDX-License-Identifier: MIT
#include "host/batch/TrabalhadorLote.h"

#include <algorithm>

#include "data/Formatos.h"
#include "dispatch/Declaracoes.h"
#include "host/batch/HashDeDados.h"
#include "host/commands/Avisos.h"
#include "host/commands/Mensagens.h"
#include "host/commands/ResultadoEmJSON.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "reports/ReferenciaAtual.h"
#include "review/Revisao.h"

namespace tarvo::host {

namespace {

namespace fs = std::filesystem;

// What makes every other report fail too: the batch ends, and can be resumed.
bool EncerraOLote(NumeroErro numero) {
    return numero == NumeroErro::DiscoCheio || numero == NumeroErro::BancoOcupado ||
           numero == NumeroErro::BancoNaoEncontrado || numero == NumeroErro::MemoriaInsuficiente ||
           numero == NumeroErro::ArquivosDemais || numero == NumeroErro::ServidorInacessivel ||
           numero == NumeroErro::SenhaRecusada || numero == NumeroErro::FonteAusente;
}

// Notes the reference month when a report asks for it: that report's pages depend on it.
class ConfiguracoesAnotadas final : public Configuracoes {
  public:
    explicit ConfiguracoesAnotadas(const Configuracoes& outras) : outras_(outras) {}
    [[nodiscard]] std::string Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const override {
        std::string valor = outras_.Ler(aplicacao, secao, chave, padrao);
        if (chave == AjusteRefAtual::Chave) {
            refAtual_ = valor;
        }
        return valor;
    }
    [[nodiscard]] const std::string& RefAtual() const { return refAtual_; }

  private:
    const Configuracoes& outras_;
    mutable std::string refAtual_;
};

LinhaResumo NovaLinha(const DeclaracaoDoLote& d, const std::string& relatorio) {
    LinhaResumo linha;
    linha.IE = d.IE;
    linha.NroDRQ = d.NroDRQ;
    linha.referencia = d.ref1 ? FormatarMesAno(*d.ref1) : "";
    linha.relatorio = relatorio;
    return linha;
}

// The batch's own folder may be a link; what stands in it may not lead elsewhere.
void RecusarLink(const fs::path& pasta, const fs::path& pastaDoLote) {
    std::error_code ignorado;
    if (pasta != pastaDoLote && fs::is_symlink(fs::symlink_status(pasta, ignorado))) {
        throw Erro(NumeroErro::DestinoRecusado,
                   "\"" + pasta.string() + "\": é um link, e não a pasta da declaração.");
    }
}

}  // namespace

TrabalhadorLote::TrabalhadorLote(const LoteEmCurso& lote)
    : lote_(lote),
      andamento_([&lote](const std::string& aviso) { lote.progresso.Avisar(aviso); }),
      banco_(lote.fonte.Abrir()) {
    banco_->Acompanhar(&andamento_);
    banco_->ManterLeitura("", 0);  // what all share stays as the batch's hash of it says
}

void TrabalhadorLote::Produzir(const DeclaracaoDoLote& declaracao) {
    const ConfiguracoesDaChamada configuracoes(
        lote_.configuracoes, lote_.argumentos.refDaDeclaracao
                                 ? MesDaChamada(lote_.argumentos, declaracao.ref1.value_or(Data()))
                                 : std::nullopt);
    const LeituraMantida leitura(*banco_, declaracao.IE, declaracao.NroDRQ);
    Producao producao{.declaracao = declaracao, .configuracoes = configuracoes};
    const std::string nome = NomeDaDeclaracao(declaracao);
    const fs::path& pasta = lote_.argumentos.saida.pasta;
    Tentar(producao, CodigoUnico, [&] {
        const auto codigos = Preparar(producao);
        if (lote_.argumentos.unico) {
            ProduzirArquivo(producao, {CodigoUnico, pasta, nome, codigos});
            return;
        }
        for (const auto& codigo : codigos) {
            ProduzirArquivo(producao, {codigo, pasta / nome, NomeDoArquivo(codigo), {codigo}});
        }
    });
    if (!Interrompido()) {
        lote_.resumo.Concluir(NovaLinha(declaracao, CodigoFim));
        lote_.progresso.Concluir(nome, producao.contagem);
    }
}

// Which reports there are to be; what is known of the declaration and of its files.
std::vector<std::string> TrabalhadorLote::Preparar(Producao& p) {
    const auto& [NroDRQ, IE, ref1] = p.declaracao;
    p.anteriores = lote_.resumo.Anteriores(NroDRQ);
    if (IE.empty()) {
        throw Erro(NumeroErro::UsoInvalidoDeNull, "A declaração não diz de que contribuinte é.");
    }
    p.dados = HashDaDeclaracao(*banco_, IE, NroDRQ, lote_.dadosComuns);
    const auto& a = lote_.argumentos;
    auto codigos = a.todos ? CodigosOferecidos(*banco_, NroDRQ) : a.codigos;
    DescartarFalhas(p, {CodigoUnico});
    return codigos;
}

void TrabalhadorLote::ProduzirArquivo(Producao& p, const Arquivo& arquivo) {
    if (Interrompido()) {
        return;
    }
    const fs::path caminho =
        arquivo.pasta / NomesDosArquivos(*lote_.argumentos.saida.formato, arquivo.nome, 1).front();
    const auto anterior = std::ranges::find(
        p.anteriores, caminho.lexically_relative(lote_.argumentos.saida.pasta).string(),
        [](const auto& a) { return a.linha.arquivo; });
    const bool existia = anterior != p.anteriores.end();
    if (existia) {
        const std::string_view diferenca = Diferenca(anterior->linha, p, arquivo);
        if (diferenca.empty()) {
            DescartarFalhas(p, arquivo.codigos);
            ++p.contagem.prontos;
            return;
        }
        p.contagem.diferencas.insert(diferenca);
    }
    RevisarDeclaracao(p);
    const Construidos construidos = Construir(p, arquivo);
    if (Interrompido()) {
        return;
    }
    DescartarFalhas(p, arquivo.codigos);
    if (construidos.documentos.empty()) {
        return;
    }
    Tentar(p, arquivo.relatorio, [&] {
        GravarEAnotar(p, arquivo, construidos);
        ++p.contagem.gravados;
        if (existia) {
            lote_.resumo.Descartar(anterior->posicao);
        }
    });
}

void TrabalhadorLote::RevisarDeclaracao(Producao& p) {
    if (p.revista) {
        return;
    }
    p.revista = true;
    const auto& [NroDRQ, IE, ref1] = p.declaracao;
    const std::string contexto = "declaração " + std::to_string(NroDRQ) + ": ";
    const auto& a = lote_.argumentos;
    try {
        p.achados =
            Revisar(*banco_, {.IE = IE,
                              .NroDRQ = NroDRQ,
                              .relatorios = a.todos ? std::vector<std::string>() : a.codigos,
                              .configuracoes = &p.configuracoes});
    } catch (const Erro& erro) {
        if (EncerraOLote(erro.Numero())) {
            throw;
        }
        if (!Interrompido()) {
            lote_.progresso.Avisar(contexto +
                                   "os dados não puderam ser revistos: " + erro.Descricao());
        }
    }
    for (const Achado& achado : p.achados) {
        lote_.progresso.Avisar(contexto + TextoDoAchado(achado));
    }
}

// Why the file of an earlier run is not what it would be now; empty when it is.
std::string_view TrabalhadorLote::Diferenca(const LinhaResumo& anterior, const Producao& p,
                                            const Arquivo& arquivo) const {
    if (anterior.dados != p.dados) {
        return "os dados mudaram";
    }
    if (anterior.opcoes != Opcoes(arquivo.codigos)) {
        return "as opções são outras";
    }
    if (!anterior.refAtual.empty() && anterior.refAtual != LerRefAtual(p.configuracoes)) {
        return "o mês de referência atual é outro";
    }
    // A line that somebody changed may say anything.
    constexpr std::size_t MaisPaginas = 100'000;
    std::vector<fs::path> caminhos;
    for (const auto& nome : NomesDosArquivos(*lote_.argumentos.saida.formato, arquivo.nome,
                                             std::min(anterior.paginas, MaisPaginas))) {
        caminhos.push_back(arquivo.pasta / nome);
    }
    return HashDeArquivos(caminhos) == anterior.conteudo ? "" : "o arquivo não é mais o que era";
}

TrabalhadorLote::Construidos TrabalhadorLote::Construir(const Producao& p, const Arquivo& arquivo) {
    const ConfiguracoesAnotadas configuracoes(p.configuracoes);
    const Ambiente ambiente{.configuracoes = &configuracoes, .andamento = &andamento_};
    Construidos c;
    for (const auto& codigo : arquivo.codigos) {
        Tentar(p, codigo, [&] {
            c.relatorios.push_back(ConstruirRelatorio(
                codigo, *banco_, {p.declaracao.IE, p.declaracao.NroDRQ}, ambiente));
            auto& documento = c.documentos.emplace_back(DocumentoDe(*c.relatorios.back()));
            if (lote_.argumentos.unico) {
                documento.marcador = codigo + " - " + documento.conteudo->titulo;
                documento.folha = codigo + " " + documento.conteudo->tituloResumido;
            }
            c.codigos.push_back(codigo);
        });
        if (Interrompido()) {
            break;
        }
    }
    c.refAtual = configuracoes.RefAtual();
    return c;
}

void TrabalhadorLote::GravarEAnotar(const Producao& p, const Arquivo& arquivo,
                                    const Construidos& c) {
    const auto& saida = lote_.argumentos.saida;
    RecusarLink(arquivo.pasta, saida.pasta);
    OpcoesDeSaida opcoes = saida.opcoes;
    opcoes.espera = Espera::Nenhuma;
    opcoes.pastaDeEspera = lote_.resumo.Temporarios();
    const auto resultado =
        Gravar(c.documentos, *saida.formato, arquivo.pasta, arquivo.nome, opcoes);
    LinhaResumo linha = NovaLinha(p.declaracao, arquivo.relatorio);
    std::vector<fs::path> caminhos;
    for (const auto& gravado : resultado.arquivos) {
        linha.bytes += gravado.bytes;
        caminhos.push_back(gravado.caminho);
    }
    linha.arquivo = caminhos.front().lexically_relative(saida.pasta);
    linha.paginas = resultado.paginas;
    linha.cortados = resultado.cortados.size();
    const auto achados = AchadosDe(arquivo.codigos, p.achados);
    for (const Achado& achado : achados) {
        linha.descricao += (linha.descricao.empty() ? "" : " | ") + TextoDoAchado(achado);
    }
    linha.refAtual = c.refAtual;
    linha.opcoes = Opcoes(c.codigos);
    linha.dados = p.dados;
    linha.conteudo = HashDeArquivos(caminhos);
    lote_.resumo.Acrescentar(linha);
    if (lote_.argumentos.json) {
        lote_.progresso.EscreverDados(
            ResultadoEmJSON(linha.relatorio, linha.IE, linha.NroDRQ, resultado, achados));
    }
}

// Of the call, those that change a file of these reports.
std::string TrabalhadorLote::Opcoes(const std::vector<std::string>& codigos) const {
    const auto& a = lote_.argumentos;
    std::string contam;
    if (a.unico) {
        for (const auto& codigo : codigos) {
            contam += codigo + ",";
        }
        contam.pop_back();
    }
    const std::string doFormato = OpcoesQueContam(*a.saida.formato, a.saida.opcoes);
    return contam + (contam.empty() || doFormato.empty() ? "" : " ") + doFormato;
}

void TrabalhadorLote::DescartarFalhas(const Producao& p, const std::vector<std::string>& codigos) {
    for (const auto& [linha, posicao] : p.anteriores) {
        if (linha.arquivo.empty() && std::ranges::count(codigos, linha.relatorio) != 0) {
            lote_.resumo.Descartar(posicao);
        }
    }
}

// Runs one step; its error becomes a line of the summary, unless it only says that the batch was
// interrupted, or it ends the batch.
template <class Passo>
void TrabalhadorLote::Tentar(const Producao& p, const std::string& relatorio, Passo&& passo) {
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
        LinhaResumo linha = NovaLinha(p.declaracao, relatorio);
        linha.erro = static_cast<int>(erro.Numero());
        linha.descricao = erro.Descricao();
        DescartarFalhas(p, {relatorio});
        lote_.resumo.Acrescentar(linha);
        lote_.progresso.Falhar(erro,
                               "declaração " + std::to_string(linha.NroDRQ) +
                                   (relatorio == CodigoUnico ? "" : ", relatório " + relatorio));
    }
}

}  // namespace tarvo::host
