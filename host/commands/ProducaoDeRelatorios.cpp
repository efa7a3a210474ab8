#include "host/commands/ProducaoDeRelatorios.h"

#include "data/Formatos.h"
#include "dispatch/Declaracoes.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Danos.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "host/commands/RelatoriosPorCodigo.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

// Says which taxpayer or declaration does not exist, of those that the reports need: their
// documents come out empty.
void AvisarAusentes(BancoDados& banco, const Argumentos& a, Console& console) {
    if (a.IE && PedeContribuinte(a) && !ExisteContribuinte(banco, *a.IE)) {
        console.Avisar("o contribuinte " + *a.IE + " não existe neste banco");
    }
    if (a.NumeroDRQ && PedeDeclaracao(a) && !ExisteDeclaracao(banco, *a.NumeroDRQ)) {
        console.Avisar("a declaração " + std::to_string(*a.NumeroDRQ) + " não existe neste banco");
    }
}

void AvisarCortes(Console& console, const std::string& nome,
                  const std::vector<TextoCortado>& cortados) {
    for (const auto& corte : cortados) {
        console.Avisar(nome + ", página " + std::to_string(corte.pagina) + ", a " +
                       FormatarValor(Moeda::DeDouble(corte.caixa.x)) + " × " +
                       FormatarValor(Moeda::DeDouble(corte.caixa.y)) +
                       " cm: o texto não coube e foi cortado: \"" + corte.texto + "\"");
    }
}

// The open database of a call. Whether it can be written is known once a report has tried to refill
// its work table; those of one that cannot are of this call alone.
class BancoDaChamada {
  public:
    BancoDaChamada(const Argumentos& a, Console& console)
        : argumentos_(a), console_(console), andamento_(&console) {
        Abrir({});
    }

    BancoDados& operator*() { return *banco_; }

    std::unique_ptr<Relatorio> Construir(const std::string& codigo,
                                         const Configuracoes& configuracoes) {
        const Alvo alvo{argumentos_.IE.value_or(""), argumentos_.NumeroDRQ.value_or(0)};
        const Ambiente ambiente{.configuracoes = &configuracoes, .andamento = &andamento_};
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
        banco_ = LocalizarBanco(argumentos_, console_, opcoes).Abrir();
        banco_->Acompanhar(&andamento_);
    }

    const Argumentos& argumentos_;
    Console& console_;
    CancelaSeInterrompido andamento_;
    std::unique_ptr<BancoDados> banco_;
};

}  // namespace

int ParaCadaRelatorio(const Argumentos& a, Console& console, const UsoDoRelatorio& usar) {
    const CapturaDeInterrupcao captura;
    BancoDaChamada banco(a, console);
    AvisarDanosSeBarato(*banco, a, console);
    AvisarAusentes(*banco, a, console);
    const ConfiguracoesIni doUsuario;
    const ConfiguracoesDaChamada configuracoes(doUsuario, a.refAtual);
    int situacao = Feito;
    for (const auto& codigo : a.todos ? CodigosOferecidos(*banco, *a.NumeroDRQ) : a.codigos) {
        try {
            const auto relatorio = banco.Construir(codigo, configuracoes);
            AvisarCortes(console, NomeDoArquivo(codigo), usar(codigo, *relatorio));
        } catch (...) {
            DizerErro(console.Erros(), ErroCorrente(), "relatório " + codigo, &configuracoes);
            situacao = Falhou;
        }
        if (Interrompido()) {
            return Falhou;
        }
    }
    return situacao;
}

}  // namespace tarvo::host
