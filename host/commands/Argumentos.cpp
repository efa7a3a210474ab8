// SPDX-License-Identifier: MIT
#include "host/commands/Argumentos.h"

#include <algorithm>
#include <thread>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"
#include "data/Procura.h"
#include "data/Textos.h"
#include "databases/postgresql/Endereco.h"
#include "host/commands/RelatoriosPorCodigo.h"
#include "reports/ReferenciaAtual.h"

namespace tarvo::host {

namespace {

[[noreturn]] void Recusar(const std::string& motivo) {
    throw UsoErrado(motivo);
}

void Exigir(const std::string& valor, const char* nome) {
    if (valor.empty()) {
        Recusar(std::string("falta ") + nome);
    }
}

std::int32_t LerInteiro(const std::string& texto, const char* opcao, std::int32_t minimo,
                        std::int32_t maximo = INT32_MAX) {
    const auto valor = tarvo::LerInteiro<std::int32_t>(texto);
    if (!valor || *valor < minimo || *valor > maximo) {
        Recusar(std::string(opcao) + " pede um número inteiro de " + std::to_string(minimo) +
                " a " + std::to_string(maximo) + ", não \"" + texto + "\"");
    }
    return *valor;
}

// ou: what else it could have been.
std::optional<Data> LerMes(const std::string& texto, const char* ou = "") {
    if (texto.empty()) {
        return std::nullopt;
    }
    try {
        return DataDeReferencia(texto);
    } catch (const Erro&) {
        Recusar("\"" + texto + "\" não é um mês e ano (MM/AAAA)" + ou);
    }
}

// Everybody on the machine can read a command line. What was meant as an address would be repeated
// by the error of a file that does not exist.
void RecusarSenha(const std::string& banco) {
    const bool parece = postgresql::EhEndereco(banco) ||
                        banco.find("password=") != std::string::npos ||
                        banco.starts_with("POSTGRES");
    if (parece && postgresql::TemSenha(banco)) {
        Recusar(
            "o endereço do servidor traz a senha, que na linha de comando todos podem ler; tire-a "
            "dele e use o arquivo ~/.pgpass, a variável PGPASSWORD ou um arquivo de serviço (e "
            "troque a senha, que já foi lida)");
    }
}

void LerRelatorios(const std::string& relatorios, Argumentos& a) {
    a.codigos = LerCodigos(relatorios);
    a.todos = Contem(a.codigos, "TODOS");
    if (a.todos) {
        if (a.codigos.size() > 1) {
            Recusar("todos não se junta a códigos, em --relatorios");
        }
        a.codigos.clear();
    }
    for (const auto& codigo : a.codigos) {
        if (!ExisteCodigo(codigo)) {
            Recusar("--relatorios não conhece \"" + codigo +
                    "\"; use todos, ou códigos separados por vírgulas: 01 a 17, 11A, VELO");
        }
    }
}

void ExigirDeclaracao(const Argumentos& a) {
    if (!a.IE && PedeContribuinte(a)) {
        Recusar("falta --ie");
    }
    if (!a.NumeroDRQ && PedeDeclaracao(a)) {
        Recusar("falta --drq");
    }
}

void LerSaida(const LinhaDeComando& l, const std::string& formato, Argumentos& a) {
    a.saida.pasta = l.saida;
    a.saida.formato = ProcurarFormato(formato);
    if (a.saida.formato == nullptr) {
        Recusar("--formato é " + ListaDeFormatos() + ", não \"" + formato + "\"");
    }
    a.saida.opcoes.pdf.semEstrutura = l.semEstrutura;
    if (!l.dpi.empty()) {
        a.saida.opcoes.dpi = LerInteiro(l.dpi, "--dpi", 20, 1200);
    }
}

void LerSaidaPadrao(const LinhaDeComando& l, Argumentos& a) {
    a.naSaidaPadrao = l.saida == "-";
    if (!a.naSaidaPadrao) {
        return;
    }
    if (a.todos || a.codigos.size() != 1) {
        Recusar("--saida - é para um só relatório");
    }
    if (a.saida.formato->escrever == nullptr) {
        Recusar("--saida - não se faz em " + std::string(a.saida.formato->nome));
    }
    if (a.json) {
        Recusar("--json e --saida - pedem ambos a saída padrão");
    }
}

Parte LerParte(const std::string& texto) {
    if (texto.empty()) {
        return {};
    }
    const std::size_t barra = texto.find('/');
    if (barra == std::string::npos) {
        Recusar("--parte pede I/N, como 2/8, não \"" + texto + "\"");
    }
    const auto partes = LerInteiro(texto.substr(barra + 1), "--parte I/N, em N,", 1, MaisPartes);
    return Parte{LerInteiro(texto.substr(0, barra), "--parte I/N, em I,", 1, partes), partes};
}

void LerLote(const LinhaDeComando& l, Argumentos& a) {
    LerRelatorios(l.relatorios.empty() ? "todos" : l.relatorios, a);
    LerSaida(l, l.formato.empty() ? "pdf" : l.formato, a);
    if (l.saida == "-") {
        Recusar("o lote grava numa pasta; --saida - é para exportar");
    }
    a.de = LerMes(l.de);
    a.ate = LerMes(l.ate);
    if (a.de && a.ate && OrdemDoMes(*a.de) > OrdemDoMes(*a.ate)) {
        Recusar("--de " + l.de + " vem depois de --ate " + l.ate);
    }
    a.parte = LerParte(l.parte);
    a.unico = l.unico;
    a.retomar = l.retomar;
    if (a.unico && !a.saida.formato->reune) {
        Recusar("--unico não se faz em " + std::string(a.saida.formato->nome));
    }
    const int nucleos = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    a.trabalhos = l.trabalhos.empty() ? nucleos : LerInteiro(l.trabalhos, "--trabalhos", 1, 256);
}

// What the options of one command mean beyond those that are read alike in all.
void LerDoComando(const LinhaDeComando& l, Argumentos& a) {
    switch (l.comando) {
        case Comando::Exportar:
            LerRelatorios(l.relatorios, a);
            ExigirDeclaracao(a);
            LerSaida(l, l.formato, a);
            LerSaidaPadrao(l, a);
            break;
        case Comando::Imprimir:
            LerRelatorios(l.relatorios, a);
            ExigirDeclaracao(a);
            break;
        case Comando::Lote:
            LerLote(l, a);
            break;
        case Comando::LoteResumo:
            a.pastas.assign(l.pastas.begin(), l.pastas.end());
            break;
        case Comando::Copiar:
            a.destino = l.saida;
            break;
        case Comando::Selecionar:
            Exigir(l.IE, "--ie");
            Exigir(l.drq, "--drq");
            a.opcoes = l.opcoes.empty() ? 0 : LerInteiro(l.opcoes, "--opcoes", INT32_MIN);
            break;
        default:
            break;
    }
}

}  // namespace

bool PedeContribuinte(const Argumentos& a) {
    return a.todos || std::ranges::any_of(a.codigos, PrecisaDeContribuinte);
}

bool PedeDeclaracao(const Argumentos& a) {
    return a.todos || std::ranges::any_of(a.codigos, PrecisaDeDeclaracao);
}

std::optional<std::string> MesDaChamada(const Argumentos& a, Data ref1) {
    return a.refDaDeclaracao ? FormatarMesAno(ref1) : a.refAtual;
}

int OrdemDoMes(const Data& data) {
    const DataCivil civil = data.Civil();
    return civil.ano * 12 + civil.mes;
}

Argumentos LerArgumentos(const std::vector<std::string>& argumentos) {
    const LinhaDeComando l = AnalisarLinhaDeComando(argumentos);
    Argumentos a;
    a.comando = l.comando;
    a.ajuda = l.ajuda;
    a.banco = l.banco;
    RecusarSenha(l.banco);
    RecusarSenha(l.saida);
    if (!l.codificacao.empty()) {
        a.codificacao = l.codificacao;
    }
    a.exemplo = l.exemplo;
    a.json = l.json;
    a.silencioso = l.silencioso;
    a.impressora = l.impressora;
    if (!l.IE.empty()) {
        a.IE = l.IE;
    }
    if (!l.drq.empty()) {
        a.NumeroDRQ = LerInteiro(l.drq, "--drq", 1);
    }
    const bool guardada = l.comando == Comando::RefAtual;
    a.refDaDeclaracao = !guardada && (l.refAtual == "declaração" || l.refAtual == "declaracao");
    if (const auto mes = a.refDaDeclaracao
                             ? std::nullopt
                             : LerMes(l.refAtual, guardada ? "" : ", nem a palavra declaração")) {
        a.refAtual = FormatarMesAno(*mes);
    }
    LerDoComando(l, a);
    return a;
}

}  // namespace tarvo::host
