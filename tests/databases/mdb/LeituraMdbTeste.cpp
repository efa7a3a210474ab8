// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <random>
#include <thread>

#include "databases/AbrirBanco.h"
#include "databases/OrigemBanco.h"
#include "databases/mdb/reader/Decodificador.h"
#include "databases/mdb/reader/Isolamento.h"
#include "tests/databases/mdb/EscritorMdb.h"
#include "tests/support/Apoio.h"

namespace tarvo::mdb {
namespace {

using apoio::ErroDe;
using apoio::Linhas;
using apoio::NumeroDe;
using apoio::SaidaDe;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr CelulaMdb Nada{};

std::int64_t N(std::int64_t n) {
    return n;
}

class ArquivoMdb : public testing::Test {
  protected:
    std::string Gravar(const std::string& bytes, const std::string& nome = "teste.mdb") const {
        std::ofstream(pasta_ / nome, std::ios::binary) << bytes;
        return (pasta_ / nome).string();
    }
    std::string Gravar(EscritorMdb& escritor) const { return Gravar(escritor.Bytes()); }
    static EscritorMdb Pagamentos(int quantos) {
        EscritorMdb escritor;
        escritor.Tabela("tblPagamento", {{"NroDRQ", TipoMdb::Longo},
                                         {"OpPróprias", TipoMdb::Booleano},
                                         {"Data", TipoMdb::Data},
                                         {"Valor", TipoMdb::Moeda}});
        for (int i = 0; i < quantos; ++i) {
            escritor.Linha({N(i), i % 2 == 0, 37803.0 + i % 1000, N(10000) * i});
        }
        return escritor;
    }

    apoio::PastaTemporaria pasta_;
};

TEST_F(ArquivoMdb, GivesEveryTypeOfColumnAndEveryPlaceOfAMemoAsTheFormatsOwnProgramsDo) {
    const std::string curto = "Linha 1\r\nLinha 2 – “ação” Ж";
    std::string medio;
    std::string longo;
    for (int i = 0; i < 300; ++i) {
        (i < 100 ? medio : longo) += "trecho nº " + std::to_string(i) + " do memorando; ";
    }
    EscritorMdb escritor;
    escritor.Tabela("TBLCONTRIBUINTE", {{"ie", TipoMdb::Texto},
                                        {"RAZÃOSOCIAL", TipoMdb::Texto},
                                        {"Observação", TipoMdb::Memo},
                                        {"Sobra", TipoMdb::Memo}});
    escritor.Linha({"1", "Compressível", curto, Nada});
    escritor.Linha({"2", "Não – compressível €∑", medio, "x"});
    escritor.Linha({"3", "", longo, Nada});
    escritor.Tabela("tblDetalhesCFOPs", {{"NroDRQ", TipoMdb::Inteiro},
                                         {"CFOP", TipoMdb::Longo},
                                         {"ValorContábil", TipoMdb::Moeda},
                                         {"BaseCálculo", TipoMdb::Decimal},
                                         {"Imposto", TipoMdb::Duplo},
                                         {"Outras", TipoMdb::Simples},
                                         {"OutrosImpostos", TipoMdb::Texto}});
    escritor.Linha({N(101), N(5101), INT64_MAX, N(-12345), 0.00005, 1.5, "1.234,56"});
    escritor.Linha({N(-7), Nada, INT64_MIN, N(12345600), -2.5, 0.25, Nada});
    escritor.Tabela(
        "tblDRQ",
        {{"NroDRQ", TipoMdb::Byte}, {"Ref1", TipoMdb::Data}, {"Consistente", TipoMdb::Booleano}});
    escritor.Linha({N(200), -18262.25, true});
    escritor.Linha({N(201), 0.0, false});
    escritor.Linha({N(202), 1131868.0, true});
    escritor.Tabela("Clientes", {{"Nome", TipoMdb::Texto}});
    const std::string arquivo = Gravar(escritor);

    const auto banco = AbrirBanco(arquivo);
    EXPECT_THAT(Linhas(*banco, "select IE, RazãoSocial, Observação from tblContribuinte", 3),
                ElementsAre("1|Compressível|" + curto, "2|Não – compressível €∑|" + medio,
                            "3|(nulo)|" + longo));
    EXPECT_THAT(Linhas(*banco,
                       "select NroDRQ, CFOP, ValorContábil, BaseCálculo, Imposto, Outras, "
                       "OutrosImpostos from tblDetalhesCFOPs",
                       7),
                ElementsAre("101|5101|922337203685477,5807|-1,2345|0|1,5|1234,56",
                            "-7|(nulo)|-922337203685477,5808|1234,56|-2,5|0,25|(nulo)"));
    EXPECT_THAT(Linhas(*banco, "select NroDRQ, Ref1, Consistente from tblDRQ", 3),
                ElementsAre("200|30/12/1849 06:00:00|Verdadeiro", "201|30/12/1899|Falso",
                            "202|11/12/4998|Verdadeiro"));
    EXPECT_EQ(NumeroDe([&] { Linhas(*banco, "select Imposto from tblZFM_ALC", 1); }),
              NumeroErro::TabelaInexistente);
    EXPECT_EQ(NumeroDe([&] { Linhas(*banco, "select Ref2 from tblDRQ", 1); }),
              NumeroErro::ColunaDesconhecida);

    EXPECT_EQ(SaidaDe("mdb-tables -1 " + arquivo),
              "TBLCONTRIBUINTE\ntblDetalhesCFOPs\ntblDRQ\nClientes\n");
    EXPECT_THAT(SaidaDe("mdb-export -Q -H -d '|' " + arquivo + " tblDetalhesCFOPs"),
                testing::AllOf(HasSubstr("101|5101|922337203685477.5807|-1.2345|"),
                               HasSubstr("-7||-922337203685477.5808|1234.5600|")));
    EXPECT_THAT(SaidaDe("mdb-export -Q -H " + arquivo + " TBLCONTRIBUINTE"),
                testing::AllOf(HasSubstr(curto), HasSubstr(medio), HasSubstr(longo)));
}

TEST_F(ArquivoMdb, LeavesOutDeletedRowsAndKeepsMovedOnesInTheirPlace) {
    EscritorMdb escritor;
    escritor.Tabela("tblVELO", {{"Contribuinte", TipoMdb::Texto}, {"Observações", TipoMdb::Memo}});
    const std::string memo(9000, 'm');
    escritor.Linha({"apagada", "x"}, LinhaMdb::Apagada);
    escritor.Linha({"um", "x"});
    escritor.Linha({"dois", memo}, LinhaMdb::Mudada);
    escritor.Linha({"apagada", "x"}, LinhaMdb::Apagada);
    escritor.Linha({"três", "x"});
    const auto banco = AbrirBanco(Gravar(escritor));
    EXPECT_THAT(Linhas(*banco, "select Contribuinte, Observações from tblVELO", 2),
                ElementsAre("um|x", "dois|" + memo, "três|x"));
}

TEST_F(ArquivoMdb, KeepsAValueThatDoesNotConvertUntilAReportReadsIt) {
    EscritorMdb escritor;
    escritor.Tabela(
        "tblPagamento",
        {{"NroDRQ", TipoMdb::Duplo}, {"Data", TipoMdb::Texto}, {"Valor", TipoMdb::Texto}});
    escritor.Linha({1.0, "31/7/2003", "1e5"});
    escritor.Linha({5e9, "31/2/2003", "2,5"});
    const auto banco = AbrirBanco(Gravar(escritor));
    EXPECT_THAT(Linhas(*banco, "select Data from tblPagamento where NroDRQ = 1", 1),
                ElementsAre("31/07/2003"));
    for (const auto& [coluna, valor] : {std::pair("Valor", "1e5"), std::pair("Data", "31/2/2003"),
                                        std::pair("NroDRQ", "5e+09")}) {
        const Erro erro = ErroDe([&, c = coluna] {
            Linhas(*banco, std::string("select ") + c + " from tblPagamento", 1);
        });
        EXPECT_EQ(erro.Numero(), NumeroErro::ConversaoDeDado);
        EXPECT_THAT(erro.Descricao(),
                    testing::AllOf(HasSubstr("tblPagamento"), HasSubstr(coluna), HasSubstr(valor)));
    }
}

TEST_F(ArquivoMdb, RefusesWhatItCannotReadWholeAndSaysWhy) {
    const auto recusa = [&](EscritorMdb& escritor) {
        return ErroDe([&] { AbrirBanco(Gravar(escritor)); });
    };
    EscritorMdb comSenha = Pagamentos(3);
    comSenha.senha = 'x';
    EXPECT_THAT(recusa(comSenha).Descricao(), HasSubstr("remova a senha"));
    EscritorMdb criptografado = Pagamentos(3);
    criptografado.chave = 77;
    EXPECT_EQ(recusa(criptografado).Numero(), NumeroErro::SenhaDoBanco);
    EscritorMdb vinculada = Pagamentos(3);
    vinculada.Vinculada("tblDRQ");
    EXPECT_THAT(recusa(vinculada).Descricao(), HasSubstr("\"tblDRQ\" é vinculada"));
    for (const int diferenca : {-1, 1}) {
        EscritorMdb contagem = Pagamentos(3);
        contagem.linhasAMais = diferenca;
        EXPECT_EQ(recusa(contagem).Numero(), NumeroErro::BancoIrreconhecivel) << diferenca;
    }
    std::string outraVersao = Pagamentos(3).Bytes();
    outraVersao[0x14] = 9;
    EXPECT_THAT(ErroDe([&] { AbrirBanco(Gravar(outraVersao)); }).Descricao(), HasSubstr("versão"));
    EXPECT_EQ(NumeroDe([&] { AbrirBanco(Gravar("")); }), NumeroErro::BancoIrreconhecivel);
    EXPECT_EQ(
        NumeroDe([&] { AbrirBanco(Gravar(Pagamentos(3).Bytes()), {.codificacao = "nenhuma"}); }),
        NumeroErro::ChamadaInvalida);
}

// Whatever the damage: an error, or as many rows as there are. What takes too long is ended by the
// reader's own limit.
TEST_F(ArquivoMdb, NeverGivesAPartOfADamagedOrTruncatedFile) {
    constexpr int Linhas_ = 2000;
    const std::string inteiro = Pagamentos(Linhas_).Bytes();
    const auto tentar = [&](const std::string& bytes, int volta) {
        try {
            const auto banco = AbrirBanco(Gravar(bytes));
            EXPECT_EQ(Linhas(*banco, "select NroDRQ from tblPagamento", 1).size(), Linhas_)
                << volta;
        } catch (const Erro& erro) {
            EXPECT_NE(erro.Numero(), NumeroErro::ErroInterno);
        }
    };
    std::mt19937 acaso(7);
    const auto lugar = [&] {
        return std::uniform_int_distribution<std::size_t>(0, inteiro.size() - 1)(acaso);
    };
    for (int volta = 0; volta < 40; ++volta) {
        std::string danificado = inteiro;
        for (int i = 0; i < 20; ++i) {
            danificado[lugar()] = static_cast<char>(acaso());
        }
        tentar(danificado, volta);
        tentar(inteiro.substr(0, lugar()), volta);
    }
}

TEST_F(ArquivoMdb, EndsWithAnErrorWhenTheReaderIsKilledOrTheFileChanges) {
    EscritorMdb escritor = Pagamentos(40000);
    const std::string arquivo = Gravar(escritor);
    std::atomic<bool> pronto = false;
    // Kills whatever child there is, again and again.
    const std::string filhos = "/proc/self/task/" + std::to_string(gettid()) + "/children";
    std::jthread matador([&] {
        std::mt19937 acaso(3);
        while (!pronto) {
            usleep(static_cast<useconds_t>(acaso() % 20000));
            pid_t filho = 0;
            if (std::ifstream(filhos) >> filho) {
                kill(filho, SIGKILL);
            }
        }
    });
    int mortos = 0;
    for (int volta = 0; volta < 20; ++volta) {
        try {
            EXPECT_EQ(Linhas(*AbrirBanco(arquivo), "select NroDRQ from tblPagamento").size(),
                      40000);
        } catch (const Erro& erro) {
            EXPECT_EQ(erro.Numero(), NumeroErro::BancoIrreconhecivel);
            ++mortos;
        }
    }
    pronto = true;
    matador.join();
    EXPECT_GT(mortos, 0);

    std::jthread tocador([&] {
        for (int i = 0; i < 50; ++i) {
            std::filesystem::last_write_time(arquivo,
                                             std::filesystem::file_time_type::clock::now());
            usleep(1000);
        }
    });
    usleep(2000);
    EXPECT_EQ(NumeroDe([&] { AbrirBanco(arquivo); }), NumeroErro::BancoOcupado);
}

TEST_F(ArquivoMdb, CanBeGivenUpWhileItIsRead) {
    struct : Acompanhante {
        bool Continuar(std::chrono::milliseconds) override { return false; }
    } desistente;
    EscritorMdb escritor = Pagamentos(400'000);  // some tenths of a second
    const std::string arquivo = Gravar(escritor);
    EXPECT_EQ(NumeroDe([&] { AbrirBanco(arquivo, {.acompanhante = &desistente}); }),
              NumeroErro::Cancelado);
}

TEST_F(ArquivoMdb, TellsOfALockFileAndOfTextsThatCannotBeRead) {
    EscritorMdb escritor;
    escritor.Tabela("tblVELO", {{"Contribuinte", TipoMdb::Texto}});
    escritor.Linha({"meio caractere \uFFFD!"});
    escritor.Linha({"inteiro 😀"});
    const std::string arquivo = Gravar(escritor);
    Gravar("", "teste.ldb");
    const OrigemBanco origem(arquivo);
    EXPECT_THAT(origem.Avisos(),
                ElementsAre(testing::AllOf(HasSubstr("tblVELO"), HasSubstr("1 texto")),
                            HasSubstr("teste.ldb")));
    EXPECT_THAT(Linhas(*origem.Abrir(), "select Contribuinte from tblVELO", 1),
                ElementsAre("meio caractere \uFFFD!", "inteiro 😀"));
    EXPECT_FALSE(origem.Mudou());
    Gravar(escritor.Bytes() + "mais");
    EXPECT_TRUE(origem.Mudou());
}

TEST_F(ArquivoMdb, IsReadOnceForAllThatOpenItAndStaysUnchanged) {
    EscritorMdb escritor = Pagamentos(100);
    const std::string arquivo = Gravar(escritor);
    const auto antes = std::filesystem::last_write_time(arquivo);
    auto origem = std::make_unique<OrigemBanco>(arquivo);
    const auto um = origem->Abrir();
    const auto outro = origem->Abrir();
    EXPECT_EQ(std::filesystem::last_write_time(arquivo), antes);
    EXPECT_EQ(apoio::BytesDe(arquivo), escritor.Bytes());
    std::filesystem::remove(arquivo);
    origem.reset();
    // Work tables are each connection's own; what was read is nobody's to change.
    const auto trabalho =
        um->OpenRecordset("select * from tblResumoCFOPsEntradas", TipoRecordset::Dynaset);
    trabalho->AddNew();
    trabalho->Fields("Linha") = std::string("1");
    trabalho->Update();
    EXPECT_EQ(Linhas(*um, "select Linha from tblResumoCFOPsEntradas", 1).size(), 1);
    EXPECT_EQ(Linhas(*outro, "select Linha from tblResumoCFOPsEntradas", 1).size(), 0);
    EXPECT_EQ(NumeroDe([&] {
                  um->OpenRecordset("select * from tblPagamento", TipoRecordset::Dynaset)->AddNew();
              }),
              NumeroErro::BancoSomenteLeitura);
    EXPECT_EQ(Linhas(*outro, "select NroDRQ from tblPagamento", 1).size(), 100);
}

TEST(Isolamento, EndsAProcessThatAsksForMoreThanMemoryAndItsPipe) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const auto tentar = [](auto&& pedido) {
        if (!Isolar(1024)) {
            _exit(3);
        }
        pedido();
        _exit(0);
    };
    EXPECT_EXIT(tentar([] { std::string(1 << 20, 'x').append("y"); }), testing::ExitedWithCode(0),
                "");
    EXPECT_EXIT(tentar([] { open("/etc/hostname", O_RDONLY); }), testing::KilledBySignal(SIGSYS),
                "");
    EXPECT_EXIT(tentar([] { socket(AF_INET, SOCK_STREAM, 0); }), testing::KilledBySignal(SIGSYS),
                "");
    EXPECT_EXIT(tentar([] { execl("/bin/true", "true", nullptr); }),
                testing::KilledBySignal(SIGSYS), "");
    EXPECT_EXIT(tentar([] { fork(); }), testing::KilledBySignal(SIGSYS), "");
    EXPECT_EXIT(tentar([] { (void)!write(5, "x", 1); }), testing::KilledBySignal(SIGSYS), "");
}

TEST(Decodificador, ReadsCompressedTextsThatChangeBetweenShortAndLongCharacters) {
    const auto ler = [](std::initializer_list<unsigned char> bytes) {
        std::string utf8;
        const bool legivel = Decodificador::DeUnicode({bytes.begin(), bytes.size()}, utf8);
        return utf8 + (legivel ? "" : " (ilegível)");
    };
    EXPECT_EQ(ler({0xFF, 0xFE, 'a', 0, 0x16, 0x04, 0, 0xE7}), "aЖç");
    EXPECT_EQ(ler({0x3D, 0xD8, 0x00, 0xDE}), "😀");
    EXPECT_EQ(ler({0x3D, 0xD8, 'a', 0}), "\uFFFDa (ilegível)");
    EXPECT_EQ(ler({'a', 0, 'b'}), "a (ilegível)");

    const Decodificador antigo("CP1252");
    std::string utf8;
    constexpr unsigned char Bytes[] = {0x93, 'a', 0x80, 0x81};
    EXPECT_FALSE(antigo.DaCodificacao(Bytes, utf8));
    EXPECT_EQ(utf8, "“a€\uFFFD");
    EXPECT_FALSE(Decodificador("nenhuma").Valido());
}

}  // namespace
}  // namespace tarvo::mdb
