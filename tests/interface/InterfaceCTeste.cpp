// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <future>
#include <sstream>

#include "output/json/DocumentoJSON.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "tests/interface/Exemplo.h"

namespace tarvo::teste {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

using Linhas = std::vector<std::string>;

class InterfaceC : public ComExemplo {
  protected:
    // With the main declaration's document.
    [[nodiscard]] Posse Construido(std::string_view classe) const {
        auto objeto = Criar(classe);
        EXPECT_EQ(tarvo_definir_ref_atual(objeto, "07/2003"), 0);
        EXPECT_EQ(classe == "RelatorioCadastro" ? tarvo_construir_cadastro(objeto, banco, IE)
                  : classe == "RelatorioVELO"   ? tarvo_construir_velo(objeto, banco)
                                                : tarvo_construir(objeto, banco, IE, DRQ),
                  0)
            << classe << tarvo_erro_texto();
        return objeto;
    }
    Posse banco = Abrir();
};

TEST_F(InterfaceC, BuildsTheSameDocumentAsTheClasses) {
    RelatorioApuracaoSubTrib relatorio;
    relatorio.Construir(*BancoSQLite::Abrir(Arquivo()), IE, DRQ);
    std::ostringstream esperado;
    EscreverJSON("RelatorioApuracaoSubTrib", relatorio.Documento(), esperado);

    const auto objeto = Construido("RelatorioApuracaoSubTrib");
    EXPECT_EQ(Exportar(objeto, TARVO_JSON), esperado.str());
    std::size_t paginas = 0;
    EXPECT_EQ(tarvo_paginas(objeto, &paginas), 0);
    EXPECT_EQ(paginas, relatorio.Documento().paginas.size());
}

TEST_F(InterfaceC, EachClassIsBuiltByItsOwnOperation) {
    for (const std::string classe :
         {"RelatorioCadastro", "RelatorioResumoCFOPsEnt", "RelatorioResumoCFOPsSai",
          "RelatorioSaiInterestad", "RelatorioNotasSaiZFMALC", "RelatorioApuracaoOpProp",
          "RelatorioApuracaoSubTrib", "RelatorioRegExportacao", "RelatorioPagamentos",
          "RelatorioVELO"}) {
        const auto json = Exportar(Construido(classe), TARVO_JSON);
        EXPECT_THAT(json, StartsWith("{ \"classe\": \"" + classe + "\""));
        EXPECT_THAT(json, HasSubstr(classe == "RelatorioVELO" ? "VIA CONTRIBUINTE"
                                                              : "Metalúrgica Serra Dourada S.A."));
    }
}

TEST_F(InterfaceC, ExportsTheSameBytesToFilesAndMemory) {
    setenv("SOURCE_DATE_EPOCH", "1060000000", 1);
    const auto objeto = Construido("RelatorioPagamentos");
    const struct {
        std::int32_t formato;
        const char* inicio;
    } casos[] = {{TARVO_PDF, "%PDF-"},
                 {TARVO_JSON, "{"},
                 {TARVO_CSV, "\uFEFFCampo;Valor\r\n"},
                 {TARVO_XLSX, "PK"}};
    for (const auto& [formato, inicio] : casos) {
        ASSERT_EQ(tarvo_exportar_arquivo(objeto, formato, Saida("p").c_str()), 0)
            << tarvo_erro_texto();
        EXPECT_EQ(Exportar(objeto, formato), ConteudoDe(Saida("p")));
        EXPECT_THAT(ConteudoDe(Saida("p")), StartsWith(inicio));
    }
}

TEST_F(InterfaceC, AnObjectThatWasNeverBuiltIsAnEmptyDocument) {
    const auto objeto = Criar("RelatorioPagamentos");
    EXPECT_THAT(Exportar(objeto, TARVO_JSON), EndsWith("\"paginas\": [\n    []] }\n"));
    EXPECT_THAT(Exportar(objeto, TARVO_PDF), StartsWith("%PDF-"));
    ASSERT_EQ(tarvo_construir(objeto, banco, "000", 999), 0);
    EXPECT_THAT(Exportar(objeto, TARVO_JSON), EndsWith("\"paginas\": [\n    []] }\n"));
}

TEST_F(InterfaceC, TheHostsReferenceMonthStandsInForTheUsersSetting) {
    setenv("XDG_CONFIG_HOME", Saida("ajustes").c_str(), 1);
    const auto objeto = Criar("RelatorioResumoCFOPsSai");
    EXPECT_EQ(tarvo_construir(objeto, banco, IE, DRQ), 13);
    EXPECT_EQ(tarvo_definir_ref_atual(objeto, "agora"), 13);
    EXPECT_EQ(tarvo_definir_ref_atual(objeto, "07/2003"), 0);
    ASSERT_EQ(tarvo_construir(objeto, banco, IE, DRQ), 0) << tarvo_erro_texto();
    EXPECT_THAT(Exportar(objeto, TARVO_JSON), HasSubstr("5.101"));
    EXPECT_EQ(tarvo_definir_ref_atual(objeto, nullptr), 0);
    EXPECT_EQ(tarvo_construir(objeto, banco, IE, DRQ), 13);
    unsetenv("XDG_CONFIG_HOME");
}

TEST_F(InterfaceC, GivesTheFieldsOfTheSubstitutionAssessment) {
    const auto objeto = Criar("RelatorioApuracaoSubTrib");
    const RelatorioApuracaoSubTrib relatorio;
    const auto dados = BancoSQLite::Abrir(Arquivo());
    char texto[32];
    const auto campo = [&](int numero, tarvo_banco de) -> std::string {
        EXPECT_EQ(tarvo_campo_st(objeto, numero, de, DRQ, texto, sizeof texto), 0);
        return texto;
    };
    EXPECT_EQ(campo(51, banco), relatorio.Campo051st(dados.get(), DRQ));
    EXPECT_EQ(campo(52, banco), relatorio.Campo052st(dados.get(), DRQ));
    EXPECT_EQ(campo(53, banco), relatorio.Campo053st(dados.get(), DRQ));
    EXPECT_EQ(campo(56, banco), relatorio.Campo056st(dados.get(), DRQ));
    EXPECT_EQ(campo(57, banco), relatorio.Campo057st(dados.get(), DRQ));
    EXPECT_EQ(campo(58, banco), relatorio.Campo058st(dados.get(), DRQ));
    EXPECT_NE(campo(51, banco), "0,00");
    EXPECT_EQ(campo(51, 0), "");
    EXPECT_EQ(tarvo_campo_st(objeto, 51, banco, DRQ, texto, 5), 5);
    EXPECT_STREQ(texto, "");
    EXPECT_EQ(tarvo_campo_st(objeto, 54, banco, DRQ, texto, sizeof texto), 5);
}

TEST_F(InterfaceC, DrawsATotalLineOnThePayments) {
    const auto objeto = Criar("RelatorioPagamentos");
    ASSERT_EQ(tarvo_adicionar_total_op(objeto, 0, 6, 1234.5), 0) << tarvo_erro_texto();
    EXPECT_THAT(Exportar(objeto, TARVO_JSON), HasSubstr(R"("1.234,50")"));
    EXPECT_EQ(tarvo_adicionar_total_op(objeto, 0, 6, 1e300), 6);
    EXPECT_EQ(tarvo_adicionar_total_op(objeto, 0, NAN, 1), 5);
}

TEST_F(InterfaceC, AReadOnlyDatabaseNeedsPrivateWorkTables) {
    const auto objeto = Criar("RelatorioApuracaoOpProp");
    EXPECT_EQ(tarvo_construir(objeto, Abrir(TARVO_SOMENTE_LEITURA), IE, DRQ), 3027);
    const auto privado = Abrir(TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS);
    EXPECT_EQ(tarvo_construir(objeto, privado, IE, DRQ), 0) << tarvo_erro_texto();
}

TEST_F(InterfaceC, ThreadsWithTheirOwnIdentifiersWorkAtTheSameTime) {
    const auto trabalhar = [this] {
        const auto meu = Abrir(TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS);
        const auto objeto = Criar("RelatorioApuracaoOpProp");
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(tarvo_construir(objeto, meu, IE, DRQ), 0) << tarvo_erro_texto();
            EXPECT_THAT(Exportar(objeto, TARVO_PDF), EndsWith("%%EOF\n"));
        }
        return Exportar(objeto, TARVO_JSON);
    };
    auto outra = std::async(std::launch::async, trabalhar);
    EXPECT_EQ(trabalhar(), outra.get());
}

TEST_F(InterfaceC, ListsTaxpayersAndDeclarationsAndTellsWhichThereAre) {
    const auto anotar = [](void* lista, const tarvo_contribuinte* c) {
        static_cast<Linhas*>(lista)->push_back(std::string(c->ie) + " " + c->razao_social + " " +
                                               c->cnpj);
        return 0;
    };
    Linhas contribuintes;
    ASSERT_EQ(tarvo_listar_contribuintes(banco, anotar, &contribuintes), 0) << tarvo_erro_texto();
    EXPECT_THAT(contribuintes, testing::SizeIs(testing::Gt(1U)));
    EXPECT_THAT(contribuintes, testing::Contains(StartsWith(std::string(IE) +
                                                            " Metalúrgica Serra Dourada S.A. ")));

    std::pair<tarvo_banco, Linhas> vistas{banco, {}};
    const auto ver = [](void* contexto, const tarvo_declaracao* d) {
        auto& [dados, linhas] = *static_cast<std::pair<tarvo_banco, Linhas>*>(contexto);
        std::int32_t existe = 0;
        EXPECT_EQ(tarvo_existe_declaracao(dados, d->numero_drq, &existe), 0);
        EXPECT_EQ(existe, 1);
        linhas.push_back(std::string(d->ie) + " " + d->referencia + " " + d->regime + " " +
                         d->tipo + " " + std::to_string(d->consistente));
        return d->numero_drq == DRQ ? 1 : 0;
    };
    ASSERT_EQ(tarvo_listar_declaracoes(banco, ver, &vistas), 0) << tarvo_erro_texto();
    EXPECT_EQ(vistas.second.back(), std::string(IE) + " 07/2003 01 Normal 1")
        << "the list ends where the program asks for no more";

    std::int32_t existe = 7;
    EXPECT_EQ(tarvo_existe_declaracao(banco, 999, &existe), 0);
    EXPECT_EQ(existe, 0);
    EXPECT_EQ(tarvo_existe_contribuinte(banco, IE, &existe), 0);
    EXPECT_EQ(existe, 1);
    EXPECT_EQ(tarvo_existe_contribuinte(banco, "x' or '1'='1", &existe), 0);
    EXPECT_EQ(existe, 0);
}

TEST_F(InterfaceC, TellsWhatThePagesOfADeclarationLeaveOut) {
    BancoSQLite::Abrir(Arquivo())->ExecutarScript(
        "INSERT INTO tblRegistroExportação (NroDRQ, RE) VALUES (101, NULL)");
    const auto anotar = [](void* lista, const tarvo_achado* a) {
        static_cast<Linhas*>(lista)->push_back(std::string(a->relatorio) + " " + a->tabela + " " +
                                               std::to_string(a->linhas));
        EXPECT_STRNE(a->motivo, "");
        return 0;
    };
    const auto achados = [&](const char* relatorio) {
        Linhas lista;
        EXPECT_EQ(tarvo_revisar(banco, IE, DRQ, relatorio, "07/2003", anotar, &lista), 0)
            << tarvo_erro_texto();
        return lista;
    };
    EXPECT_THAT(achados(nullptr), testing::Contains("16 tblRegistroExportação 1"));
    EXPECT_THAT(achados("16"), testing::ElementsAre("16 tblRegistroExportação 1"));
    EXPECT_THAT(achados("17"), testing::IsEmpty());
}

TEST_F(InterfaceC, CreatesAnEmptyDatabaseAndNeverReplacesAFile) {
    ASSERT_EQ(tarvo_criar_banco(Saida("novo.tarvo").c_str()), 0) << tarvo_erro_texto();
    EXPECT_EQ(tarvo_criar_banco(Saida("novo.tarvo").c_str()), TARVO_ERRO_BANCO_JA_EXISTE);
    EXPECT_EQ(tarvo_criar_banco(Saida("sem/novo.tarvo").c_str()), 76);
    tarvo_banco novo = 0;
    ASSERT_EQ(tarvo_abrir_banco(Saida("novo.tarvo").c_str(), 0, &novo), 0) << tarvo_erro_texto();
    const Posse posse(novo);
    std::int32_t existe = 1;
    EXPECT_EQ(tarvo_existe_declaracao(novo, DRQ, &existe), 0) << tarvo_erro_texto();
    EXPECT_EQ(existe, 0);
}

// What a program's function is told, and what it answers.
struct Ouvinte {
    std::size_t paginas = 0;
    std::size_t cancelarNa = 0;  // 0: never
    std::string bytes;
    std::size_t limite = 0;  // of bytes; 0: none

    static std::int32_t Andar(void* contexto, std::size_t paginas) {
        auto& ouvinte = *static_cast<Ouvinte*>(contexto);
        ouvinte.paginas = paginas;
        return paginas == ouvinte.cancelarNa ? 1 : 0;
    }
    static std::int32_t Receber(void* contexto, const char* bytes, std::size_t tamanho) {
        auto& ouvinte = *static_cast<Ouvinte*>(contexto);
        ouvinte.bytes.append(bytes, tamanho);
        return ouvinte.limite != 0 && ouvinte.bytes.size() > ouvinte.limite ? 1 : 0;
    }
};

TEST_F(InterfaceC, ABuildTellsItsPagesAndCanBeCancelled) {
    const auto objeto = Criar("RelatorioApuracaoOpProp");
    Ouvinte ouvinte;
    ASSERT_EQ(tarvo_definir_andamento(objeto, Ouvinte::Andar, &ouvinte), 0);
    ASSERT_EQ(tarvo_construir(objeto, banco, IE, DRQ), 0) << tarvo_erro_texto();
    EXPECT_GE(ouvinte.paginas, 1U);
    ouvinte.cancelarNa = 1;
    EXPECT_EQ(tarvo_construir(objeto, banco, IE, DRQ), TARVO_ERRO_CANCELADO);
    ASSERT_EQ(tarvo_definir_andamento(objeto, nullptr, nullptr), 0);
    EXPECT_EQ(tarvo_construir(objeto, banco, IE, DRQ), 0) << tarvo_erro_texto();
}

TEST_F(InterfaceC, SeveralDocumentsGoIntoOneFileOrToAFunctionOfTheProgram) {
    setenv("SOURCE_DATE_EPOCH", "1060000000", 1);
    const auto pagamentos = Construido("RelatorioPagamentos");
    const auto cadastro = Construido("RelatorioCadastro");
    const tarvo_objeto ambos[] = {cadastro, pagamentos};
    ASSERT_EQ(tarvo_exportar_reunidos(ambos, 2, TARVO_PDF, Saida("ambos.pdf").c_str()), 0)
        << tarvo_erro_texto();
    const std::string arquivo = ConteudoDe(Saida("ambos.pdf"));
    std::size_t paginas[2] = {};
    EXPECT_EQ(tarvo_paginas(cadastro, &paginas[0]), 0);
    EXPECT_EQ(tarvo_paginas(pagamentos, &paginas[1]), 0);
    const std::string contar = "test $(qpdf --show-npages " + Saida("ambos.pdf") + ") = ";
    EXPECT_EQ(std::system((contar + std::to_string(paginas[0] + paginas[1])).c_str()), 0);

    Ouvinte ouvinte;
    ASSERT_EQ(tarvo_transmitir(ambos, 2, TARVO_PDF, Ouvinte::Receber, &ouvinte), 0);
    EXPECT_TRUE(ouvinte.bytes == arquivo) << "other bytes than in the file";
    ouvinte = {};
    ASSERT_EQ(tarvo_transmitir(ambos, 1, TARVO_JSON, Ouvinte::Receber, &ouvinte), 0);
    EXPECT_EQ(ouvinte.bytes, Exportar(cadastro, TARVO_JSON));
    ouvinte = {};
    ouvinte.limite = 100;
    EXPECT_EQ(tarvo_transmitir(ambos, 2, TARVO_PDF, Ouvinte::Receber, &ouvinte), 18);
}

TEST_F(InterfaceC, TellsWhichTextsWereCut) {
    const std::string longa = "Rua que não acaba " + std::string(400, 'M');
    BancoSQLite::Abrir(Arquivo())->ExecutarScript("UPDATE tblContribuinte SET Bairro = '" + longa +
                                                  "'");
    const auto objeto = Construido("RelatorioCadastro");
    std::size_t quantos = 9;
    EXPECT_EQ(tarvo_textos_cortados(objeto, &quantos), 0);
    EXPECT_EQ(quantos, 0U);
    Exportar(objeto, TARVO_PDF);
    std::size_t pagina = 0;
    tarvo_memoria texto = 0;
    const auto conferirCorte = [&] {
        EXPECT_EQ(tarvo_textos_cortados(objeto, &quantos), 0);
        ASSERT_EQ(quantos, 1U);
        ASSERT_EQ(tarvo_texto_cortado(objeto, 1, &pagina, &texto), 0) << tarvo_erro_texto();
        EXPECT_EQ(pagina, 1U);
        EXPECT_EQ(Bytes(texto), longa);
    };
    conferirCorte();
    EXPECT_EQ(tarvo_texto_cortado(objeto, 2, &pagina, &texto), 5);
    EXPECT_EQ(tarvo_texto_cortado(objeto, 0, &pagina, &texto), 5);

    // Behind another document the page is still the document's own.
    const auto antes = Criar("RelatorioPagamentos");
    const tarvo_objeto ambos[] = {antes, objeto};
    ASSERT_EQ(tarvo_exportar_reunidos(ambos, 2, TARVO_PDF, Saida("ambos.pdf").c_str()), 0);
    EXPECT_EQ(tarvo_textos_cortados(antes, &quantos), 0);
    EXPECT_EQ(quantos, 0U);
    conferirCorte();
}

}  // namespace
}  // namespace tarvo::teste
