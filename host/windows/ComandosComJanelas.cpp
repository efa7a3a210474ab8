// SPDX-License-Identifier: MIT
#include "host/windows/ComandosComJanelas.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <cstdlib>
#include <ostream>

#include "data/CodigosDeErros.h"
#include "desktop/ApoioQt.h"
#include "desktop/EstiloVisivel.h"
#include "desktop/dialog/JanelaSelecaoQt.h"
#include "dispatch/Relatorios.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Mensagens.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/JanelaPrincipal.h"
#include "slip/RelatorioVELO.h"

namespace tarvo::host {

namespace {

bool Definida(const char* variavel) {
    const char* valor = std::getenv(variavel);
    return valor != nullptr && *valor != '\0';
}

// A display that is named but does not answer makes the library abort: let a child process try.
bool TelaResponde() {
    const pid_t filho = fork();
    if (filho == 0) {
        const int nada = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nada, STDERR_FILENO);
        int argc = 1;
        char nome[] = "tela";
        char* argv[] = {nome, nullptr};
        const QGuiApplication tentativa(argc, argv);
        _exit(0);
    }
    int situacao = 0;
    return filho > 0 && waitpid(filho, &situacao, 0) == filho && WIFEXITED(situacao) &&
           WEXITSTATUS(situacao) == 0;
}

// Error 445 when this session has no display that windows could be opened on, for which the GUI
// library would abort the program.
void ExigirTela() {
    const bool nomeada =
        Definida("QT_QPA_PLATFORM") || Definida("DISPLAY") || Definida("WAYLAND_DISPLAY");
    if (!nomeada || !TelaResponde()) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   "Não há tela nesta sessão para abrir janelas. Os comandos exportar e imprimir "
                   "funcionam sem tela.");
    }
}

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
