// SPDX-License-Identifier: MIT
#include "host/windows/ComandosComJanelas.h"

#include <QApplication>
#include <algorithm>
#include <ostream>

#include "desktop/ApoioQt.h"
#include "desktop/EstiloVisivel.h"
#include "desktop/dialog/JanelaSelecaoQt.h"
#include "dispatch/Relatorios.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Mensagens.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/JanelaPrincipal.h"
#include "host/windows/Tela.h"
#include "slip/RelatorioVELO.h"

namespace tarvo::host {

namespace {

// Until the last window is closed; at once when none is open.
void EsperarPelasJanelas() {
    const auto janelas = QApplication::topLevelWidgets();
    if (std::any_of(janelas.begin(), janelas.end(),
                    [](const QWidget* janela) { return janela->isVisible(); })) {
        QApplication::setQuitOnLastWindowClosed(true);
        QApplication::exec();
    }
}

// Windows that were opened before an error stay until the user closes them.
template <class Acao>
int ComAsJanelas(std::ostream& erros, Acao&& acao) {
    int situacao = Feito;
    try {
        acao();
    } catch (const Erro& erro) {
        DizerErro(erros, erro);
        situacao = Falhou;
    }
    EsperarPelasJanelas();
    return situacao;
}

Console ConsoleDe(const Argumentos& a, std::ostream& erros) {
    return {erros, erros, {.silencioso = a.silencioso}};
}

std::unique_ptr<BancoDados> Abrir(const Argumentos& a, AmbienteComJanelas& ambiente,
                                  std::ostream& erros) {
    const auto fim = ambiente.ConcluirAndamentoNoFim();
    Andamento* const andamento = ambiente.DosRelatorios().andamento;
    Console console = ConsoleDe(a, erros);
    auto banco = LocalizarBanco(a, console, {.acompanhante = andamento}).Abrir();
    banco->Acompanhar(andamento);
    return banco;
}

void Avisar(const std::vector<std::string>& avisos, const Argumentos& a, std::ostream& erros) {
    Console console = ConsoleDe(a, erros);
    for (const std::string& aviso : avisos) {
        console.Avisar(aviso);
    }
}

int Selecionar(const Argumentos& a, std::ostream& erros) {
    AmbienteComJanelas ambiente(a.refAtual);
    const auto banco = Abrir(a, ambiente, erros);
    const auto numero = a.NumeroDRQ.value_or(0);
    const std::string mes = MesDaDeclaracao(*banco, numero);
    if (a.refDaDeclaracao) {
        ambiente.DefinirReferencia(mes);
    }
    JanelaSelecaoQt janela;
    Relatorios relatorios(ambiente.DosRelatorios(), janela);
    return ComAsJanelas(erros, [&] {
        const AmbienteComJanelas::Rodada rodada(ambiente, nullptr, mes);
        relatorios.Executar(*banco, a.IE.value_or(""), numero, a.opcoes);
        Avisar(relatorios.Avisos(), a, erros);
    });
}

int MostrarVelo(const Argumentos& a, std::ostream& erros) {
    AmbienteComJanelas ambiente(a.refAtual);
    const auto banco = Abrir(a, ambiente, erros);
    RelatorioVELO velo(ambiente.DosRelatorios());
    return ComAsJanelas(erros, [&] {
        const auto fim = ambiente.ConcluirAndamentoNoFim();
        velo.Construir(*banco);
        velo.Exibir();
        Avisar(velo.Documento().avisos, a, erros);
    });
}

int AbrirJanela(const Argumentos& a) {
    AmbienteComJanelas ambiente(a.refAtual);
    JanelaPrincipal janela(ambiente);
    janela.show();
    if (a.banco.empty()) {
        janela.Reabrir();
    } else {
        janela.Abrir(a.banco);
    }
    EsperarPelasJanelas();
    return Feito;
}

}  // namespace

int ExecutarComJanelas(int argc, char** argv, std::ostream& erros) {
    const std::vector<std::string> argumentos(argv + 1, argv + argc);
    return DizendoErros(erros, NomeDoComando(argumentos), [&] {
        const Argumentos a = LerArgumentos(argumentos);
        ExigirTela();
        const QApplication aplicacao(argc, argv);
        QApplication::setApplicationName(QStringLiteral("relatorios-tarvo"));
        QApplication::setQuitOnLastWindowClosed(false);
        InstalarTraducao();
        InstalarEstiloVisivel();
        switch (a.comando) {
            case Comando::Selecionar:
                return Selecionar(a, erros);
            case Comando::Velo:
                return MostrarVelo(a, erros);
            default:
                return AbrirJanela(a);
        }
    });
}

}  // namespace tarvo::host
