// SPDX-License-Identifier: MIT
#include "host/Comandos.h"

#include <unistd.h>

#include <filesystem>
#include <ostream>

#include "databases/AbrirBanco.h"
#include "databases/CriarNoServidor.h"
#include "databases/postgresql/Endereco.h"
#include "databases/sqlite/BancoSQLite.h"
#include "host/batch/JuncaoDeResumos.h"
#include "host/batch/Lote.h"
#include "host/commands/Argumentos.h"
#include "host/commands/ComandosDoBanco.h"
#include "host/commands/Console.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "host/commands/PalavraParecida.h"
#include "host/example/Exemplo.h"
#include "reports/ReferenciaAtual.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

int RefAtual(const Argumentos& a, Console& console) {
    using namespace AjusteRefAtual;
    ConfiguracoesIni configuracoes;
    if (a.refAtual) {
        configuracoes.Gravar(Aplicacao, Secao, Chave, *a.refAtual);
    } else {
        const std::string atual = LerRefAtual(configuracoes);
        console.Dizer(atual.empty() ? "não definido" : atual);
    }
    return Feito;
}

int Criar(const Argumentos& a) {
    const std::string_view script = a.exemplo ? ScriptDeExemplo() : "";
    if (postgresql::EhEndereco(a.banco.string())) {
        CriarNoServidor(a.banco.string(), script);
    } else {
        const CapturaDeInterrupcao captura;  // it takes an instant, and leaves nothing half made
        CriarBanco(a.banco, script);
    }
    return Feito;
}

// A file that is missing is said before anything that windows lack. A server is asked by the
// windows, which show that they wait for it.
void ConferirBanco(const Argumentos& a) {
    std::error_code ignorado;
    if (std::filesystem::exists(a.banco, ignorado) || postgresql::EhEndereco(a.banco.string())) {
        return;
    }
    try {
        AbrirBanco(a.banco, {.modo = ModoAbertura::SomenteLeitura});
    } catch (const Erro& erro) {
        const auto parecido = ComandoParecido(a.banco.string());
        // A command's own name can only come after "--", as that of a file.
        if (erro.Numero() == NumeroErro::BancoNaoEncontrado && a.comando == Comando::Janela &&
            !parecido.empty() && parecido != a.banco.string()) {
            RecusarPalavra("o comando", a.banco.string(), parecido);
        }
        throw;
    }
}

// Replaces this process by the program with the windows, which stands beside this one or in its
// libexec folder, with the same arguments. It is a program of its own so that commands without a
// window load no GUI library. Returns only by error 445, when that program is not installed.
[[noreturn]] void ContinuarComJanelas(const std::vector<std::string>& argumentos) {
    constexpr const char* Nome = "relatorios-tarvo-janela";
    std::error_code ignorado;
    const auto pasta = std::filesystem::read_symlink("/proc/self/exe", ignorado).parent_path();
    std::vector<char*> lista{const_cast<char*>(Nome)};
    for (const auto& argumento : argumentos) {
        lista.push_back(const_cast<char*>(argumento.c_str()));
    }
    lista.push_back(nullptr);
    for (const auto& lugar :
         {pasta / Nome, pasta.parent_path() / TARVO_LIBEXECDIR / "relatoriostarvo" / Nome}) {
        execv(lugar.c_str(), lista.data());
    }
    throw Erro(NumeroErro::AcaoNaoSuportada,
               "As janelas não fazem parte desta instalação (pacote relatorios-tarvo-desktop); "
               "exportar e imprimir funcionam.");
}

int Despachar(const Argumentos& a, const std::vector<std::string>& argumentos, std::ostream& saida,
              std::ostream& erros) {
    Console console(saida, erros, {.silencioso = a.silencioso, .dados = a.json || a.naSaidaPadrao});
    switch (a.comando) {
        case Comando::Ajuda:
            saida << a.ajuda;
            return Feito;
        case Comando::Versao:
            saida << "relatorios-tarvo " TARVO_VERSAO_DO_PROGRAMA "\n";
            return Feito;
        case Comando::Criar:
            return Criar(a);
        case Comando::Copiar:
            return Copiar(a, console);
        case Comando::Listar:
            return ListarDeclaracoes(a, console);
        case Comando::Exportar:
            return ExportarRelatorios(a, console);
        case Comando::Lote:
            return ExecutarLote(a, console);
        case Comando::LoteResumo:
            return JuntarResumos(a, console);
        case Comando::RefAtual:
            return RefAtual(a, console);
        case Comando::Imprimir:
            return ImprimirRelatorios(a, console);
        case Comando::Verificar:
            return VerificarBanco(a, console);
        case Comando::Selecionar:
        case Comando::Velo:
        case Comando::Janela:
            ConferirBanco(a);
            ContinuarComJanelas(argumentos);
    }
    return Falhou;
}

}  // namespace

int Executar(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros) {
    return DizendoErros(erros, NomeDoComando(argumentos), [&] {
        const int situacao = Despachar(LerArgumentos(argumentos), argumentos, saida, erros);
        if (!saida.flush()) {
            throw Erro(NumeroErro::ErroDispositivo, "A saída padrão não pôde ser escrita.");
        }
        return situacao;
    });
}

}  // namespace tarvo::host
