// SPDX-License-Identifier: MIT
#include <optional>
#include <vector>

#include "databases/AbrirBanco.h"
#include "databases/sqlite/BancoSQLite.h"
#include "dispatch/Declaracoes.h"
#include "interface/ArgumentosDaChamada.h"
#include "interface/BancoPreenchido.h"
#include "interface/ErroDaChamada.h"
#include "interface/Objetos.h"
#include "interface/relatoriostarvo.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "review/Revisao.h"
#include "system/settings/ConfiguracoesIni.h"

// The calls about databases.

using namespace tarvo;
using namespace tarvo::c;

namespace {

// Refuses options outside those that the call takes.
TabelasDeTrabalho Opcoes(std::uint32_t opcoes, std::uint32_t aceitas) {
    if ((opcoes & ~aceitas) != 0) {
        Recusar("opção desconhecida para abrir o banco");
    }
    return (opcoes & TARVO_TABELAS_PRIVADAS) != 0 ? TabelasDeTrabalho::Privadas
                                                  : TabelasDeTrabalho::NoBanco;
}

BancoPreenchido& Preenchivel(Banco& banco) {
    auto* preenchido = dynamic_cast<BancoPreenchido*>(&banco);
    if (preenchido == nullptr) {
        throw Erro(NumeroErro::MembroNaoSuportado,
                   "Só um banco em memória se preenche por chamadas.");
    }
    return *preenchido;
}

// Shows a list from its beginning until the program asks for no more.
template <class Lista, class Ver>
void Mostrar(const Lista& lista, Ver ver) {
    for (const auto& item : lista) {
        if (ver(item) != 0) {
            return;
        }
    }
}

}  // namespace

int32_t tarvo_abrir_banco(const char* arquivo, uint32_t opcoes, tarvo_banco* banco) {
    return Proteger([&] {
        auto& saida = Saida(banco, "banco");
        const auto tabelas = Opcoes(opcoes, TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS);
        const auto modo = (opcoes & TARVO_SOMENTE_LEITURA) != 0 ? ModoAbertura::SomenteLeitura
                                                                : ModoAbertura::LeituraEscrita;
        saida = Registrar<Banco>(AbrirBanco(Caminho(arquivo), {modo, tabelas}));
    });
}

int32_t tarvo_adotar_banco(sqlite3* conexao, uint32_t opcoes, tarvo_banco* banco) {
    return Proteger([&] {
        auto& saida = Saida(banco, "banco");
        const auto tabelas = Opcoes(opcoes, TARVO_TABELAS_PRIVADAS);
        if (conexao == nullptr) {
            Recusar("conexao é nulo");
        }
        saida = Registrar<Banco>(BancoSQLite::Adotar(conexao, tabelas));
    });
}

int32_t tarvo_criar_banco(const char* arquivo) {
    return Proteger([&] { CriarBanco(Caminho(arquivo)); });
}

int32_t tarvo_banco_em_memoria(tarvo_banco* banco) {
    return Proteger([&] { Saida(banco, "banco") = Registrar<BancoPreenchido>(); });
}

int32_t tarvo_comecar_tabela(tarvo_banco banco, const char* tabela, const char* const* colunas,
                             size_t quantas) {
    return Proteger([&] {
        const auto uso = Usar<Banco>(banco);
        const std::string nome = LerTexto(tabela, "tabela");
        ExigirPonteiro(colunas != nullptr || quantas == 0, "colunas");
        std::vector<std::string> nomes;
        for (std::size_t i = 0; i < quantas; ++i) {
            nomes.push_back(LerTexto(colunas[i], "uma das colunas"));
        }
        Preenchivel(*uso).ComecarTabela(nome, nomes);
    });
}

int32_t tarvo_acrescentar_linhas(tarvo_banco banco, const tarvo_valor* valores, size_t quantos) {
    return Proteger([&] {
        const auto uso = Usar<Banco>(banco);
        ExigirPonteiro(valores != nullptr || quantos == 0, "valores");
        Preenchivel(*uso).Acrescentar({valores, quantos});
    });
}

int32_t tarvo_existe_contribuinte(tarvo_banco banco, const char* ie, int32_t* existe) {
    return Proteger([&] {
        auto& saida = Saida(existe, "existe");
        const auto dados = Usar<Banco>(banco);
        saida = ExisteContribuinte(**dados, LerTexto(ie, "ie")) ? 1 : 0;
    });
}

int32_t tarvo_existe_declaracao(tarvo_banco banco, int32_t numero_drq, int32_t* existe) {
    return Proteger([&] {
        auto& saida = Saida(existe, "existe");
        saida = ExisteDeclaracao(**Usar<Banco>(banco), numero_drq) ? 1 : 0;
    });
}

int32_t tarvo_listar_contribuintes(tarvo_banco banco, tarvo_ver_contribuinte ver, void* contexto) {
    return Proteger([&] {
        ExigirPonteiro(ver != nullptr, "ver");
        const auto lista = LerContribuintes(**Usar<Banco>(banco));
        Mostrar(lista, [&](const Contribuinte& c) {
            const tarvo_contribuinte linha{c.IE.c_str(), c.razaoSocial.c_str(), c.CNPJ.c_str()};
            return ver(contexto, &linha);
        });
    });
}

int32_t tarvo_listar_declaracoes(tarvo_banco banco, tarvo_ver_declaracao ver, void* contexto) {
    return Proteger([&] {
        ExigirPonteiro(ver != nullptr, "ver");
        const auto lista = LerDeclaracoes(**Usar<Banco>(banco));
        Mostrar(lista, [&](const Declaracao& d) {
            const tarvo_declaracao linha{.ie = d.IE ? d.IE->c_str() : nullptr,
                                         .referencia = d.referencia.c_str(),
                                         .regime = d.regime.c_str(),
                                         .tipo = d.tipo.c_str(),
                                         .numero_drq = d.NroDRQ,
                                         .consistente = d.consistente ? 1 : 0};
            return ver(contexto, &linha);
        });
    });
}

int32_t tarvo_revisar(tarvo_banco banco, const char* ie, int32_t numero_drq, const char* relatorio,
                      const char* ref_atual, tarvo_ver_achado ver, void* contexto) {
    return Proteger([&] {
        ExigirPonteiro(ver != nullptr, "ver");
        PedidoDeRevisao pedido{.IE = LerTexto(ie, "ie"), .NroDRQ = numero_drq};
        if (relatorio != nullptr) {
            pedido.relatorios.push_back(LerTexto(relatorio, "relatorio"));
        }
        const ConfiguracoesIni doUsuario;
        std::optional<ConfiguracoesDaChamada> configuracoes;
        if (ref_atual != nullptr) {
            const std::string mesAno = LerTexto(ref_atual, "ref_atual");
            static_cast<void>(DataDeReferencia(mesAno));
            pedido.configuracoes = &configuracoes.emplace(doUsuario, mesAno);
        }
        const auto achados = Revisar(**Usar<Banco>(banco), pedido);
        Mostrar(achados, [&](const Achado& a) {
            const tarvo_achado linha{a.relatorio.c_str(), a.tabela.c_str(), a.motivo.c_str(),
                                     a.linhas};
            return ver(contexto, &linha);
        });
    });
}
