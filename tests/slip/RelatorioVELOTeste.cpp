#include "slip/RelatorioVELO.h"

#include "document/Imagens.h"
#include "tests/support/Apoio.h"
#include "tests/support/OperacoesCurtas.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAreArray;

constexpr const char* Guias = R"sql(
insert into tblVELO values ('Padaria São João', 'Rua A, 10', 'Água Clara', 'VD', '5555-0000',
    'linha um' || char(13, 10) || 'linha dois', '15/08/2003', '046-2', '110', '00.1', 'DA7',
    '07/2003', 'AI9', '1.000,00', '10,00', '20,00', '30,00', '40,00', '1.100,00');
insert into tblVELO (Contribuinte, IE) values ('Outra', '999');
)sql";

template <class Classe>
concept TemImprimir = requires(Classe& relatorio) {
    relatorio.Imprimir();
};

// The boxes of one copy whose frame begins at (0, topo), in drawing order.
class GuiaEsperada {
  public:
    explicit GuiaEsperada(double topo) : topo_(topo) {}
    void Op(const char* nome, double x, double y, const std::string& resto) {
        const std::string inicio = Curta(nome, {x, topo_ + y, 0, 0}, "");
        lista_.push_back(inicio.substr(0, inicio.size() - 3) + resto);  // resto has the size
    }
    void Tab(double x, double y, const std::string& numero) {
        Op("R", x, y, "0.55 0.65 #000000");
        Op("T", x, y, "0.55 0.65 CM Arial 10b |" + numero);
    }
    void Campo(double x, double y, double largura, const std::string& estilo,
               const std::string& legenda, const std::string& valor) {
        const double topo = topo_ + y;
        lista_.push_back(Curta("R", {x, topo, largura, 0.65}, "#000000"));
        lista_.push_back(Curta("T", {x + 0.08, topo + 0.08, largura - 0.16, 0.57},
                               "ET Times New Roman 5 |" + legenda));
        lista_.push_back(
            Curta("T", {x + 0.18, topo + 0.08, largura - 0.36, 0.57}, estilo + " |" + valor));
    }
    void Esquerdo(double x, double y, double largura, const std::string& legenda,
                  const std::string& valor) {
        Campo(x, y, largura, "EB Arial 8", legenda, valor);
    }
    void Direito(double y, const std::string& legenda, const std::string& valor) {
        Campo(13.2, y, 5, "DB Arial 11", legenda, valor);
    }
    [[nodiscard]] const Lista& Operacoes() const { return lista_; }

  private:
    double topo_;
    Lista lista_;
};

Lista Guia(double topo, const std::string& via) {
    GuiaEsperada g(topo);
    g.Op("Q", 0, 7.8, "0.55 0.65 r0.2 #000000 #ffffff");
    g.Op("R", 0.2, 7.8, "0.35 0.2 #ffffff #ffffff");
    g.Op("R", 0, 8.0, "0.55 0.45 #ffffff #ffffff");
    g.Op("L", 0, 8.0, "0 0.45");
    g.Op("L", 0.55, 7.8, "0 0.65");
    g.Op("L", 0, 8.45, "0.55 0");
    g.Op("T", 0, 7.8, "0.55 0.65 CM Arial 10b |20");
    g.Op("T", 0.63, 7.88, "11.79 0.65 ET Times New Roman 5 |AUTENTICAÇÃO MECÂNICA");
    g.Op("R", 12.5, 1.3, "0.15 8.45 #808080 #808080");
    g.Op("R", 18.2, 1.3, "0.15 8.45 #808080 #808080");
    g.Op("Q", 0, 0, "12.5 7.8 r0.2 #000000 #ffffff");
    g.Op("F", 0.25, 0.1, "1.5 1.6284 imgBrasaoVDMonocromatico =");
    g.Op("T", 2, 0.2, "7.5 0.3 EM Arial 7 |GOVERNO DO ESTADO DE VALDORA");
    g.Op("T", 2, 0.5, "7.5 0.3 EM Arial 7 |SECRETARIA DA FAZENDA");
    g.Op("T", 2, 0.8, "7.5 1.15 CM Arial 10b |GUIA DE ARRECADAÇÃO ESTADUAL");
    g.Op("R", 9.5, 0, "3 1.04 #000000 #ffffff");
    g.Op("R", 9.6, 0.1, "2.8 0.84 #000000 #000000");
    g.Op("T", 9.5, 0, "3 1.144 CM Arial 20b #ffffff |VELO");
    g.Op("R", 9.5, 1.04, "3 0.91 #000000");
    g.Op("T", 9.5, 1.04, "3 0.91 CM Arial 18b |ICMS");
    g.Op("L", 0, 1.95, "9.5 0");
    g.Tab(0, 1.95, "15");
    g.Esquerdo(0.55, 1.95, 11.95, "CONTRIBUINTE", "Padaria São João");
    g.Tab(0, 2.6, "16");
    g.Esquerdo(0.55, 2.6, 11.95, "ENDEREÇO", "Rua A, 10");
    g.Esquerdo(0, 3.25, 6, "MUNICÍPIO", "Água Clara");
    g.Esquerdo(6, 3.25, 0.8, "UF", "VD");
    g.Tab(6.8, 3.25, "17");
    g.Esquerdo(7.35, 3.25, 2.5, "TELEFONE", "5555-0000");
    g.Tab(9.85, 3.25, "18");
    g.Esquerdo(10.4, 3.25, 2.1, "CNAE", " ");
    g.Tab(0, 3.9, "19");
    g.Op("T", 0.63, 3.98, "11.79 0.65 ET Times New Roman 5 |OBSERVAÇÕES");
    g.Op("M", 0.73, 4.3, "11.59 3.5 ET Arial 8 |linha um\r\nlinha dois");
    g.Op("T", 12.65, 0.65, "0.55 0.65 CM Arial 10b |01");
    g.Op("T", 13.28, 0.73, "4.84 0.49 EB Times New Roman 5 |MICROFILME (NÃO PREENCHER)");
    for (int n = 2; n <= 14; ++n) {
        g.Tab(12.65, 1.3 + 0.65 * (n - 2), (n < 10 ? "0" : "") + std::to_string(n));
    }
    g.Direito(1.3, "DATA DE", "");
    g.Op("T", 13.28, 1.38, "4.84 0.49 EB Times New Roman 5 |VENCIMENTO");
    g.Op("L", 15.2, 1.3, "0 0.65");
    g.Op("T", 15.38, 1.38, "2.64 0.57 CB Arial 11 |15/08/2003");
    g.Direito(1.95, "CÓDIGO DE RECEITA", "046-2");
    g.Direito(2.6, "INSCRIÇÃO ESTADUAL", "110");
    g.Direito(3.25, "CNPJ ou CPF", "00.1");
    g.Direito(3.9, "INSCRIÇÃO NA DÍVIDA ATIVA ou Nº DA ETIQUETA", "DA7");
    g.Direito(4.55, "REFERÊNCIA (mês / ano)", "07/2003");
    g.Direito(5.2, "Nº AIIM ou Nº DI ou Nº PARCELAMENTO", "AI9");
    g.Direito(5.85, "VALOR DA RECEITA (Nominal ou Corrigida)", "1.000,00");
    g.Direito(6.5, "JUROS DE MORA", "10,00");
    g.Direito(7.15, "MULTA DE MORA ou POR INFRAÇÃO (Nominal ou Corrigida)", "20,00");
    g.Direito(7.8, "ACRÉSCIMO FINANCEIRO", "30,00");
    g.Direito(8.45, "HONORÁRIOS ADVOCATÍCIOS", "40,00");
    g.Direito(9.1, "VALOR TOTAL", "1.100,00");
    g.Op("F", -0.28, 5.7, "0.25 1.9474 imgPortariaKEX_27_95 =");
    g.Op("T", 0.18, 9.18, "12.14 0.57 DB Times New Roman 5 |" + via);
    g.Op("F", -0.25, 10.1, "0.3305 0.3 imgTesoura =");
    g.Op("L", -0.25, 10.25, "18.85 0 ..");
    return g.Operacoes();
}

TEST(RelatorioVELO, PrintsTheFirstRowOnBothCopies) {
    static_assert(!TemImprimir<RelatorioVELO>);
    BancoDeTeste banco(Guias);
    RelatorioVELO relatorio;
    relatorio.Construir(*banco);
    const Conteudo& c = relatorio.Documento();
    EXPECT_EQ(c.titulo, "VELO");
    EXPECT_EQ(c.tituloResumido, "VELO");
    EXPECT_EQ(c.icone, &frmFiguras::imgIconeG);
    EXPECT_EQ(c.margens, (Margens{1.325, 1.325, 0, 0}));
    ASSERT_EQ(c.paginas.size(), 1U);
    EXPECT_THAT(Curtas(c, 0),
                ElementsAreArray(Guia(3.0, "VIA CONTRIBUINTE") + Guia(16.25, "VIA BANCO")));
}

TEST(RelatorioVELO, NullFieldsPrintAsNothingAndAnEmptyTableAsAnEmptyPage) {
    BancoDeTeste banco("insert into tblVELO (UF) values (null);");
    RelatorioVELO relatorio;
    relatorio.Construir(*banco);
    const Lista textos = Textos(relatorio.Documento(), 0);
    EXPECT_EQ(std::count(textos.begin(), textos.end(), ""), 2 * (19 + 1));
    banco.Executar("delete from tblVELO;");
    relatorio.Construir(*banco);
    EXPECT_EQ(relatorio.Documento().paginas, std::vector<Pagina>(1));
    banco.Executar("drop table tblVELO;");
    EXPECT_EQ(ErroDe([&] { relatorio.Construir(*banco); }).Numero(), NumeroErro::TabelaInexistente);
}

}  // namespace
}  // namespace tarvo::apoio
