// SPDX-License-Identifier: MIT
#include "host/commands/ComandosDoBanco.h"

#include <ostream>

#include "data/Legivel.h"
#include "dispatch/Declaracoes.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "host/commands/ResultadoEmJSON.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "review/Revisao.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

constexpr std::size_t LetrasDeUmDano = 200;

class Verificacao {
  public:
    Verificacao(const Argumentos& a, BancoDados& banco, Console& console)
        : a_(a), banco_(banco), console_(console) {}

    int Verificar() {
        if (!a_.IE && !a_.NumeroDRQ) {
            for (const std::string& dano : banco_.Danos()) {
                Achado achado;
                achado.motivo = "o banco está danificado: " + Legivel(dano, LetrasDeUmDano);
                Dizer({achado});
            }
            Dizer(RevisarBanco(banco_));
            Dizer(Revisar(banco_, {.relatorios = {"VELO"}}));
        }
        std::size_t declaracoes = 0;
        const std::string unico = UnicoContribuinte();
        for (const Declaracao& d : LerDeclaracoes(banco_)) {
            const std::string IE = d.IE.value_or(unico);
            const bool escolhida = (!a_.NumeroDRQ || *a_.NumeroDRQ == d.NroDRQ) &&
                                   (!a_.IE || *a_.IE == IE || a_.NumeroDRQ);
            if (escolhida && !Interrompido()) {
                ++declaracoes;
                VerificarDeclaracao(a_.IE.value_or(IE), d);
            }
        }
        if (declaracoes == 0 && (a_.IE || a_.NumeroDRQ)) {
            Dizer(Revisar(banco_, {.IE = a_.IE.value_or(""), .NroDRQ = a_.NumeroDRQ}));
        }
        return achados_ == 0 && !Interrompido() ? Feito : Falhou;
    }

  private:
    // The one taxpayer, whose all declarations are that do not tell.
    std::string UnicoContribuinte() {
        const auto contribuintes = LerContribuintes(banco_);
        return contribuintes.size() == 1 ? contribuintes[0].IE : "";
    }

    void VerificarDeclaracao(const std::string& IE, const Declaracao& d) {
        const ConfiguracoesDaChamada configuracoes(doUsuario_, MesDaChamada(a_, d.ref1));
        // Without a month of the user's, the declaration's own decides.
        const bool temMes = !LerRefAtual(configuracoes).empty();
        Dizer(Revisar(
            banco_,
            {.IE = IE, .NroDRQ = d.NroDRQ, .configuracoes = temMes ? &configuracoes : nullptr}));
    }

    void Dizer(const std::vector<Achado>& achados) {
        for (const Achado& achado : achados) {
            ++achados_;
            if (a_.json) {
                console_.Dados() << ResultadoEmJSON(achado) << "\n";
                continue;
            }
            std::string inicio = achado.IE.empty() ? "" : "IE " + achado.IE;
            if (achado.NroDRQ) {
                inicio += (inicio.empty() ? "" : ", ") + ("DRQ " + std::to_string(*achado.NroDRQ));
            }
            console_.Dizer((inicio.empty() ? "" : inicio + ": ") + TextoDoAchado(achado));
        }
    }

    const Argumentos& a_;
    BancoDados& banco_;
    Console& console_;
    const ConfiguracoesIni doUsuario_;
    std::size_t achados_ = 0;
};

}  // namespace

int VerificarBanco(const Argumentos& a, Console& console) {
    AberturaInterrompivel abertura(a, console);
    const auto banco = abertura.Abrir({.modo = ModoAbertura::SomenteLeitura});
    return Verificacao(a, *banco, console).Verificar();
}

}  // namespace tarvo::host
