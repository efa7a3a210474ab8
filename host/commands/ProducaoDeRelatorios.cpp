// SPDX-License-Identifier: MIT
#include "host/commands/ProducaoDeRelatorios.h"

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/LeitoresDeCampo.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Avisos.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/RelatoriosPorCodigo.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

// Day zero where there is no such declaration.
Data LerRef1(BancoDados& banco, const std::optional<std::int32_t>& NumeroDRQ) {
    const auto declaracao =
        banco.OpenRecordset(ConsultaRef1(NumeroDRQ.value_or(0)), TipoRecordset::ForwardOnly);
    return declaracao->EOF_() ? Data() : DataCampo(declaracao->Fields("Ref1"));
}

// The open database of a call. Whether it can be written is known once a report has tried to refill
// its work table; those of one that cannot are of this call alone.
class BancoDaChamada {
  public:
    BancoDaChamada(const Argumentos& a, Console& console)
        : argumentos_(a), console_(console), abertura_(a, console) {
        Abrir({});
    }

    BancoDados& operator*() { return *banco_; }

    std::unique_ptr<Relatorio> Construir(const std::string& codigo,
                                         const Configuracoes& configuracoes) {
        const Alvo alvo{argumentos_.IE.value_or(""), argumentos_.NumeroDRQ.value_or(0)};
        const Ambiente ambiente{.configuracoes = &configuracoes,
                                .andamento = &abertura_.QuemPergunta()};
        try {
            return ConstruirRelatorio(codigo, *banco_, alvo, ambiente);
        } catch (const Erro& erro) {
            if (erro.Numero() != NumeroErro::BancoSomenteLeitura) {
                throw;
            }
        }
        console_.Avisar(
            "o banco não pode ser alterado; as tabelas de trabalho são só desta chamada");
        Abrir({.modo = ModoAbertura::SomenteLeitura,
               .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
        return ConstruirRelatorio(codigo, *banco_, alvo, ambiente);
    }

  private:
    void Abrir(const OpcoesAbertura& opcoes) {
        banco_ = abertura_.Abrir(opcoes);
        // All reports of the call show the same.
        banco_->ManterLeitura(argumentos_.IE.value_or(""), argumentos_.NumeroDRQ.value_or(0));
    }

    const Argumentos& argumentos_;
    Console& console_;
    AberturaInterrompivel abertura_;
    std::unique_ptr<BancoDados> banco_;
};

}  // namespace

Producao ParaCadaRelatorio(const Argumentos& a, Console& console, const UsoDoRelatorio& usar) {
    BancoDaChamada banco(a, console);
    AvisarDanosSeBarato(*banco, a, console);
    const ConfiguracoesIni doUsuario;
    const ConfiguracoesDaChamada configuracoes(
        doUsuario, a.refDaDeclaracao ? MesDaChamada(a, LerRef1(*banco, a.NumeroDRQ)) : a.refAtual);
    Producao producao;
    for (const auto& codigo : a.todos ? CodigosOferecidos(*banco, *a.NumeroDRQ) : a.codigos) {
        try {
            if (Interrompido()) {
                LancarCancelado();
            }
            const auto relatorio = banco.Construir(codigo, configuracoes);
            AvisarCortes(console, NomeDoArquivo(codigo), usar(codigo, *relatorio));
        } catch (...) {
            DizerErro(console.Erros(), ErroCorrente(), "relatório " + codigo, &configuracoes);
            producao.situacao = Falhou;
            if (Interrompido()) {
                return producao;
            }
        }
    }
    producao.achados =
        RevisarComAvisos(*banco,
                         {.IE = a.IE.value_or(""),
                          .NroDRQ = a.NumeroDRQ,
                          .relatorios = a.todos ? std::vector<std::string>() : a.codigos,
                          .configuracoes = &configuracoes},
                         console);
    return producao;
}

}  // namespace tarvo::host
