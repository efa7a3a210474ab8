#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/CodigosDeErros.h"
#include "data/Funcoes.h"
#include "platform/sqlite/BancoSQLite.h"

namespace tarvo {

// A folder of its own for each test, removed afterwards.
class Pasta {
  public:
    Pasta() {
        std::string modelo = (std::filesystem::temp_directory_path() / "tarvo-XXXXXX").string();
        caminho_ = mkdtemp(modelo.data());
    }
    ~Pasta() {
        std::error_code ignorado;
        std::filesystem::permissions(caminho_, std::filesystem::perms::owner_all, ignorado);
        std::filesystem::remove_all(caminho_, ignorado);
    }
    Pasta(const Pasta&) = delete;
    Pasta& operator=(const Pasta&) = delete;
    [[nodiscard]] std::filesystem::path operator/(std::string_view nome) const {
        return caminho_ / nome;
    }
    [[nodiscard]] const std::filesystem::path& Caminho() const { return caminho_; }

  private:
    std::filesystem::path caminho_;
};

// A new declaration database.
class BancoDeTeste : public testing::Test {
  protected:
    BancoDeTeste() {
        CriarBanco(Arquivo());
        banco_ = BancoSQLite::Abrir(Arquivo());
    }
    [[nodiscard]] std::filesystem::path Arquivo() const { return pasta_ / "banco.tarvo"; }

    std::unique_ptr<Recordset> Abrir(std::string_view consulta,
                                     TipoRecordset tipo = TipoRecordset::ForwardOnly) {
        return banco_->OpenRecordset(consulta, tipo);
    }

    Pasta pasta_;
    std::unique_ptr<BancoSQLite> banco_;
};

// The rows of a recordset: columns joined by "|", rows by a line break.
inline std::string Linhas(Recordset& registros, const std::vector<std::string>& colunas) {
    std::string linhas;
    for (; !registros.EOF_(); registros.MoveNext()) {
        linhas += linhas.empty() ? "" : "\n";
        for (std::size_t i = 0; i < colunas.size(); ++i) {
            const Valor valor = registros.Fields(colunas[i]);
            linhas += (i == 0 ? "" : "|") + (EhNulo(valor) ? "Null" : TextoCampo(valor));
        }
    }
    return linhas;
}

// The number of the error that an operation ends with, 0 for none; its text goes to descricao.
template <class Operacao>
int NumeroDoErro(Operacao operacao, std::string* descricao = nullptr) {
    try {
        operacao();
    } catch (const Erro& erro) {
        if (descricao != nullptr) {
            *descricao = erro.Descricao();
        }
        return static_cast<int>(erro.Numero());
    }
    return 0;
}

}  // namespace tarvo
