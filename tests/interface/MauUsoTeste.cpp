// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <functional>
#include <thread>

#include "interface/ClassesPublicas.h"
#include "tests/interface/Exemplo.h"
#include "tests/support/Apoio.h"

namespace tarvo::teste {
namespace {

using testing::HasSubstr;

class MauUso : public ComExemplo {
  protected:
    Posse banco = Abrir();
    Posse pagamentos = Criar("RelatorioPagamentos");
    Posse relatorios = Criar("Relatorios");
    Posse guia = Criar("RelatorioVELO");

    static std::int32_t Descartar(void* /*contexto*/, const char* /*bytes*/, std::size_t /*n*/) {
        return 0;
    }
    template <class Linha>
    static std::int32_t Ver(void* /*contexto*/, const Linha* /*linha*/) {
        return 0;
    }

    std::size_t tamanho = 0;
    std::int32_t existe = 0;
    tarvo_memoria memoria = 0;
    char texto[32] = "";
};

TEST_F(MauUso, NoOperationTakesWhatIsNoObject) {
    // Every operation that takes an object, with good arguments otherwise.
    const std::function<std::int32_t(tarvo_objeto)> operacoes[] = {
        [&](auto o) { return tarvo_definir_ref_atual(o, "07/2003"); },
        [&](auto o) { return tarvo_executar(o, banco, IE, DRQ, 0); },
        [&](auto o) { return tarvo_construir(o, banco, IE, DRQ); },
        [&](auto o) { return tarvo_construir_cadastro(o, banco, IE); },
        [&](auto o) { return tarvo_construir_velo(o, banco); },
        [](auto o) { return tarvo_exibir(o); },
        [](auto o) { return tarvo_ocultar(o); },
        [](auto o) { return tarvo_imprimir(o); },
        [](auto o) { return tarvo_imprimir_em(o, ""); },
        [](auto o) { return tarvo_definir_andamento(o, nullptr, nullptr); },
        [&](auto o) { return tarvo_exportar_reunidos(&o, 1, TARVO_PDF, Saida("x.pdf").c_str()); },
        [&](auto o) { return tarvo_transmitir(&o, 1, TARVO_PDF, Descartar, nullptr); },
        [&](auto o) { return tarvo_paginas(o, &tamanho); },
        [&](auto o) { return tarvo_exportar_arquivo(o, TARVO_PDF, Saida("x.pdf").c_str()); },
        [&](auto o) { return tarvo_exportar_memoria(o, TARVO_JSON, &memoria); },
        [&](auto o) { return tarvo_textos_cortados(o, &tamanho); },
        [&](auto o) { return tarvo_texto_cortado(o, 1, &tamanho, &memoria); },
        [&](auto o) { return tarvo_campo_st(o, 51, banco, DRQ, texto, sizeof texto); },
        [](auto o) { return tarvo_adicionar_total_op(o, 0, 0, 0); },
    };
    const tarvo_objeto liberado = Criar("RelatorioPagamentos").Liberar();
    for (const auto& operacao : operacoes) {
        EXPECT_EQ(operacao(0), 91);
        EXPECT_EQ(operacao(UINT64_MAX), 91);
        EXPECT_EQ(operacao(liberado), 91);
        EXPECT_THAT(tarvo_erro_texto(), HasSubstr("já foi liberado"));
        EXPECT_EQ(operacao(banco), 13);
    }
    EXPECT_EQ(memoria, 0U);
}

TEST_F(MauUso, NoOperationTakesWhatIsNoDatabase) {
    const tarvo_banco liberado = Abrir().Liberar();
    const auto cadastro = Criar("RelatorioCadastro");
    const auto st = Criar("RelatorioApuracaoSubTrib");
    const auto outro = Criar("RelatorioPagamentos");
    for (const auto& [id, numero] :
         {std::pair<tarvo_banco, int>{0, 91}, {liberado, 91}, {outro, 13}}) {
        EXPECT_EQ(tarvo_construir(pagamentos, id, IE, DRQ), numero);
        EXPECT_EQ(tarvo_construir_cadastro(cadastro, id, IE), numero);
        EXPECT_EQ(tarvo_construir_velo(guia, id), numero);
        EXPECT_EQ(tarvo_executar(relatorios, id, IE, DRQ, 0), numero);
        EXPECT_EQ(tarvo_existe_contribuinte(id, IE, &existe), numero);
        EXPECT_EQ(tarvo_existe_declaracao(id, DRQ, &existe), numero);
        EXPECT_EQ(tarvo_listar_contribuintes(id, Ver, nullptr), numero);
        EXPECT_EQ(tarvo_listar_declaracoes(id, Ver, nullptr), numero);
        EXPECT_EQ(tarvo_revisar(id, IE, DRQ, nullptr, nullptr, Ver, nullptr), numero);
        if (id != 0) {
            EXPECT_EQ(tarvo_campo_st(st, 51, id, DRQ, texto, sizeof texto), numero);
        }
    }
    EXPECT_EQ(tarvo_construir(pagamentos, pagamentos, IE, DRQ), 20006);
}

TEST_F(MauUso, OnlyPublicClassesAreCreatedAndByTheirWholeNames) {
    for (const auto* interna :
         {"RelatorioEntInterestad", "RelatorioMIDAXBCodigo1", "RelatorioMIDAXBCodigo2",
          "RelatorioMIDAXBCodigo3", "RelatorioDetRecCredAcum", "RelatorioDetRecCredAcVE",
          "RelatorioDetCentrRecImp", "RelatorioDetResSubstitui", "RelatorioDetResSubstitut",
          "RelatorioDeclaracao", "", "RelatorioCadastro ", "relatoriocadastro"}) {
        EXPECT_EQ(tarvo_criar(Classe(interna).c_str(), &memoria), 429);
        EXPECT_THAT(tarvo_erro_texto(), HasSubstr(Classe(interna)));
    }
    for (const auto* nome :
         {"", "RelatorioCadastro", "RelatoriosTarvo", "Outra.RelatorioCadastro"}) {
        EXPECT_EQ(tarvo_criar(nome, &memoria), 429) << nome;
    }
}

TEST(ClassesPublicas, TheEntryClassNeedsTheHostsWindow) {
    EXPECT_EQ(apoio::NumeroDe([] { CriarObjeto(Classe("Relatorios")); }),
              NumeroErro::AcaoNaoSuportada);
}

TEST_F(MauUso, ClassesRefuseTheOperationsOfOthers) {
    EXPECT_EQ(tarvo_executar(pagamentos, banco, IE, DRQ, 0), 438);
    EXPECT_EQ(tarvo_campo_st(pagamentos, 51, banco, DRQ, texto, sizeof texto), 438);
    EXPECT_EQ(tarvo_adicionar_total_op(guia, 0, 0, 0), 438);
    EXPECT_EQ(tarvo_imprimir_em(guia, ""), 438);
    EXPECT_EQ(tarvo_imprimir(guia), 438);
    EXPECT_THAT(tarvo_erro_texto(), HasSubstr("RelatoriosTarvo.RelatorioVELO"));
    EXPECT_EQ(tarvo_construir(relatorios, banco, IE, DRQ), 438);
    EXPECT_EQ(tarvo_exibir(relatorios), 438);
    EXPECT_EQ(tarvo_exportar_memoria(relatorios, TARVO_PDF, &memoria), 438);
    EXPECT_EQ(tarvo_paginas(relatorios, &tamanho), 438);
}

TEST_F(MauUso, ObjectsAreBuiltByTheOperationOfTheirClassOnly) {
    const auto cadastro = Criar("RelatorioCadastro");
    EXPECT_EQ(tarvo_construir(cadastro, banco, IE, DRQ), 450);
    EXPECT_EQ(tarvo_construir_velo(cadastro, banco), 450);
    EXPECT_EQ(tarvo_construir(guia, banco, IE, DRQ), 450);
    EXPECT_EQ(tarvo_construir_cadastro(guia, banco, IE), 450);
    EXPECT_EQ(tarvo_construir_cadastro(pagamentos, banco, IE), 450);
    EXPECT_EQ(tarvo_construir_velo(pagamentos, banco), 450);
    EXPECT_THAT(tarvo_erro_texto(), HasSubstr("tarvo_construir."));
}

TEST_F(MauUso, NullPointersUnknownOptionsAndFormsAreErrorsEverywhere) {
    EXPECT_EQ(tarvo_abrir_banco(nullptr, 0, &memoria), 5);
    EXPECT_EQ(tarvo_abrir_banco("", 0, &memoria), 5);
    EXPECT_EQ(tarvo_abrir_banco(Arquivo().c_str(), 0, nullptr), 5);
    EXPECT_EQ(tarvo_adotar_banco(nullptr, 0, &memoria), 5);
    EXPECT_EQ(tarvo_criar(nullptr, &memoria), 5);
    EXPECT_EQ(tarvo_criar("RelatoriosTarvo.RelatorioVELO", nullptr), 5);
    EXPECT_EQ(tarvo_construir(pagamentos, banco, nullptr, DRQ), 5);
    EXPECT_EQ(tarvo_executar(relatorios, banco, nullptr, DRQ, 0), 5);
    EXPECT_EQ(tarvo_paginas(pagamentos, nullptr), 5);
    EXPECT_EQ(tarvo_exportar_arquivo(pagamentos, TARVO_PDF, nullptr), 5);
    EXPECT_EQ(tarvo_exportar_memoria(pagamentos, TARVO_PDF, nullptr), 5);
    const tarvo_objeto objeto = pagamentos;
    EXPECT_EQ(tarvo_exportar_reunidos(nullptr, 1, TARVO_PDF, Saida("x").c_str()), 5);
    EXPECT_EQ(tarvo_exportar_reunidos(&objeto, 0, TARVO_PDF, Saida("x").c_str()), 5);
    EXPECT_EQ(tarvo_exportar_reunidos(&objeto, 1, TARVO_PDF, nullptr), 5);
    EXPECT_EQ(tarvo_transmitir(nullptr, 1, TARVO_PDF, Descartar, nullptr), 5);
    EXPECT_EQ(tarvo_transmitir(&objeto, 1, TARVO_PDF, nullptr, nullptr), 5);
    EXPECT_EQ(tarvo_criar_banco(nullptr), 5);
    EXPECT_EQ(tarvo_criar_banco(""), 5);
    EXPECT_EQ(tarvo_existe_contribuinte(banco, nullptr, &existe), 5);
    EXPECT_EQ(tarvo_existe_contribuinte(banco, IE, nullptr), 5);
    EXPECT_EQ(tarvo_existe_declaracao(banco, DRQ, nullptr), 5);
    EXPECT_EQ(tarvo_listar_contribuintes(banco, nullptr, nullptr), 5);
    EXPECT_EQ(tarvo_listar_declaracoes(banco, nullptr, nullptr), 5);
    EXPECT_EQ(tarvo_revisar(banco, nullptr, DRQ, nullptr, nullptr, Ver, nullptr), 5);
    EXPECT_EQ(tarvo_revisar(banco, IE, DRQ, nullptr, nullptr, nullptr, nullptr), 5);
    EXPECT_EQ(tarvo_imprimir_em(pagamentos, nullptr), 5);
    EXPECT_EQ(tarvo_memoria_bytes(1, nullptr, &tamanho), 5);
    EXPECT_EQ(tarvo_textos_cortados(pagamentos, nullptr), 5);
    EXPECT_EQ(tarvo_texto_cortado(pagamentos, 1, nullptr, &memoria), 5);
    EXPECT_EQ(tarvo_campo_st(pagamentos, 51, banco, DRQ, nullptr, 9), 5);
    EXPECT_EQ(tarvo_campo_st(pagamentos, 51, banco, DRQ, texto, 0), 5);
    EXPECT_EQ(tarvo_aguardar_janelas(0, nullptr), 0);
    EXPECT_EQ(tarvo_abrir_banco(Arquivo().c_str(), 4, &memoria), 5);
    EXPECT_EQ(tarvo_exportar_memoria(pagamentos, 0, &memoria), 5);
    EXPECT_EQ(tarvo_exportar_arquivo(pagamentos, 99, Saida("x").c_str()), 5);
    EXPECT_FALSE(std::filesystem::exists(Saida("x")));
}

TEST_F(MauUso, ADatabaseInMemoryTakesWholeRowsOfKnownTypesOnly) {
    const char* colunas[] = {"NroDRQ", "Data"};
    const tarvo_valor linha[] = {{nullptr, 1, TARVO_INTEIRO}, {"2003-07-01", 0, TARVO_DATA}};
    EXPECT_EQ(tarvo_banco_em_memoria(nullptr), 5);
    tarvo_banco novo = 0;
    ASSERT_EQ(tarvo_banco_em_memoria(&novo), 0) << tarvo_erro_texto();
    const Posse posse(novo);
    EXPECT_EQ(tarvo_acrescentar_linhas(novo, linha, 2), 3219) << "before any table";
    EXPECT_EQ(tarvo_comecar_tabela(novo, nullptr, colunas, 2), 5);
    EXPECT_EQ(tarvo_comecar_tabela(novo, "tblPagamento", nullptr, 2), 5);
    EXPECT_EQ(tarvo_comecar_tabela(novo, "tblNada", colunas, 2), 3078);
    EXPECT_EQ(tarvo_comecar_tabela(novo, "tblContribuinte", colunas, 2), 3061);
    EXPECT_EQ(tarvo_comecar_tabela(novo, "tblPagamento", colunas, 0), 3219);
    ASSERT_EQ(tarvo_comecar_tabela(novo, "tblPagamento", colunas, 2), 0) << tarvo_erro_texto();
    EXPECT_EQ(tarvo_acrescentar_linhas(novo, nullptr, 2), 5);
    EXPECT_EQ(tarvo_acrescentar_linhas(novo, linha, 1), 3219);
    for (const auto& [ruim, numero] : {std::pair<tarvo_valor, int>{{nullptr, 1, 6}, 5},
                                       {{nullptr, 0, TARVO_TEXTO}, 5},
                                       {{"\xFF", 0, TARVO_TEXTO}, 5},
                                       {{nullptr, INT64_C(2147483648), TARVO_INTEIRO}, 6},
                                       {{"31/02/2003", 0, TARVO_DATA}, 13}}) {
        const tarvo_valor valores[] = {linha[0], ruim};
        EXPECT_EQ(tarvo_acrescentar_linhas(novo, valores, 2), numero);
    }
    EXPECT_EQ(tarvo_acrescentar_linhas(novo, linha, 2), 0) << tarvo_erro_texto();
    EXPECT_EQ(tarvo_comecar_tabela(novo, "tblPagamento", colunas, 2), 3219) << "begun before";
    EXPECT_EQ(tarvo_comecar_tabela(banco, "tblPagamento", colunas, 2), 438);
    EXPECT_EQ(tarvo_acrescentar_linhas(banco, linha, 2), 438);
    EXPECT_EQ(tarvo_acrescentar_linhas(pagamentos, linha, 2), 13);
}

TEST_F(MauUso, AReviewTakesReportsThatThereAreAndMonths) {
    for (const auto* codigo : {"", "18", "1", "velo", "02,03"}) {
        EXPECT_EQ(tarvo_revisar(banco, IE, DRQ, codigo, nullptr, Ver, nullptr), 5) << codigo;
    }
    EXPECT_EQ(tarvo_revisar(banco, IE, DRQ, nullptr, "julho", Ver, nullptr), 13);
}

TEST_F(MauUso, ObjectsOfOneOutputAreDifferentAndOnesThatHaveDocuments) {
    const auto outro = Criar("RelatorioCadastro");
    const tarvo_objeto duasVezes[] = {pagamentos, outro, pagamentos};
    EXPECT_EQ(tarvo_exportar_reunidos(duasVezes, 3, TARVO_PDF, Saida("x").c_str()), 20006);
    const tarvo_objeto semDocumento[] = {pagamentos, relatorios};
    EXPECT_EQ(tarvo_exportar_reunidos(semDocumento, 2, TARVO_PDF, Saida("x").c_str()), 438);
    EXPECT_EQ(tarvo_exportar_reunidos(duasVezes, 2, TARVO_JSON, Saida("x").c_str()), 5);
    EXPECT_EQ(tarvo_exportar_reunidos(duasVezes, 2, TARVO_CSV, Saida("x").c_str()), 5);
    EXPECT_FALSE(std::filesystem::exists(Saida("x")));
    EXPECT_EQ(tarvo_construir_cadastro(outro, banco, IE), 0) << "nothing stays in use";
}

TEST_F(MauUso, TextsThatAreNotUtf8AreRefused) {
    for (const auto* ruim : {"\x80", "a\xC3", "\xC0\xAF", "\xE2\x82", "\xED\xA0\x80",
                             "\xF4\x90\x80\x80", "\xFF", "\xF0\x80\x80\xAF"}) {
        EXPECT_EQ(tarvo_construir(pagamentos, banco, ruim, DRQ), 5);
        EXPECT_EQ(tarvo_criar(ruim, &memoria), 5);
        EXPECT_EQ(tarvo_existe_contribuinte(banco, ruim, &existe), 5);
        EXPECT_EQ(tarvo_imprimir_em(pagamentos, ruim), 5);
        EXPECT_EQ(tarvo_revisar(banco, ruim, DRQ, nullptr, nullptr, Ver, nullptr), 5);
        EXPECT_EQ(tarvo_revisar(banco, IE, DRQ, ruim, nullptr, Ver, nullptr), 5);
    }
    EXPECT_EQ(tarvo_construir(pagamentos, banco, "São João € 𝄞", DRQ), 0) << tarvo_erro_texto();
}

TEST_F(MauUso, FilesThatCannotBeReadOrWrittenAreErrors) {
    EXPECT_EQ(tarvo_abrir_banco(Saida("nenhum").c_str(), 0, &memoria), 3024);
    EXPECT_THAT(tarvo_erro_texto(), HasSubstr("nenhum"));
    EXPECT_EQ(memoria, 0U);
    EXPECT_EQ(tarvo_exportar_arquivo(pagamentos, TARVO_PDF, Saida("sem/pasta.pdf").c_str()), 76);
    EXPECT_EQ(tarvo_exportar_arquivo(pagamentos, TARVO_JSON, Saida("sem/pasta.json").c_str()), 76);
    EXPECT_EQ(tarvo_exportar_arquivo(pagamentos, TARVO_PDF, "/dev/full"), 75);
}

TEST_F(MauUso, ReleasingTwiceIsAnErrorAndZeroIsNot) {
    EXPECT_EQ(tarvo_liberar(Criar("RelatorioCadastro").Liberar()), 91);
    EXPECT_EQ(tarvo_liberar(0), 0);
    EXPECT_EQ(tarvo_erro_numero(), 91);
}

TEST_F(MauUso, ADatabaseReleasedAfterABuildIsNoLongerNeeded) {
    ASSERT_EQ(tarvo_construir(pagamentos, Abrir(), IE, DRQ), 0);
    EXPECT_THAT(Exportar(pagamentos, TARVO_JSON), HasSubstr("Datas de Pagamento"));
}

TEST_F(MauUso, EachThreadHasItsOwnLastError) {
    EXPECT_EQ(tarvo_criar("nenhuma", &memoria), 429);
    std::thread([] {
        EXPECT_EQ(tarvo_erro_numero(), 0);
        EXPECT_STREQ(tarvo_erro_texto(), "");
        EXPECT_EQ(tarvo_liberar(12345678), 91);
    }).join();
    EXPECT_EQ(tarvo_erro_numero(), 429);
    EXPECT_THAT(tarvo_erro_texto(), HasSubstr("nenhuma"));
}

TEST_F(MauUso, ALongErrorTextIsCutAtACharacter) {
    std::string nome;
    for (int i = 0; i < 3000; ++i) {
        nome += "ção";
    }
    for (const std::string inicio : {"", "a", "aa"}) {  // one of them has the cut inside a letter
        EXPECT_EQ(tarvo_criar((inicio + nome).c_str(), &memoria), 429);
        const std::string cortado = tarvo_erro_texto();
        EXPECT_THAT(cortado, testing::EndsWith("…"));
        EXPECT_GT(cortado.size(), 2000U);
        EXPECT_EQ(tarvo_criar(cortado.c_str(), &memoria), 429) << "the text is no longer UTF-8";
    }
}

// Two threads share identifiers against the rules: every call ends, with its result or an error.
TEST_F(MauUso, IdentifiersSharedBetweenThreadsEndInErrorsOnly) {
    std::atomic<int> feitas = 0;
    const auto abusar = [&] {
        for (int i = 0; i < 40; ++i) {
            const int erro = tarvo_construir(pagamentos, banco, IE, DRQ);
            EXPECT_TRUE(erro == 0 || erro == 20006) << tarvo_erro_texto();
            feitas += erro == 0 ? 1 : 0;
            std::size_t paginas = 0;
            const int outro = tarvo_paginas(pagamentos, &paginas);
            EXPECT_TRUE(outro == 20006 || paginas >= 1);
        }
    };
    std::thread linha(abusar);
    abusar();
    linha.join();
    EXPECT_GT(feitas, 0);
}

}  // namespace
}  // namespace tarvo::teste
