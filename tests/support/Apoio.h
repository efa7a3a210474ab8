// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/CodigosDeErros.h"
#include "databases/sqlite/BancoSQLite.h"
#include "document/Ambiente.h"
#include "document/Conteudo.h"

// Fixtures that several test programs share.
namespace tarvo::apoio {

// A folder of its own, removed with everything in it at the end.
class PastaTemporaria {
  public:
    PastaTemporaria();
    ~PastaTemporaria();
    PastaTemporaria(const PastaTemporaria&) = delete;
    PastaTemporaria& operator=(const PastaTemporaria&) = delete;
    [[nodiscard]] const std::filesystem::path& Caminho() const { return caminho_; }
    std::filesystem::path operator/(std::string_view nome) const { return caminho_ / nome; }

  private:
    std::filesystem::path caminho_;
};

// The bytes of a file; none when it does not exist.
std::string BytesDe(const std::filesystem::path& arquivo);

// What a shell command writes, errors too; the test fails unless it ends with zero.
std::string SaidaDe(const std::string& comando);

// All rows of a query, each as its first columns' texts joined with "|"; Null reads as "(nulo)".
std::vector<std::string> Linhas(BancoDados& banco, std::string_view consulta, int colunas = 1);

// A declaration database in a file of its own, filled by a script of SQLite's dialect (Currency
// columns hold ten-thousandths).
class BancoDeTeste {
  public:
    explicit BancoDeTeste(std::string_view script = "");
    BancoSQLite& operator*() { return *banco_; }
    BancoSQLite* operator->() { return banco_.get(); }
    void Executar(std::string_view script) { banco_->ExecutarScript(script); }
    [[nodiscard]] std::filesystem::path Arquivo() const { return pasta_ / "teste.tarvo"; }
    std::vector<std::string> Linhas(std::string_view consulta, int colunas) {
        return apoio::Linhas(*banco_, consulta, colunas);
    }

  private:
    PastaTemporaria pasta_;
    std::unique_ptr<BancoSQLite> banco_;
};

// What a page says: its texts in drawing order.
std::vector<std::string> Textos(const Conteudo& conteudo, std::size_t pagina);

// A settings store that knows one value.
class ConfiguracaoFixa : public Configuracoes {
  public:
    explicit ConfiguracaoFixa(std::string refAtual) : refAtual_(std::move(refAtual)) {}
    [[nodiscard]] std::string Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const override;

  private:
    std::string refAtual_;
};

// Notes in a diary what documents ask of their previews: "Exibir T", "Ocultar T", "Imprimir T"
// ("Imprimir T perguntando" when the user is asked first), "Fechar T"; T is the document's title.
class VisualizadoresAnotados : public FabricaVisualizadores {
  public:
    explicit VisualizadoresAnotados(std::vector<std::string>& diario) : diario_(diario) {}
    std::unique_ptr<Visualizador> Criar() override;

  private:
    std::vector<std::string>& diario_;
};

// The error that an action ends with; fails the test when there is none.
template <class Acao>
Erro ErroDe(Acao&& acao) {
    try {
        acao();
    } catch (const Erro& erro) {
        return erro;
    }
    ADD_FAILURE() << "no error was raised";
    return {NumeroErro{}, ""};
}

template <class Acao>
NumeroErro NumeroDe(Acao&& acao) {
    return ErroDe(std::forward<Acao>(acao)).Numero();
}

}  // namespace tarvo::apoio
