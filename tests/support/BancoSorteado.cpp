// SPDX-License-Identifier: MIT
#include "tests/support/BancoSorteado.h"

#include <algorithm>
#include <initializer_list>
#include <map>

#include "data/Consultas.h"

namespace tarvo::apoio {

const char* const TabelasSemChaves = R"sql(
drop table tblContribuinte; create table tblContribuinte ("IE" text, "RazãoSocial" text, "CNPJ" text);
drop table tblEstados; create table tblEstados ("Código" text, "UF" text, "Estado" text);
drop table "tblMunicípiosZFM_ALC";
create table "tblMunicípiosZFM_ALC" ("CódMunicípio" text, "Município" text, "UF" text);
drop table "tblMunicípios"; create table "tblMunicípios" ("CódMunicípio" text, "Município" text);
drop table "tblCódigosMIDAX";
create table "tblCódigosMIDAX" ("Código" text, "Descrição" text, "Cabeçalho" text);
drop table "tblQuadroOcorrências";
create table "tblQuadroOcorrências"
    ("CódSubItem" text, "OpPróprias" boolean, "Ocorrência" text, "FLegal" text);
drop table "tblOcorrências";
create table "tblOcorrências" ("NroDRQ" integer, "CódSubItem" text, "Código" integer,
    "Valor" currency, "OpPróprias" boolean);
)sql";

const char* const EsvaziarTabelas = R"sql(
delete from tblContribuinte; delete from tblDRQ; delete from tblEstados;
delete from "tblMunicípiosZFM_ALC"; delete from "tblMunicípios"; delete from "tblCódigosMIDAX";
delete from "tblQuadroOcorrências"; delete from "tblOcorrências"; delete from tblDetalhesCFOPs;
delete from tblDetalhesInterUFs; delete from tblZFM_ALC; delete from tblMIDAX;
delete from tblIEsRemetente; delete from tblRecibosCredito; delete from tblIESubstituto;
delete from tblIESubstituido; delete from "tblRegistroExportação"; delete from tblPagamento;
)sql";

Moeda PotenciaDeQuatro(int i) {
    return Moeda::DeDecimosMilesimos(std::int64_t{100} << (2 * i));
}

namespace {

using Textos = std::vector<Codigo>;

class Sorteio {
  public:
    Sorteio(BancoSorteado& banco, unsigned semente) : b_(banco), sorte_(semente) {
        constexpr double Defeitos[] = {0, 0, 0.02, 0.1, 0.4};
        defeitos_ = Defeitos[Ate(4)];
        b_.ano = Ate(1) == 0 ? 2001 : 2003;
        b_.novos = Defeito() ? b_.ano == 2001 : b_.ano == 2003;
        b_.regime = *Um({"01", "02", "03"}, {"04"});
        Catalogos();
        Declaracao();
        Detalhes();
        Operacoes();
        Notas();
        Midax();
        Subitens();
        Registros();
        Pagamentos();
    }

  private:
    int Ate(int n) { return std::uniform_int_distribution<int>(0, n)(sorte_); }
    bool Defeito() { return std::bernoulli_distribution(defeitos_)(sorte_); }
    const Codigo& Um(const Textos& textos) {
        return textos[static_cast<std::size_t>(Ate(static_cast<int>(textos.size()) - 1))];
    }
    Codigo Um(const Textos& bons, const Textos& maus) { return Um(Defeito() ? maus : bons); }
    static std::string Sql(const Codigo& texto) { return texto ? TextoSql(*texto) : "null"; }
    static std::string Sql(const std::optional<bool>& b) { return b ? (*b ? "-1" : "0") : "null"; }
    static std::string Sql(Moeda valor) { return std::to_string(valor.DecimosMilesimos()); }
    void Inserir(const std::string& tabela, std::initializer_list<std::string> valores) {
        std::string lista;
        for (const std::string& valor : valores) {
            lista += (lista.empty() ? "" : ", ") + valor;
        }
        b_.sql += "insert into " + tabela + " values (" + lista + ");\n";
    }
    // With the defects of catalogues: a row missing, doubled, or without a name.
    void Item(const std::string& tabela, std::initializer_list<std::string> valores,
              std::initializer_list<std::string> semNome) {
        if (Defeito()) {
            return;
        }
        Inserir(tabela, Defeito() ? semNome : valores);
        if (Defeito()) {
            Inserir(tabela, valores);
        }
    }

    void Catalogos() {
        Inserir("tblContribuinte", {"'1'", "'Padaria'", "'00'"});
        const bool outroRio = Defeito();
        b_.rotulo35 = outroRio ? "rj. Rio" : "SP. São Paulo";
        const std::string sigla = outroRio ? "'rj'" : "'SP'";
        const std::string nome = outroRio ? "'Rio'" : "'São Paulo'";
        Item("tblEstados", {"'a3'", "'RJ'", "'Rio'"}, {"'a3'", "null", "''"});
        Item("tblEstados", {"'35'", sigla, nome}, {"'35'", "null", "null"});
        Item("\"tblMunicípiosZFM_ALC\"", {"'m1'", "'Manaus'", "'AM'"}, {"'m1'", "''", "'AM'"});
        Item("\"tblMunicípiosZFM_ALC\"", {"'m2'", "'Tefé'", "'AM'"}, {"'m2'", "null", "'AM'"});
        Item("\"tblMunicípios\"", {"'t1'", "'Alfa'"}, {"'t1'", "null"});
        b_.nomeT2 = Defeito() ? "Alfa" : "Beta";
        Item("\"tblMunicípios\"", {"'T2'", TextoSql(b_.nomeT2)}, {"'T2'", "''"});
        for (const char* codigo : {"'3.01'", "'3.02'"}) {
            Item("\"tblCódigosMIDAX\"", {codigo, "'Descrito'", "'Grupo'"}, {codigo, "null", "'G'"});
        }
        for (const char* subitem :
             {"002.10", "002.11", "002.18", "002.20", "007.01", "007.02", "007.04", "007.30"}) {
            for (const char* proprias : {"-1", "0"}) {
                Item("\"tblQuadroOcorrências\"", {TextoSql(subitem), proprias, "'o'", "'f'"},
                     {TextoSql(subitem), proprias, "null", "null"});
            }
        }
    }

    void Declaracao() {
        b_.sql +=
            "insert into tblDRQ (NroDRQ, Ref1, Ref2, Tipo, RegTrib, Consistente, Autenticação, "
            "SaldoCredAntDig, SaldoCredAntDigST, ICMSFixPerRES) values (1, '" +
            std::to_string(b_.ano) + "-05-01', '" + std::to_string(b_.ano) + "-05-01', 1, '" +
            b_.regime + "', -1, 'A', 0, 0, " + (b_.regime == "02" ? "0" : "null") + ");\n";
    }

    Codigo SorteiaCFOP(const Textos& novos, const Textos& antigos) {
        return Um(
            b_.ano == 2003 ? novos : antigos,
            {std::nullopt, "",           "4.101", "x5.101", "5.150",  "5101",  "5.101 ", "51",
             "5.15.2",     "6.17",       "2.152", "6.101",  "7.99.9", "5.99",  "1.82",   "5.1.1.1",
             "6.99.5",     "5\u00BA101", "5.11a", "1.665",  "5.667",  "5.668", "3.94"});
    }

    void Detalhes() {
        const Textos visiveis{"ValorContábil", "BaseCálculo", "Imposto", "Outras",
                              "OutrosImpostos"};
        const Textos todas{"ImpostoRetidoST", "ImpRetSubstitutoST", "ImpRetSubstituido"};
        const int quantos = Ate(6);
        std::vector<std::string> usados;
        for (int i = 0; i < quantos; ++i) {
            DetalheSorteado d{
                SorteiaCFOP(
                    {"1.101", "2.152", "3.949", "5.102", "6.101", "6.109", "6.667", "7.101"},
                    {"1.11", "2.99.9", "3.97", "5.12", "6.11", "6.99.1", "7.99.9"}),
                *Um(visiveis, todas), PotenciaDeQuatro(i)};
            const bool usado =
                d.CFOP && std::find(usados.begin(), usados.end(), *d.CFOP) != usados.end();
            if (usado && defeitos_ == 0) {
                continue;
            }
            usados.push_back(d.CFOP.value_or(""));
            b_.sql += "insert into tblDetalhesCFOPs (NroDRQ, CFOP, " + d.coluna + ") values (1, " +
                      Sql(d.CFOP) + ", " + Sql(d.valor) + ");\n";
            b_.detalhes.push_back(d);
        }
    }

    void Operacoes() {
        const Textos visiveis{"ValorContábil_1", "BaseCálculo_1", "Outras"};
        const Textos outras{"ValorContábil_2", "BaseCálculo_2",  "Imposto",
                            "PetróleoEnergia", "OutrosProdutos", "ICMSCobradoST"};
        const int quantas = Ate(6);
        for (int i = 0; i < quantas; ++i) {
            OperacaoSorteada o{Um({"2.101", "6.101"}, {"5.101", std::nullopt, "", "26", "7.1"}),
                               Um({"A3", "35"}, {std::nullopt, "99", ""}),
                               *Um(defeitos_ > 0 && Ate(2) == 0 ? outras : visiveis),
                               PotenciaDeQuatro(i)};
            b_.sql += "insert into tblDetalhesInterUFs (NroDRQ, CFOP, UF, " + o.coluna +
                      ") values (1, " + Sql(o.CFOP) + ", " + Sql(o.UF) + ", " + Sql(o.valor) +
                      ");\n";
            b_.operacoes.push_back(o);
        }
    }

    void Notas() {
        Textos dosDetalhes;
        for (const DetalheSorteado& d : b_.detalhes) {
            if (d.CFOP && d.CFOP->starts_with('6')) {
                dosDetalhes.push_back(d.CFOP);
            }
        }
        const int quantas = dosDetalhes.empty() && !Defeito() ? 0 : Ate(5);
        for (int i = 0; i < quantas; ++i) {
            dosDetalhes.push_back(dosDetalhes.empty() ? "6.555" : dosDetalhes[0]);
            NotaSorteada n{Um(dosDetalhes, {std::nullopt, "6.555", "5.102", ""}),
                           Um({"m1", "M2"}, {std::nullopt, "zz", ""}),
                           Defeito() ? Codigo() : "02/05/2003", PotenciaDeQuatro(i)};
            Inserir("tblZFM_ALC", {"1", Sql(n.CFOP), "'NF'", n.data ? "'2003-05-02'" : "null",
                                   Sql(n.municipio), "'cnpj'", Sql(n.valor)});
            b_.notas.push_back(n);
        }
    }

    void Midax() {
        const int quantas = Ate(6);
        for (int i = 0; i < quantas; ++i) {
            EntradaMIDAX e{Um({"1.01", "2.01", "1.02", "3.01", "3.02"},
                              {std::nullopt, "", "4.01", "3.99", "x1"}),
                           Um({"t1", "t2"}, {std::nullopt, "zz", ""}), PotenciaDeQuatro(i)};
            Inserir("tblMIDAX", {"1", Sql(e.codigo), Sql(e.municipio), Sql(e.valor)});
            b_.midax.push_back(e);
        }
    }

    void Subitens() {
        const std::map<std::string, std::string> tabelas{
            {"002.10", "tblIESubstituto"},  {"002.11", "tblIESubstituto"},
            {"002.18", "tblIEsRemetente"},  {"002.20", "tblRecibosCredito"},
            {"007.01", "tblIESubstituido"}, {"007.02", "tblIESubstituido"},
            {"007.04", "tblIEsRemetente"},  {"007.30", "tblIEsRemetente"}};
        const int quantos = Ate(4);
        for (int i = 0; i < quantos; ++i) {
            SubitemSorteado s;
            const bool simples = Ate(2) == 0;
            s.codigo = *Um(simples ? Textos{"002.01", "003.02", "007.09", "008.01"}
                                   : Textos{"002.10", "002.11", "002.18", "002.20", "007.01",
                                            "007.02", "007.04", "007.30"},
                           {"014.01", "015.01", "", "002.18 ", "004.01"});
            s.numero = Defeito() ? 1 : i + 1;
            const bool deST = s.codigo == "007.01" || s.codigo == "007.02";
            s.opProprias = Defeito() ? std::nullopt : std::optional(Defeito() ? deST : !deST);
            const auto tabela = tabelas.find(s.codigo);
            const int detalhes = tabela == tabelas.end() && !Defeito() ? 0 : 1 + Ate(2);
            for (int k = 0; k < detalhes; ++k) {
                s.valor += Detalhe(s, tabela == tabelas.end() || Defeito() ? "" : tabela->second);
            }
            if (s.valor == Moeda() || Defeito()) {
                s.valor += PotenciaDeQuatro(20 + i);
            }
            Inserir("\"tblOcorrências\"", {"1", TextoSql(s.codigo), std::to_string(s.numero),
                                           Sql(s.valor), Sql(s.opProprias)});
            b_.subitens.push_back(s);
        }
    }

    // A supporting row in that table, or any; its amount.
    Moeda Detalhe(const SubitemSorteado& s, const std::string& tabela) {
        LinhaDeDetalhe linha;
        linha.tabela = !tabela.empty() ? tabela
                                       : *Um({"tblIEsRemetente", "tblRecibosCredito",
                                              "tblIESubstituto", "tblIESubstituido"});
        linha.numero = s.numero;
        linha.valor = PotenciaDeQuatro(static_cast<int>(b_.linhas.size()));
        const bool temNota =
            linha.tabela == "tblIESubstituto" || linha.tabela == "tblIESubstituido";
        const bool comNota = Defeito() || (s.codigo != "002.11" && s.codigo != "007.02");
        linha.NF = temNota && comNota ? "n" + std::to_string(b_.linhas.size()) : "";
        linha.temPeriodo = linha.tabela != "tblIESubstituto" || !Defeito();
        const std::string numero = std::to_string(s.numero);
        const std::string data = linha.temPeriodo ? "'2003-05-01'" : "null";
        if (linha.tabela == "tblIESubstituto") {
            Inserir(linha.tabela,
                    {numero, "'ie'", TextoSql(linha.NF), "'2003-04-01'", data, Sql(linha.valor)});
        } else if (temNota) {
            Inserir(linha.tabela, {numero, "'ie'", TextoSql(linha.NF), Sql(linha.valor)});
        } else {
            Inserir(linha.tabela, {numero, "'ie'", Sql(linha.valor)});
        }
        b_.linhas.push_back(linha);
        return linha.valor;
    }

    void Registros() {
        const int quantos = Ate(3);
        for (int i = 0; i < quantos; ++i) {
            b_.registros.push_back(Defeito() ? "" : "RE" + std::to_string(i));
            Inserir("\"tblRegistroExportação\"", {"1", b_.registros.back().empty() && Defeito()
                                                           ? "null"
                                                           : TextoSql(b_.registros.back())});
        }
    }

    void Pagamentos() {
        const int quantos = Ate(5);
        for (int i = 0; i < quantos; ++i) {
            PagamentoSorteado p{
                Defeito() ? std::nullopt : std::optional(Ate(1) == 1),
                Defeito() ? Codigo() : "02/05/2003",
                Defeito() && Defeito() ? std::nullopt : std::optional(PotenciaDeQuatro(i))};
            Inserir("tblPagamento", {"1", Sql(p.opProprias), p.data ? "'2003-05-02'" : "null",
                                     p.valor ? Sql(*p.valor) : "null"});
            b_.pagamentos.push_back(p);
        }
    }

    BancoSorteado& b_;
    std::mt19937 sorte_;
    double defeitos_ = 0;
};

}  // namespace

BancoSorteado::BancoSorteado(unsigned semente) {
    Sorteio(*this, semente);
}

}  // namespace tarvo::apoio
