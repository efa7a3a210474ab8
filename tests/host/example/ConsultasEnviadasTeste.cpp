// SPDX-License-Identifier: MIT
#include <algorithm>
#include <fstream>
#include <set>

#include "data/LeitoresDeCampo.h"
#include "data/Textos.h"
#include "dispatch/Catalogo.h"
#include "dispatch/Relatorios.h"
#include "host/example/Exemplo.h"
#include "review/Revisao.h"
#include "slip/RelatorioVELO.h"
#include "tests/support/Apoio.h"

// Hosts with an engine of their own build it from the list of queries in their guide.
namespace tarvo {
namespace {

// A query without its values: N for a number, … for what stands between quotes, but for the star.
std::string Forma(std::string_view consulta) {
    std::string forma;
    for (std::size_t i = 0; i < consulta.size(); ++i) {
        if (consulta[i] == '\'') {
            // Up to the quote that no other follows.
            for (++i; consulta.substr(i, 2) == "''" || consulta.at(i) != '\''; ++i) {
                i += consulta[i] == '\'' ? 1 : 0;
            }
            forma += consulta[i - 1] == '*' ? "'…*'" : "'…'";
        } else if ((EhDigito(consulta[i]) || consulta[i] == '-') &&
                   (forma.ends_with('=') || forma.ends_with("= "))) {
            forma += 'N';
            i = std::min(consulta.find_first_not_of("0123456789", i + 1), consulta.size()) - 1;
        } else {
            forma += consulta[i];
        }
    }
    return forma;
}

// Passes everything on, and notes the forms of what it was asked.
class BancoGravador final : public BancoDados {
  public:
    explicit BancoGravador(BancoDados& banco) : banco_(banco) {}
    std::unique_ptr<Recordset> OpenRecordset(std::string_view consulta,
                                             TipoRecordset tipo) override {
        formas.insert(Forma(consulta));
        return banco_.OpenRecordset(consulta, tipo);
    }
    std::unique_ptr<QueryDef> CreateQueryDef(std::string_view nome,
                                             std::string_view consulta) override {
        formas.insert(Forma(consulta));
        return banco_.CreateQueryDef(nome, consulta);
    }
    std::set<std::string> formas;

  private:
    BancoDados& banco_;
};

// The lines of the guide's block after its heading.
std::set<std::string> FormasDoGuia() {
    std::ifstream guia(TARVO_GUIA);
    std::set<std::string> formas;
    std::string linha;
    while (std::getline(guia, linha) && linha != "### The queries") {
    }
    while (std::getline(guia, linha) && linha != "```sql") {
    }
    while (std::getline(guia, linha) && linha != "```") {
        formas.insert(linha);
    }
    return formas;
}

TEST(QueriesSent, AreThoseOfTheGuide) {
    apoio::BancoDeTeste banco(ScriptDeExemplo());
    BancoGravador gravador(*banco);
    const auto declaracoes = banco->OpenRecordset("select * from tblDRQ", TipoRecordset::Dynaset);
    for (; !declaracoes->EOF_(); declaracoes->MoveNext()) {
        for (const char* mes : {"01/2002", "01/2003"}) {
            const apoio::ConfiguracaoFixa configuracao(mes);
            for (const EntradaCatalogo& entrada : Catalogo()) {
                entrada.criar({.configuracoes = &configuracao})
                    ->Construir(gravador, TextoCampo(declaracoes->Fields("IE")),
                                LongCampo(declaracoes->Fields("NroDRQ")));
            }
        }
    }
    RelatorioVELO().Construir(gravador);
    Relatorios::Referencia(gravador, 101);
    EXPECT_EQ(gravador.formas, FormasDoGuia());
}

TEST(QueriesSent, OfAReviewReadOneTableEach) {
    apoio::BancoDeTeste banco(ScriptDeExemplo());
    BancoGravador gravador(*banco);
    Revisar(gravador, {.IE = "250114377019", .NroDRQ = 101});
    EXPECT_GT(gravador.formas.size(), 5U);
    EXPECT_THAT(gravador.formas,
                testing::Each(testing::MatchesRegex(
                    "select [^ ,]+(, [^ ,]+)* from [^ ]+( where [^ ]+ = [^ ]+( Or [^ ]+ = [^ ]+)*"
                    "| where [^ ]+ >= N And [^ ]+ <= N order by [^ ]+)?")));
}

}  // namespace
}  // namespace tarvo
