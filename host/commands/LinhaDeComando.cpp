#include "host/commands/LinhaDeComando.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "output/FormatoDeSaida.h"

namespace tarvo::host {

namespace {

constexpr const char* Programa = "relatorios-tarvo";

struct Opcao {
    const char* nome;
    const char* valor;  // what stands for the value in the help
    std::string LinhaDeComando::*destino;
    std::string descricao;
    bool obrigatoria = false;
};

struct Chave {
    const char* nome;
    bool LinhaDeComando::*destino;
    const char* descricao;
};

struct Definicao {
    Comando comando;
    const char* nome;
    const char* descricao;
    std::vector<Opcao> opcoes;  // a name without "--" is a positional argument
    std::vector<Chave> chaves;
};

using L = LinhaDeComando;

const Opcao Banco{"BANCO", "", &L::banco, "arquivo do banco de declarações", true};
const Opcao IE{"--ie", "IE", &L::IE, "inscrição estadual (dispensada só por VELO)"};
const Opcao Drq{"--drq", "N", &L::drq, "número da declaração (dispensado por 01 e VELO)"};
constexpr const char* DescricaoLista =
    "todos, ou códigos separados por vírgulas: 01 a 17, 11A, VELO";
const Opcao Lista{"--relatorios", "LISTA", &L::relatorios, DescricaoLista, true};
const Opcao Saida{"--saida", "PASTA", &L::saida, "pasta dos arquivos; criada, se não existe", true};
const Opcao Dpi{"--dpi", "N", &L::dpi, "pontos por polegada das páginas em png (150)"};
const Opcao RefAtual{"--ref-atual", "MM/AAAA", &L::refAtual,
                     "mês de referência atual, só nesta chamada"};

std::vector<Definicao> Definicoes() {
    return {
        {Comando::Criar,
         "criar",
         "cria um banco de declarações vazio",
         {Banco},
         {{"--exemplo", &L::exemplo, "preenche o banco com um exemplo fictício"}}},
        {Comando::Listar, "listar", "mostra os contribuintes e as declarações", {Banco}, {}},
        {Comando::Exportar,
         "exportar",
         "grava relatórios de uma declaração em arquivos",
         {Banco, IE, Drq, Lista, Opcao{"--formato", "FMT", &L::formato, ListaDeFormatos(), true},
          Saida, Dpi, RefAtual},
         {}},
        {Comando::Lote,
         "lote",
         "grava os relatórios de muitas declarações, em paralelo",
         {Banco, Saida,
          Opcao{"--relatorios", "LISTA", &L::relatorios, "o mesmo que em exportar (todos)"},
          Opcao{"--formato", "FMT", &L::formato, "o mesmo que em exportar (pdf)"}, Dpi,
          Opcao{"--ie", "IE", &L::IE, "só as declarações deste contribuinte"},
          Opcao{"--de", "MM/AAAA", &L::de, "a partir deste mês de referência"},
          Opcao{"--ate", "MM/AAAA", &L::ate, "até este mês de referência"},
          Opcao{"--trabalhos", "N", &L::trabalhos, "quantos ao mesmo tempo (um por núcleo)"},
          RefAtual},
         {{"--unico", &L::unico, "um só PDF por declaração, com marcadores"},
          {"--retomar", &L::retomar,
           "continua um lote interrompido, sem refazer o que está pronto"}}},
        {Comando::Selecionar,
         "selecionar",
         "abre a seleção de relatórios de uma declaração",
         {Banco, IE, Drq,
          Opcao{"--opcoes", "BITS", &L::opcoes, "entradas já marcadas, bit a bit (0)"}, RefAtual},
         {}},
        {Comando::Imprimir,
         "imprimir",
         "imprime relatórios de uma declaração, sem perguntar",
         {Banco, IE, Drq, Lista,
          Opcao{"--impressora", "NOME", &L::impressora, "impressora (a padrão, se omitida)"},
          RefAtual},
         {}},
        {Comando::Velo, "velo", "mostra a guia de arrecadação VELO", {Banco}, {}},
        {Comando::RefAtual,
         "ref-atual",
         "mostra ou define o mês de referência atual do usuário",
         {Opcao{"MM/AAAA", "", &L::refAtual, "novo valor"}},
         {}},
    };
}

// The library's own words in our language.
void Traduzir(CLI::App& app) {
    app.option_defaults()->group("Opções");
    app.set_help_flag("-h,--ajuda,--help", "mostra esta ajuda");
    const auto formato = app.get_formatter();
    formato->label("Usage", "Uso");
    formato->label("OPTIONS", "opções");
    formato->label("SUBCOMMAND", "COMANDO");
    formato->label("Positionals", "Argumentos");
    formato->label("REQUIRED", "");
}

// The library tells the option first in what it refuses: "--ie: 1 required TEXT missing".
std::string PrimeiraPalavra(const std::string& texto) {
    return texto.substr(0, texto.find_first_of(": "));
}

class Leitor {
  public:
    explicit Leitor(LinhaDeComando& linha)
        : app_("Relatórios da declaração de ICMS (DRQ)", Programa) {
        Traduzir(app_);
        app_.require_subcommand(0, 1);
        app_.footer(
            "relatorios-tarvo BANCO, sem comando, abre a janela das declarações.\n"
            "relatorios-tarvo COMANDO --ajuda mostra as opções do comando.");
        for (const auto& definicao : definicoes_) {
            Declarar(definicao, linha);
        }
    }

    [[nodiscard]] bool EhComando(const std::string& nome) const {
        return std::any_of(definicoes_.begin(), definicoes_.end(),
                           [&](const Definicao& d) { return d.nome == nome; });
    }
    // The help of the command that was given, or of all.
    [[nodiscard]] std::string Ajuda() const {
        const auto dados = app_.get_subcommands();
        return dados.empty() ? app_.help() : dados.front()->help(Programa);
    }
    Comando Ler(std::vector<std::string> argumentos) {
        // The library takes them from the back of the list.
        std::reverse(argumentos.begin(), argumentos.end());
        try {
            app_.parse(argumentos);
        } catch (const CLI::ExtrasError&) {
            const auto sobras = app_.remaining(true);
            throw UsoErrado("não esperado: " + (sobras.empty() ? "" : sobras.front()));
        } catch (const CLI::RequiredError& erro) {
            throw UsoErrado("falta " + PrimeiraPalavra(erro.what()));
        } catch (const CLI::ArgumentMismatch& erro) {
            const std::string texto = erro.what();
            const std::string nome = PrimeiraPalavra(texto);
            if (texto.find("override") != std::string::npos) {
                throw UsoErrado("--" + nome + " não tem valor");
            }
            const bool falta = texto.find("missing") != std::string::npos;
            throw UsoErrado(nome + (falta ? " pede um valor" : " só pode ser dada uma vez"));
        }
        for (const auto& definicao : definicoes_) {
            if (app_.got_subcommand(definicao.nome)) {
                return definicao.comando;
            }
        }
        throw UsoErrado("falta o comando");
    }

  private:
    void Declarar(const Definicao& d, LinhaDeComando& linha) {
        CLI::App* comando = app_.add_subcommand(d.nome, d.descricao)->group("Comandos");
        comando->footer("");
        for (const auto& opcao : d.opcoes) {
            comando->add_option(opcao.nome, linha.*opcao.destino, opcao.descricao)
                ->type_name(opcao.valor)
                ->required(opcao.obrigatoria)
                ->group(opcao.obrigatoria ? "Opções obrigatórias" : "Opções");
        }
        for (const auto& chave : d.chaves) {
            comando->add_flag(chave.nome, linha.*chave.destino, chave.descricao)
                ->disable_flag_override();
        }
        Traduzir(*comando);
    }

    const std::vector<Definicao> definicoes_ = Definicoes();
    CLI::App app_;
};

}  // namespace

LinhaDeComando Separar(const std::vector<std::string>& argumentos) {
    LinhaDeComando linha;
    Leitor leitor(linha);
    if (argumentos.empty()) {
        linha.ajuda = leitor.Ajuda();
        return linha;
    }
    if (!argumentos[0].starts_with('-') && !leitor.EhComando(argumentos[0])) {
        if (argumentos.size() > 1) {
            throw UsoErrado("não há o comando \"" + argumentos[0] + "\"");
        }
        linha.comando = Comando::Janela;
        linha.banco = argumentos[0];
        return linha;
    }
    try {
        linha.comando = leitor.Ler(argumentos);
    } catch (const CLI::CallForHelp&) {
        linha.comando = Comando::Ajuda;
        linha.ajuda = leitor.Ajuda();
    }
    return linha;
}

}  // namespace tarvo::host
