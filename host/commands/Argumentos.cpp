#include "host/commands/Argumentos.h"

#include <algorithm>
#include <charconv>
#include <thread>

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

std::int32_t LerInteiro(const std::string& texto, const char* opcao,
                        std::int32_t minimo = INT32_MIN, std::int32_t maximo = INT32_MAX) {
    std::int32_t valor = 0;
    const auto [fim, erro] = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
    if (erro != std::errc() || fim != texto.data() + texto.size() || valor < minimo ||
        valor > maximo) {
        Recusar(std::string(opcao) + " pede um número inteiro de " + std::to_string(minimo) +
                " a " + std::to_string(maximo) + ", não \"" + texto + "\"");
    }
    return valor;
}

MesAno LerMesAno(const std::string& texto) {
    const bool forma =
        texto.size() == 7 && texto[2] == '/' &&
        std::count_if(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; }) == 6;
    const MesAno lido =
        forma ? MesAno{std::stoi(texto.substr(0, 2)), std::stoi(texto.substr(3))} : MesAno{0, 0};
    constexpr int PrimeiroAno = 100;  // of the calendar of the date type
    if (lido.mes < 1 || lido.mes > 12 || lido.ano < PrimeiroAno) {
        Recusar("\"" + texto + "\" não é um mês e ano (MM/AAAA)");
    }
    return lido;
}

std::optional<MesAno> LerMesAnoOpcional(const std::string& texto) {
    return texto.empty() ? std::nullopt : std::optional(LerMesAno(texto));
}

void LerRelatorios(const std::string& relatorios, Argumentos& a) {
    a.todos = EmMaiusculas(relatorios) == "TODOS";
    if (a.todos) {
        return;
    }
    a.codigos = SepararCodigos(relatorios);
    for (const auto& codigo : a.codigos) {
        if (!ExisteCodigo(codigo)) {
            Recusar("--relatorios não conhece \"" + codigo +
                    "\"; use todos, ou códigos separados por vírgulas: 01 a 17, 11A, VELO");
        }
    }
}

void ExigirDeclaracao(const LinhaDeComando& l, const Argumentos& a) {
    const auto precisa = [&](bool (*de)(std::string_view)) {
        return a.todos || std::any_of(a.codigos.begin(), a.codigos.end(), de);
    };
    if (precisa(PrecisaDeContribuinte)) {
        Exigir(l.IE, "--ie");
    }
    if (precisa(PrecisaDeDeclaracao)) {
        Exigir(l.drq, "--drq");
    }
}

void LerSaida(const LinhaDeComando& l, const std::string& formato, Argumentos& a) {
    Exigir(l.saida, "--saida");
    a.saida.pasta = l.saida;
    a.saida.formato = ProcurarFormato(formato);
    if (a.saida.formato == nullptr) {
        Recusar("--formato é " + ListaDeFormatos() + ", não \"" + formato + "\"");
    }
    if (!l.dpi.empty()) {
        a.saida.opcoes.dpi = LerInteiro(l.dpi, "--dpi", 20, 1200);
    }
}

void LerLote(const LinhaDeComando& l, Argumentos& a) {
    LerRelatorios(l.relatorios.empty() ? "todos" : l.relatorios, a);
    LerSaida(l, l.formato.empty() ? "pdf" : l.formato, a);
    a.de = LerMesAnoOpcional(l.de);
    a.ate = LerMesAnoOpcional(l.ate);
    if (a.de && a.ate && a.de->Ordem() > a.ate->Ordem()) {
        Recusar("--de " + l.de + " vem depois de --ate " + l.ate);
    }
    a.unico = l.unico;
    a.retomar = l.retomar;
    if (a.unico && !a.saida.formato->reune) {
        Recusar("--unico não se faz em " + std::string(a.saida.formato->nome));
    }
    const int nucleos = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    a.trabalhos = l.trabalhos.empty() ? nucleos : LerInteiro(l.trabalhos, "--trabalhos", 1, 256);
}

}  // namespace

Argumentos LerArgumentos(const std::vector<std::string>& argumentos) {
    const LinhaDeComando l = Separar(argumentos);
    Argumentos a;
    a.comando = l.comando;
    if (l.comando == Comando::Ajuda) {
        a.ajuda = l.ajuda;
        return a;
    }
    if (l.comando != Comando::RefAtual) {
        Exigir(l.banco, "BANCO");
        a.banco = l.banco;
    }
    a.exemplo = l.exemplo;
    if (!l.IE.empty()) {
        a.IE = l.IE;
    }
    if (!l.drq.empty()) {
        a.NumeroDRQ = LerInteiro(l.drq, "--drq");
    }
    if (LerMesAnoOpcional(l.refAtual)) {
        a.refAtual = l.refAtual;
    }
    a.impressora = l.impressora;
    switch (l.comando) {
        case Comando::Exportar:
            LerSaida(l, l.formato, a);
            [[fallthrough]];
        case Comando::Imprimir:
            LerRelatorios(l.relatorios, a);
            ExigirDeclaracao(l, a);
            break;
        case Comando::Lote:
            LerLote(l, a);
            break;
        case Comando::Selecionar:
            Exigir(l.IE, "--ie");
            Exigir(l.drq, "--drq");
            a.opcoes = l.opcoes.empty() ? 0 : LerInteiro(l.opcoes, "--opcoes");
            break;
        default:
            break;
    }
    return a;
}

}  // namespace tarvo::host
