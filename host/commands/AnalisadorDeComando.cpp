// SPDX-License-Identifier: MIT
#include "host/commands/AnalisadorDeComando.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "data/Procura.h"
#include "host/commands/PalavraParecida.h"

namespace tarvo::host {

namespace {

constexpr const char* Programa = "relatorios-tarvo";
constexpr const char* Grupo = "Opções";
constexpr Chave Silencioso{"--silencioso", &LinhaDeComando::silencioso, "só diz os erros"};

// The library's own words in our language.
void Traduzir(CLI::App& app) {
    app.option_defaults()->group(Grupo);
    const auto formato = app.get_formatter();
    formato->label("Usage", "Uso");
    formato->label("OPTIONS", "opções");
    formato->label("SUBCOMMAND", "COMANDO");
    formato->label("Positionals", "Argumentos");
    formato->label("REQUIRED", "");
}

void AcrescentarAjuda(CLI::App& app) {
    app.set_help_flag("-h,--ajuda,--help", "mostra esta ajuda");
}

// Without the empty lines of groups whose options the help shows elsewhere.
std::string Ajuda(const CLI::App& app) {
    std::string texto = app.help();
    for (std::size_t vazia = 0; (vazia = texto.find("\n\n\n", vazia)) != std::string::npos;) {
        texto.erase(vazia, 1);
    }
    return texto;
}

// The library splits the words and writes the help; what is wrong with them is told here, since its
// exceptions say it in English only.
class Analisador {
  public:
    explicit Analisador(const DefinicaoDeComando& d)
        : definicao_(d), app_(d.descricao, std::string(Programa) + " " + std::string(d.nome)) {
        Traduzir(app_);
        app_.allow_extras();
        for (const auto& opcao : d.opcoes) {
            opcoes_.push_back(app_.add_option(opcao.nome, CLI::callback_t(), opcao.descricao));
            opcoes_.back()
                ->type_name(opcao.valor)
                ->required(opcao.obrigatoria)
                ->take_all()
                ->group(opcao.obrigatoria ? "Opções obrigatórias" : Grupo);
        }
        if (d.lista != nullptr) {
            lista_ = app_.add_option(d.lista->nome, daLista_, d.lista->descricao);
            lista_->type_name("")->required();
        }
        for (const auto& chave : d.chaves) {
            Acrescentar(chave);
        }
        Acrescentar(Silencioso);
        // Last: the help shows the group of the first option first, which is the one of those that
        // must be given.
        AcrescentarAjuda(app_);
    }

    LinhaDeComando Analisar(const std::vector<std::string>& palavras) {
        RecusarValoresColados(palavras);
        LinhaDeComando linha;
        linha.comando = definicao_.comando;
        // It takes them from the back of the list.
        std::vector<std::string> deTras(palavras.rbegin(), palavras.rend());
        bool faltaValor = false;
        try {
            app_.parse(deTras);
        } catch (const CLI::CallForHelp&) {
            linha.comando = Comando::Ajuda;
            linha.ajuda = Ajuda(app_);
            return linha;
        } catch (const CLI::RequiredError&) {
            // Seen below, after what is unknown.
        } catch (const CLI::ArgumentMismatch&) {
            // As every option is taken any number of times, only the last word can cause it.
            faltaValor = true;
        } catch (const CLI::ParseError&) {
            throw UsoErrado("a linha de comando não se entende");
        }
        const auto sobras = Sobras();
        if (faltaValor) {
            PedirValor(palavras.back());
        }
        LerOpcoes(linha);
        if (lista_ != nullptr && std::ranges::count(daLista_, "") != 0) {
            PedirValor(definicao_.lista->nome);
        }
        if (lista_ != nullptr) {
            linha.*definicao_.lista->campo = daLista_;
        }
        if (!sobras.empty()) {
            throw UsoErrado("não esperado: " + sobras.front());
        }
        ExigirOpcoes(linha);
        LerChaves(linha);
        return linha;
    }

  private:
    void Acrescentar(const Chave& chave) {
        const std::string descricao = chave.descricao;
        chaves_.emplace_back(&chave, app_.add_flag(chave.nome, descricao));
    }

    [[noreturn]] static void PedirValor(const std::string& nome) {
        throw UsoErrado(nome + " pede um valor");
    }

    [[nodiscard]] bool EhNome(std::string_view palavra) const {
        return palavra == "-h" || Contem(Nomes(), palavra);
    }

    [[nodiscard]] std::vector<std::string_view> Nomes() const {
        std::vector<std::string_view> nomes{"--ajuda", "--help"};
        for (const auto& opcao : definicao_.opcoes) {
            if (opcao.nome[0] == '-') {
                nomes.emplace_back(opcao.nome);
            }
        }
        for (const auto& [chave, lida] : chaves_) {
            nomes.emplace_back(chave->nome);
        }
        return nomes;
    }

    // "--ie=" would take the next word for its value, and "--json=false" is left to nobody's guess.
    void RecusarValoresColados(const std::vector<std::string>& palavras) const {
        for (const auto& palavra : palavras) {
            const std::size_t igual = palavra.find('=');
            const std::string nome = palavra.substr(0, igual);
            if (palavra == "--") {
                return;
            }
            if (igual == std::string::npos || !EhNome(nome)) {
                continue;
            }
            if (!Contem(definicao_.opcoes, nome, &Opcao::nome)) {
                throw UsoErrado(nome + " não aceita um valor");
            }
            if (igual + 1 == palavra.size()) {
                PedirValor(nome);
            }
        }
    }

    // What nobody took, without the mark that ends the options. Refuses unknown ones before it.
    [[nodiscard]] std::vector<std::string> Sobras() const {
        std::vector<std::string> sobras = app_.remaining();
        const auto marca = std::ranges::find(sobras, "--");
        for (auto sobra = sobras.begin(); sobra != marca; ++sobra) {
            if (sobra->size() > 1 && sobra->starts_with('-')) {
                const auto nome = sobra->substr(0, sobra->find('='));
                RecusarPalavra("a opção", nome, PalavraParecida(nome, Nomes()), definicao_.nome);
            }
        }
        if (marca != sobras.end()) {
            sobras.erase(marca);
        }
        return sobras;
    }

    void LerOpcoes(LinhaDeComando& linha) const {
        for (std::size_t i = 0; i < opcoes_.size(); ++i) {
            const Opcao& opcao = definicao_.opcoes[i];
            const auto& valores = opcoes_[i]->results();
            if (valores.empty()) {
                continue;
            }
            // The name of an option in the place of a value: the value was left out.
            if (valores[0].empty() || EhNome(valores[0])) {
                PedirValor(opcao.nome);
            }
            if (valores.size() > 1) {
                throw UsoErrado(std::string(opcao.nome) + " só pode ser dada uma vez");
            }
            linha.*opcao.campo = valores[0];
        }
    }

    void ExigirOpcoes(const LinhaDeComando& linha) const {
        for (const auto& opcao : definicao_.opcoes) {
            if (opcao.obrigatoria && (linha.*opcao.campo).empty()) {
                throw UsoErrado(std::string("falta ") + opcao.nome);
            }
        }
        if (lista_ != nullptr && daLista_.empty()) {
            throw UsoErrado(std::string("falta ") + definicao_.lista->nome);
        }
    }

    void LerChaves(LinhaDeComando& linha) const {
        for (const auto& [chave, lida] : chaves_) {
            linha.*chave->campo = lida->count() != 0;
        }
    }

    const DefinicaoDeComando& definicao_;
    CLI::App app_;
    std::vector<CLI::Option*> opcoes_;  // as in the definition
    CLI::Option* lista_ = nullptr;
    std::vector<std::string> daLista_;
    std::vector<std::pair<const Chave*, CLI::Option*>> chaves_;
};

}  // namespace

LinhaDeComando AnalisarComando(const DefinicaoDeComando& definicao,
                               const std::vector<std::string>& palavras) {
    return Analisador(definicao).Analisar(palavras);
}

std::string AjudaGeral(const std::vector<DefinicaoDeComando>& definicoes) {
    CLI::App app("Relatórios da declaração de ICMS (DRQ)", Programa);
    Traduzir(app);
    AcrescentarAjuda(app);
    const std::string versao = "mostra o nome e a versão do programa";
    app.add_flag("--versao,--version", versao);
    for (const auto& definicao : definicoes) {
        app.add_subcommand(std::string(definicao.nome), definicao.descricao)->group("Comandos");
    }
    app.footer(
        "relatorios-tarvo BANCO, sem comando, abre a janela das declarações.\n"
        "relatorios-tarvo COMANDO --ajuda mostra as opções do comando.");
    return app.help();
}

}  // namespace tarvo::host
