// SPDX-License-Identifier: MIT
#include <cstring>

#include "interface/ArgumentosDaChamada.h"
#include "interface/ErroDaChamada.h"
#include "interface/Objetos.h"
#include "interface/relatoriostarvo.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "reports/RelatorioCadastro.h"
#include "reports/RelatorioPagamentos.h"
#include "slip/RelatorioVELO.h"

// The calls about errors, objects and the reports that they build.

using namespace tarvo;
using namespace tarvo::c;

namespace {

// The operation that builds objects of the report's class.
std::string_view ConstrucaoDe(Relatorio& relatorio) {
    if (dynamic_cast<RelatorioVELO*>(&relatorio) != nullptr) {
        return "tarvo_construir_velo";
    }
    return dynamic_cast<RelatorioCadastro*>(&relatorio) != nullptr ? "tarvo_construir_cadastro"
                                                                   : "tarvo_construir";
}

// The report, if that operation builds it, ready to be built.
template <class R>
R& ParaConstruir(Objeto& objeto, std::string_view operacao) {
    const auto propria = ConstrucaoDe(objeto.DeRelatorio());
    if (propria != operacao) {
        throw Erro(NumeroErro::NumeroDeArgumentos,
                   "Objetos desta classe se constroem com " + std::string(propria) + ".");
    }
    objeto.IniciarConstrucao();
    return objeto.Como<R>();
}

}  // namespace

static_assert(TARVO_VERSAO == TARVO_VERSAO_DO_PROJETO);

int32_t tarvo_versao(void) {
    return TARVO_VERSAO;
}

int32_t tarvo_erro_numero(void) {
    return NumeroDoErro();
}

const char* tarvo_erro_texto(void) {
    return TextoDoErro();
}

int32_t tarvo_criar(const char* nome, tarvo_objeto* objeto) {
    return Proteger([&] {
        auto& saida = Saida(objeto, "objeto");
        saida = Registrar<Objeto>(LerTexto(nome, "nome"));
    });
}

int32_t tarvo_definir_ref_atual(tarvo_objeto objeto, const char* mes_ano) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        uso->DefinirReferencia(mes_ano == nullptr ? std::nullopt
                                                  : std::optional(LerTexto(mes_ano, "mes_ano")));
    });
}

int32_t tarvo_definir_andamento(tarvo_objeto objeto, tarvo_andamento andamento, void* contexto) {
    return Proteger([&] { Usar<Objeto>(objeto)->DefinirAndamento(andamento, contexto); });
}

int32_t tarvo_construir(tarvo_objeto objeto, tarvo_banco banco, const char* ie,
                        int32_t numero_drq) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto dados = Usar<Banco>(banco);
        const std::string IE = LerTexto(ie, "ie");
        ParaConstruir<RelatorioDeclaracao>(*uso, "tarvo_construir")
            .Construir(**dados, IE, numero_drq);
    });
}

int32_t tarvo_construir_cadastro(tarvo_objeto objeto, tarvo_banco banco, const char* ie) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto dados = Usar<Banco>(banco);
        const std::string IE = LerTexto(ie, "ie");
        ParaConstruir<RelatorioCadastro>(*uso, "tarvo_construir_cadastro").Construir(**dados, IE);
    });
}

int32_t tarvo_construir_velo(tarvo_objeto objeto, tarvo_banco banco) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto dados = Usar<Banco>(banco);
        ParaConstruir<RelatorioVELO>(*uso, "tarvo_construir_velo").Construir(**dados);
    });
}

int32_t tarvo_campo_st(tarvo_objeto objeto, int32_t campo, tarvo_banco banco, int32_t numero_drq,
                       char* texto, size_t capacidade) {
    return Proteger([&] {
        if (texto == nullptr || capacidade == 0) {
            Recusar("texto não tem lugar");
        }
        *texto = '\0';
        const auto uso = Usar<Objeto>(objeto);
        const auto& relatorio = uso->Como<RelatorioApuracaoSubTrib>();
        const auto valor = banco == 0 ? relatorio.Campo(campo, nullptr, numero_drq)
                                      : relatorio.Campo(campo, &**Usar<Banco>(banco), numero_drq);
        if (valor.size() >= capacidade) {
            Recusar("texto precisa de " + std::to_string(valor.size() + 1) + " bytes");
        }
        std::memcpy(texto, valor.c_str(), valor.size() + 1);
    });
}

int32_t tarvo_adicionar_total_op(tarvo_objeto objeto, double x, double y, double total) {
    return Proteger(
        [&] { Usar<Objeto>(objeto)->Como<RelatorioPagamentos>().AdicionarTotalOP(x, y, total); });
}

int32_t tarvo_liberar(uint64_t identificador) {
    return Proteger([&] {
        if (identificador != 0) {
            Registro::DoProcesso().Liberar(identificador);
        }
    });
}
