// SPDX-License-Identifier: MIT
#include <csignal>
#include <memory>

#include "tests/host/LoteDeTeste.h"

namespace tarvo::host {
namespace {

// What a stopped batch left is whole, and the next run makes exactly the rest.
class LoteInterrompido : public ComLote, public testing::WithParamInterface<int> {
  protected:
    // Of the files that the summary says are complete.
    DatasPorNome Prontos() {
        DatasPorNome prontos;
        for (const auto& [chave, linha] : Resumo()) {
            prontos[linha.arquivo] = fs::last_write_time(Saida(linha.arquivo));
        }
        return prontos;
    }
};

TEST_P(LoteInterrompido, GoesOnWhereItStopped) {
    Multiplicar();
    const std::string relatorios = "--relatorios 01,17";
    Programa primeira(Chamada(relatorios));
    Esperar(primeira, [&] { return Resumo().size() >= 100; });
    primeira.Sinalizar(GetParam());
    const Execucao e = primeira.Esperar();
    const auto antes = Prontos();
    ASSERT_GE(antes.size(), 100U);
    ASSERT_LT(antes.size(), 1220U) << "the batch ended before it was stopped";
    if (GetParam() == SIGKILL) {
        EXPECT_EQ(e.situacao, 128 + SIGKILL);
    } else {
        EXPECT_THAT(e, Termina(1, HasSubstr("--retomar")));
        EXPECT_EQ(Datas(), antes) << "the summary knows them all";
    }
    ConferirInteiros();
    EXPECT_THAT(RodarLote(relatorios),
                Termina(1, AllOf(StartsWith("erro 58: "), HasSubstr("--retomar"))));
    EXPECT_THAT(RodarLote(relatorios + " --retomar"), Termina(0));
    EXPECT_THAT(Refeitos(antes), IsEmpty());
    EXPECT_THAT(Resumo(), SizeIs(1220));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(1221));
    ConferirInteiros();
}

INSTANTIATE_TEST_SUITE_P(Sinais, LoteInterrompido, testing::Values(SIGINT, SIGTERM, SIGKILL));

class LotesJuntos : public ComLote {};

TEST_F(LotesJuntos, FourAtOnceOneOfThemKilledMakeTheWholeBatchEachFileOnce) {
    Multiplicar();
    const std::string chamada = Chamada("--relatorios 01,17 --retomar --parte ");
    std::vector<std::unique_ptr<Programa>> partes;
    for (const char* parte : {"1/4", "2/4", "3/4", "4/4"}) {
        partes.push_back(std::make_unique<Programa>(chamada + parte));
    }
    Esperar(*partes[1], [&] { return Resumo("resumo-2-de-4.csv").size() > 30; });
    partes[1]->Sinalizar(SIGKILL);
    for (const std::size_t i : {0U, 2U, 3U}) {
        EXPECT_THAT(partes[i]->Esperar(), Termina(0));
    }
    ASSERT_EQ(partes[1]->Esperar().situacao, 128 + SIGKILL);
    const Execucao aberto = Rodar("lote-resumo --json " + Saida());
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
    EXPECT_THAT(Rodar(chamada + "2/4"), Termina(0));
    EXPECT_THAT(Rodar("lote-resumo " + Saida()), Termina(0));
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

// As long as the first runs, and no longer, however it ends.
TEST_F(LotesJuntos, ASecondBatchInTheSameFolderIsRefused) {
    Multiplicar();
    for (const std::string parte : {"", " --parte 2/2"}) {
        Programa primeira(Chamada(parte));
        Esperar(primeira, [&] {
            return !Resumo(parte.empty() ? "resumo.csv" : "resumo-2-de-2.csv").empty();
        });
        for (const char* outra : {"--relatorios 17", "--relatorios 17 --retomar"}) {
            EXPECT_THAT(RodarLote(outra + parte),
                        Termina(1, AllOf(StartsWith("erro 20006: "), HasSubstr("outro lote"))));
        }
        primeira.Sinalizar(SIGKILL);
        EXPECT_EQ(primeira.Esperar().situacao, 128 + SIGKILL) << "it had not ended yet";
        EXPECT_THAT(RodarLote("--retomar --relatorios 17" + DoPrimeiro + parte), Termina(0));
        fs::remove_all(Saida());
    }
}

}  // namespace
}  // namespace tarvo::host
