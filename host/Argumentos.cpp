#include "host/Argumentos.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <thread>

namespace tarvo::host {

namespace {

// The options as CLI11 fills them in: texts, checked afterwards in our own words.
struct Textos {
    std::string banco;
    std::string IE;
    std::string drq;
    std::string relatorios;
    std::string formato;
    std::string saida;
    std::string dpi = "150";
    std::string opcoes = "0";
    std::string impressora;
    std::string refAtual;
    std::string de;
    std::string ate;
    std::string trabalhos;
    bool exemplo = false;
    bool unico = false;
    bool retomar = false;
};

struct Subcomando {
    Comando comando;
    CLI::App* app;
};

std::vector<Subcomando> DeclararSubcomandos(CLI::App& app, Textos& t) {
    std::vector<Subcomando> lista;
    const auto novo = [&](Comando comando, const char* nome, const char* descricao) {
        lista.push_back({comando, app.add_subcommand(nome, descricao)->group("Comandos")});
        return lista.back().app;
    };
    const auto comBanco = [&](CLI::App* sub) {
        sub->add_option("BANCO", t.banco, "arquivo do banco de declarações");
        return sub;
    };
    const auto comDeclaracao = [&](CLI::App* sub) {
        sub->add_option("--ie", t.IE, "inscrição estadual do contribuinte");
        sub->add_option("--drq", t.drq, "número da declaração");
        sub->add_option("--ref-atual", t.refAtual,
                        "mês de referência atual (MM/AAAA), só nesta chamada");
        return sub;
    };
    const char* const descricaoLista =
        "todos, ou códigos separados por vírgulas: 01 a 17, 11A, VELO";

    auto* criar = comBanco(novo(Comando::Criar, "criar", "cria um banco de declarações vazio"));
    criar->add_flag("--exemplo", t.exemplo, "preenche o banco com um exemplo fictício");
    comBanco(novo(Comando::Listar, "listar", "mostra os contribuintes e as declarações"));
    auto* exportar = comDeclaracao(
        comBanco(novo(Comando::Exportar, "exportar", "grava relatórios em arquivos")));
    exportar->add_option("--relatorios", t.relatorios, descricaoLista);
    exportar->add_option("--formato", t.formato, "pdf, png ou json");
    exportar->add_option("--saida", t.saida, "pasta dos arquivos");
    exportar->add_option("--dpi", t.dpi, "resolução das páginas em png (150)");
    auto* lote = comBanco(
        novo(Comando::Lote, "lote", "grava os relatórios de muitas declarações, em paralelo"));
    lote->add_option("--saida", t.saida, "pasta do lote");
    lote->add_option("--relatorios", t.relatorios, descricaoLista);
    lote->add_option("--formato", t.formato, "pdf (se omitido), png ou json");
    lote->add_option("--dpi", t.dpi, "resolução das páginas em png (150)");
    lote->add_option("--trabalhos", t.trabalhos, "quantos ao mesmo tempo (os núcleos, se omitido)");
    lote->add_option("--ie", t.IE, "só as declarações deste contribuinte");
    lote->add_option("--de", t.de, "a partir deste mês de referência (MM/AAAA)");
    lote->add_option("--ate", t.ate, "até este mês de referência (MM/AAAA)");
    lote->add_option("--ref-atual", t.refAtual,
                     "mês de referência atual (MM/AAAA), só nesta chamada");
    lote->add_flag("--unico", t.unico, "um só PDF por declaração, com marcadores");
    lote->add_flag("--retomar", t.retomar, "continua um lote interrompido");
    auto* selecionar = comDeclaracao(
        comBanco(novo(Comando::Selecionar, "selecionar", "abre a seleção de relatórios")));
    selecionar->add_option("--opcoes", t.opcoes, "entradas já marcadas, bit a bit");
    auto* imprimir =
        comDeclaracao(comBanco(novo(Comando::Imprimir, "imprimir", "imprime sem perguntar")));
    imprimir->add_option("--relatorios", t.relatorios, descricaoLista);
    imprimir->add_option("--impressora", t.impressora, "impressora (a padrão, se omitida)");
    comBanco(novo(Comando::Velo, "velo", "mostra a guia de arrecadação VELO"));
    novo(Comando::RefAtual, "ref-atual", "mostra ou define o mês de referência atual")
        ->add_option("MM/AAAA", t.refAtual, "novo valor");
    for (auto& sub : lista) {
        sub.app->set_help_flag("-h,--ajuda,--help", "mostra esta ajuda");
        sub.app->get_formatter()->label("OPTIONS", "opções");
    }
    return lista;
}

void Traduzir(CLI::App& app) {
    app.option_defaults()->group("Opções");
    app.set_help_flag("-h,--ajuda,--help", "mostra esta ajuda");
    const auto formato = app.get_formatter();
    formato->label("Usage", "Uso");
    formato->label("Options", "Opções");
    formato->label("OPTIONS", "[opções]");
    formato->label("SUBCOMMAND", "COMANDO");
    formato->label("SUBCOMMANDS", "COMANDO");
    formato->label("Subcommands", "Comandos");
    formato->label("Positionals", "Argumentos");
    formato->label("TEXT", "TEXTO");
}

[[noreturn]] void Recusar(const std::string& motivo) {
    throw UsoErrado(motivo);
}

std::int32_t LerInteiro(const std::string& texto, const char* opcao, std::int32_t minimo,
                        std::int32_t maximo) {
    std::int32_t valor = 0;
    const auto [fim, erro] = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
    if (erro != std::errc() || fim != texto.data() + texto.size() || valor < minimo ||
        valor > maximo) {
        Recusar(std::string(opcao) + " pede um número inteiro de " + std::to_string(minimo) +
                " a " + std::to_string(maximo) + ", não \"" + texto + "\"");
    }
    return valor;
}

// "MM/AAAA" with a month of the calendar.
std::string LerMesAno(const std::string& texto) {
    const bool forma =
        texto.size() == 7 && texto[2] == '/' &&
        std::count_if(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; }) == 6;
    const int mes = forma ? (texto[0] - '0') * 10 + (texto[1] - '0') : 0;
    if (mes < 1 || mes > 12) {
        Recusar("\"" + texto + "\" não é um mês e ano (MM/AAAA)");
    }
    return texto;
}

void Exigir(const std::string& valor, const char* nome) {
    if (valor.empty()) {
        Recusar(std::string("falta ") + nome);
    }
}

void LerRelatorios(const std::string& relatorios, Argumentos& a) {
    Exigir(relatorios, "--relatorios");
    a.todos = relatorios == "todos";
    if (!a.todos) {
        a.codigos = LerListaDeCodigos(relatorios);
        if (a.codigos.empty()) {
            Recusar("--relatorios não conhece \"" + relatorios +
                    "\"; use todos, ou códigos separados por vírgulas: 01 a 17, 11A, VELO");
        }
    }
}

void ExigirDeclaracao(const Textos& t, const Argumentos& a) {
    const auto precisa = [&](bool (*de)(std::string_view)) {
        return a.todos || std::any_of(a.codigos.begin(), a.codigos.end(), de);
    };
    if (precisa(PrecisaDeContribuinte)) {
        Exigir(t.IE, "--ie");
    }
    if (precisa(PrecisaDeDeclaracao)) {
        Exigir(t.drq, "--drq");
    }
}

void LerDestino(const Textos& t, Argumentos& a) {
    Exigir(t.formato, "--formato");
    Exigir(t.saida, "--saida");
    const auto formato = LerFormato(t.formato);
    if (!formato) {
        Recusar("--formato é pdf, png ou json, não \"" + t.formato + "\"");
    }
    a.destino = {
        .pasta = t.saida, .formato = *formato, .dpi = LerInteiro(t.dpi, "--dpi", 20, 1200)};
}

std::optional<std::string> LerMesAnoOpcional(const std::string& texto) {
    return texto.empty() ? std::nullopt : std::optional(LerMesAno(texto));
}

void LerLote(Textos t, Argumentos& a) {
    LerRelatorios(t.relatorios.empty() ? "todos" : t.relatorios, a);
    t.formato = t.formato.empty() ? "pdf" : t.formato;
    LerDestino(t, a);
    a.de = LerMesAnoOpcional(t.de);
    a.ate = LerMesAnoOpcional(t.ate);
    a.unico = t.unico;
    a.retomar = t.retomar;
    if (a.unico && a.destino.formato != Formato::PDF) {
        Recusar("--unico é só para pdf");
    }
    const int nucleos = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    a.trabalhos = t.trabalhos.empty() ? nucleos : LerInteiro(t.trabalhos, "--trabalhos", 1, 256);
}

Argumentos Conferir(Comando comando, const Textos& t) {
    Argumentos a;
    a.comando = comando;
    if (comando != Comando::RefAtual) {
        Exigir(t.banco, "o arquivo do banco");
        a.banco = t.banco;
    }
    a.exemplo = t.exemplo;
    if (!t.IE.empty()) {
        a.IE = t.IE;
    }
    if (!t.drq.empty()) {
        a.NumeroDRQ = LerInteiro(t.drq, "--drq", 0, INT32_MAX);
    }
    a.refAtual = LerMesAnoOpcional(t.refAtual);
    a.impressora = t.impressora;
    if (comando == Comando::Exportar || comando == Comando::Imprimir) {
        LerRelatorios(t.relatorios, a);
        ExigirDeclaracao(t, a);
    }
    if (comando == Comando::Exportar) {
        LerDestino(t, a);
    }
    if (comando == Comando::Lote) {
        LerLote(t, a);
    }
    if (comando == Comando::Selecionar) {
        Exigir(t.IE, "--ie");
        Exigir(t.drq, "--drq");
        a.opcoes = LerInteiro(t.opcoes, "--opcoes", INT32_MIN, INT32_MAX);
    }
    return a;
}

// CLI11's own refusals in our language.
[[noreturn]] void RecusarComo(const CLI::ParseError& erro) {
    const std::string texto = erro.what();
    if (erro.get_name() == "ExtrasError") {
        Recusar("não esperado: " + texto.substr(texto.find(':') + 1));
    }
    if (erro.get_name() == "ArgumentMismatch") {
        Recusar("a opção " + texto.substr(0, texto.find(':')) + " pede um valor");
    }
    Recusar(texto);
}

}  // namespace

Argumentos LerArgumentos(const std::vector<std::string>& argumentos) {
    CLI::App app("Relatórios da declaração de ICMS (DRQ)", "relatorios-tarvo");
    Traduzir(app);
    app.footer("relatorios-tarvo BANCO, sem comando, abre a janela das declarações.");
    Textos textos;
    const auto subcomandos = DeclararSubcomandos(app, textos);

    Argumentos lidos;
    const auto ehComando = [&](const std::string& texto) {
        return std::any_of(subcomandos.begin(), subcomandos.end(),
                           [&](const Subcomando& s) { return s.app->get_name() == texto; });
    };
    if (argumentos.empty()) {
        lidos.ajuda = app.help();
        return lidos;
    }
    if (argumentos.size() == 1 && argumentos[0][0] != '-' && !ehComando(argumentos[0])) {
        lidos.comando = Comando::Janela;
        lidos.banco = argumentos[0];
        return lidos;
    }
    // CLI11 takes the arguments from the back of the list.
    std::vector<std::string> invertidos(argumentos.rbegin(), argumentos.rend());
    try {
        app.parse(invertidos);
    } catch (const CLI::CallForHelp&) {
        for (const auto& sub : subcomandos) {
            if (sub.app->parsed()) {
                lidos.ajuda = sub.app->help();
                return lidos;
            }
        }
        lidos.ajuda = app.help();
        return lidos;
    } catch (const CLI::ParseError& erro) {
        RecusarComo(erro);
    }
    for (const auto& sub : subcomandos) {
        if (sub.app->parsed()) {
            return Conferir(sub.comando, textos);
        }
    }
    Recusar("falta o comando");
}

}  // namespace tarvo::host
