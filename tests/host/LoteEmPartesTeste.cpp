// SPDX-License-Identifier: MIT
#include <csignal>
#include <fstream>
#include <memory>

#include "tests/host/LoteDeTeste.h"

namespace tarvo::host {
namespace {

class LoteEmPartes : public ComLote {
  protected:
    [[nodiscard]] std::string Parte(const std::string& parte) const {
        return Chamada("--relatorios 01,17 --retomar --parte " + parte);
    }
    Execucao Juntar(const std::string& outros = "") {
        return Rodar("lote-resumo " + Saida() + " " + outros);
    }
};

TEST_F(LoteEmPartes, FourAtOnceOneOfThemKilledMakeTheWholeBatchEachFileOnce) {
    Multiplicar();
    std::vector<std::unique_ptr<Programa>> partes;
    for (const char* parte : {"1/4", "2/4", "3/4", "4/4"}) {
        partes.push_back(std::make_unique<Programa>(Parte(parte)));
    }
    Esperar(*partes[1], [&] { return Resumo("resumo-2-de-4.csv").size() > 30; });
    partes[1]->Sinalizar(SIGKILL);
    for (const std::size_t i : {0U, 2U, 3U}) {
        EXPECT_THAT(partes[i]->Esperar(), Termina(0));
    }
    ASSERT_EQ(partes[1]->Esperar().situacao, 128 + SIGKILL);
    const Execucao aberto = Juntar("--json");
    EXPECT_EQ(aberto.situacao, 1);
    const auto situacoes = LinhasJSON(aberto.saida);
    ASSERT_THAT(situacoes, SizeIs(4));
    EXPECT_FALSE(situacoes[1]["concluida"]);
    EXPECT_LT(situacoes[1]["terminadas"], situacoes[1]["declaracoes"]);
    int declaracoes = 0;
    for (const auto& situacao : situacoes) {
        EXPECT_GT(situacao["declaracoes"], 100) << "spread evenly";
        declaracoes += situacao["declaracoes"].get<int>();
    }
    EXPECT_EQ(declaracoes, 610);

    const auto antes = Datas();
    EXPECT_THAT(Rodar(Parte("2/4")), Termina(0));
    EXPECT_THAT(Juntar(), Termina(0));
    ConferirInteiros();
    EXPECT_THAT(Datas(), SizeIs(1220));
    EXPECT_THAT(Refeitos(antes), SizeIs(testing::Le(2U)))
        << "only what the kill kept from being written down";
    std::map<std::string, int> vezes;
    for (const char* nome :
         {"resumo-1-de-4.csv", "resumo-2-de-4.csv", "resumo-3-de-4.csv", "resumo-4-de-4.csv"}) {
        for (const auto& [chave, linha] : Resumo(nome)) {
            ++vezes[linha.arquivo];
        }
        EXPECT_THAT(apoio::BytesDe(Saida(nome)), Not(HasSubstr(";fim;")));
    }
    EXPECT_THAT(vezes, AllOf(SizeIs(1220), Each(testing::Pair(testing::_, 1))));
}

TEST_F(LoteEmPartes, ThePartsAreTheSameWhateverElseTheDatabaseHolds) {
    EXPECT_THAT(Rodar(Parte("1/3")), Termina(0));
    const auto antes = Datas();
    ASSERT_THAT(antes, Not(IsEmpty()));
    Executar("delete from tblDRQ where NroDRQ = 102; update tblDRQ set Tipo = '1'");
    fs::remove_all(Saida());
    EXPECT_THAT(Rodar(Parte("1/3")), Termina(0));
    for (const auto& [nome, data] : antes) {
        EXPECT_TRUE(nome.find("-102/") != std::string::npos || fs::exists(Saida(nome))) << nome;
    }
}

TEST_F(LoteEmPartes, TheJoinedSummarySaysWhatIsMissing) {
    Executar("update tblDRQ set SaldoCredAntDig = null where NroDRQ = 201");
    const int falhou = RodarLote("--relatorios 10 --parte 1/2").situacao;
    Execucao e = Juntar();
    EXPECT_THAT(e, Termina(1));
    EXPECT_THAT(e.saida,
                AllOf(HasSubstr("parte 1/2: concluída, "), HasSubstr("parte 2/2: não começou\n"),
                      HasSubstr("falta: 1 parte não começou")));
    EXPECT_EQ(RodarLote("--relatorios 10 --parte 2/2").situacao + falhou, 1);
    e = Juntar();
    EXPECT_THAT(e, Termina(1));
    EXPECT_THAT(e.saida, AllOf(HasSubstr("declaração 201, relatório 10: erro 94: "),
                               HasSubstr("\n10 declarações terminadas: 9 arquivos, "),
                               HasSubstr("falta: 1 relatório falhou\n")));
    // A journal that stopped within a declaration.
    const std::string nome = Saida("resumo-1-de-2.csv");
    std::string resumo = apoio::BytesDe(nome);
    resumo.replace(resumo.find(Concluido), std::string_view(Concluido).size(), "");
    std::ofstream(nome, std::ios::binary) << resumo;
    EXPECT_THAT(Juntar().saida, HasSubstr("; por terminar: 2"));
    // The same part, elsewhere; other options.
    fs::create_directory(pasta / "outra");
    fs::copy(nome, pasta / "outra");
    EXPECT_THAT(Juntar(pasta / "outra"),
                Termina(1, AllOf(StartsWith("erro 5: A parte 1/2 está em"), HasSubstr("outra"))));
    EXPECT_EQ(RodarLote("--relatorios 17 --parte 1/2 --retomar").situacao, 0);
    EXPECT_THAT(Juntar().erros, HasSubstr("aviso: as partes 1/2 e 2/2 não foram pedidas do mesmo"));
    EXPECT_THAT(Rodar("lote-resumo /"), Termina(1, HasSubstr("não tem o resumo")));
    EXPECT_THAT(Rodar("lote-resumo"), Termina(2, HasSubstr("falta PASTA")));
}

TEST_F(LoteEmPartes, APartIsOneOfItsBatchAndWorkedOnOnce) {
    for (const char* parte : {"0/4", "5/4", "2", "/", "1/0", "a/b", "1/4/2", "-1/4"}) {
        EXPECT_THAT(Rodar(Parte(parte)), Termina(2, HasSubstr("--parte"))) << parte;
    }
    EXPECT_THAT(Rodar(Parte("1/2")), Termina(0));
    const auto outra = StartsWith("erro 5: \"" + Saida("resumo-1-de-2.csv") +
                                  "\" é o resumo de um lote dividido de outra forma");
    EXPECT_THAT(Rodar(Parte("1/3")), Termina(1, outra));
    EXPECT_THAT(RodarLote("--retomar"), Termina(1, outra));
    EXPECT_THAT(RodarLote("--parte 1/2"), Termina(1, StartsWith("erro 58: ")));
    Multiplicar();
    Programa primeira(Parte("2/2"));
    Esperar(primeira, [&] { return fs::exists(Saida("resumo-2-de-2.csv")); });
    EXPECT_THAT(Rodar(Parte("2/2")), Termina(1, StartsWith("erro 20006: ")));
    EXPECT_TRUE(primeira.Ativo());
    primeira.Sinalizar(SIGKILL);
    primeira.Esperar();
}

}  // namespace
}  // namespace tarvo::host
