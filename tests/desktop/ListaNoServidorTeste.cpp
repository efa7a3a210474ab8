// SPDX-License-Identifier: MIT
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "databases/CopiarBanco.h"
#include "databases/CriarNoServidor.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/JanelaPrincipal.h"
#include "tests/databases/postgresql/ServidorDeTeste.h"
#include "tests/desktop/Previas.h"

namespace tarvo::host {
namespace {

using apoio::BancoDeTeste;
using apoio::ServidorDeTeste;
using namespace Qt::StringLiterals;

constexpr const char* Script = R"sql(
with recursive n(i) as (select 1 union all select i + 1 from n where i < 300)
insert into tblContribuinte (IE, RazãoSocial, CNPJ) select 'a' || i,
    nullif(substr('ÉeEçÇcãAa zZ-9(', i % 15 + 1, 2) || ' João ' || (i % 7), 'Aa João 0'), i * 7919
    from n;
with recursive n(i) as (select 1 union all select i + 1 from n where i < 400)
insert into tblDRQ (NroDRQ, IE, Ref1, RegTrib, Tipo, Consistente) select 1000 - i,
    iif(i % 9 = 0, null, 'A' || (i % 350)), iif(i % 8 = 0, null, date('2001-01-01', (i % 30) || ' months')),
    substr('0102030409', i % 5 * 2 + 1, 2), i % 5, iif(i % 6 = 0, null, i % 2) from n;
)sql";

std::vector<std::string> Achadas(FonteDaLista& fonte, const BuscaNaLista& busca) {
    const auto achadas = fonte.Procurar(busca, nullptr);
    EXPECT_EQ(achadas.declaracoes, 400);
    std::vector<std::string> linhas;
    for (const auto& linha : fonte.Ler(achadas.chaves, nullptr)) {
        linhas.emplace_back();
        for (const auto& texto : linha.textos) {
            linhas.back() += texto.toStdString() + "|";
        }
    }
    return linhas;
}

class ListaNoServidor : public apoio::Previas {
  protected:
    ListaNoServidor() {
        setenv("XDG_CONFIG_HOME", pasta.Caminho().c_str(), 1);
        CriarNoServidor(endereco);
        CopiarBanco(OrigemBanco(banco.Arquivo().string()), endereco, {});
    }
    // Makes the server take that many seconds for the taxpayers from now on.
    void Demorar(int segundos) {
        static_cast<void>(ServidorDeTeste::Executar(
            endereco, R"(DO $$ BEGIN ALTER TABLE "tblContribuinte" RENAME TO c;
                         EXCEPTION WHEN duplicate_table THEN NULL; END $$;
                         CREATE OR REPLACE VIEW "tblContribuinte" AS SELECT c.* FROM c, pg_sleep()" +
                          std::to_string(segundos) + ")"));
    }

    BancoDeTeste banco{Script};
    std::string endereco = ServidorDeTeste::Unico().BancoNovo();
};

TEST_F(ListaNoServidor, IsSearchedAndSortedAsAFilesIs) {
    const auto doArquivo = ListarNaMemoria(*banco);
    const auto doServidor = ListarNoServidor(endereco);
    for (const QStringList& palavras : std::vector<QStringList>{
             {}, {u"joao"_s, u"e"_s}, {u"02/2003"_s}, {u"nao"_s, u"simples-st"_s}, {u"("_s}}) {
        for (int coluna = 0; coluna < LinhaDaLista::Colunas; ++coluna) {
            const BuscaNaLista busca{palavras, coluna, coluna % 2 == 1};
            const auto esperadas = Achadas(*doArquivo, busca);
            EXPECT_GT(esperadas.size(), 5U);
            EXPECT_EQ(Achadas(*doServidor, busca), esperadas)
                << coluna << palavras.join(u' ').toStdString();
        }
    }
}

TEST_F(ListaNoServidor, NeverKeepsItsWindowWaitingAndTheLastSearchWins) {
    AmbienteComJanelas pecas(std::nullopt);
    JanelaPrincipal janela(pecas);
    janela.show();
    janela.Abrir(endereco);
    auto& busca = *janela.findChild<QLineEdit*>(u"campoBusca"_s);
    auto& lista = *janela.findChild<QTableView*>(u"declaracoes"_s);
    const auto situacao = [&] {
        return janela.findChild<QLabel*>(u"situacao"_s)->text().toStdString();
    };
    const auto numero = [&](int linha) {
        return lista.model()->index(linha, LinhaDaLista::Numero).data().toString().toStdString();
    };
    EXPECT_TRUE(Esperar([&] { return situacao() == "400 declarações"; })) << situacao();
    lista.sortByColumn(LinhaDaLista::Numero, Qt::AscendingOrder);
    // Rows come when they are looked at.
    lista.scrollToBottom();
    EXPECT_TRUE(Esperar([&] { return numero(lista.model()->rowCount() - 1) == "999"; }));

    Demorar(1);
    for (const QString& texto : {u"a"_s, u"jo"_s, u"joao 999"_s}) {
        busca.setText(texto);
        QTest::qWait(100);
    }
    EXPECT_TRUE(Esperar([&] { return situacao() == "Procurando…"; }));
    EXPECT_TRUE(Esperar([&] { return situacao() == "1 de 400 declarações"; })) << situacao();
    EXPECT_TRUE(Esperar([&] { return numero(0) == "999"; }));
    // Who gives a search up has the rows of the one before.
    Demorar(60);
    busca.setText(u"nada"_s);
    auto& cancelar = *janela.findChild<QAbstractButton*>(u"botaoDoVazio"_s);
    EXPECT_TRUE(Esperar([&] { return cancelar.isVisible(); }));
    cancelar.click();
    EXPECT_EQ(busca.text(), u"joao 999"_s);
    EXPECT_EQ(situacao(), "1 de 400 declarações");
    EXPECT_TRUE(lista.isVisible());
}

TEST_F(ListaNoServidor, WhoeverWaitsForADumbServerCanGiveUp) {
    // Connections are accepted by the system and answered by nobody.
    const int soquete = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un onde{.sun_family = AF_UNIX, .sun_path = {}};
    const std::string caminho = (pasta / ".s.PGSQL.5432").string();
    caminho.copy(onde.sun_path, sizeof onde.sun_path - 1);
    ASSERT_EQ(::bind(soquete, reinterpret_cast<sockaddr*>(&onde), sizeof onde), 0);
    ASSERT_EQ(::listen(soquete, 1), 0);
    AmbienteComJanelas pecas(std::nullopt);
    JanelaPrincipal janela(pecas);
    janela.show();
    QTimer usuario;
    QObject::connect(&usuario, &QTimer::timeout, [&] {
        for (auto* aviso : apoio::Abertas<QProgressDialog>("andamento")) {
            EXPECT_TRUE(aviso->labelText().contains(u"servidor"_s));
            QTest::mouseClick(aviso->findChild<QPushButton*>(), Qt::LeftButton);
        }
    });
    usuario.start(10);
    QElapsedTimer tempo;
    tempo.start();
    janela.Abrir("postgresql://x@/x?host=" + pasta.Caminho().string());
    EXPECT_LT(tempo.elapsed(), 5000);
    ::close(soquete);
}

}  // namespace
}  // namespace tarvo::host
