// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "data/CodigosDeErros.h"
#include "data/Utf8.h"
#include "dispatch/Catalogo.h"
#include "fuzz/BancoDeFuzz.h"

// Field values of every kind on the way to recorded pages. The input's first byte chooses three
// reports and the rest of its line is the per-user setting; each other line is a column (one byte),
// a kind of storage (one byte) and a value, which SQLite itself writes into the database.
namespace tarvo::fuzz {

namespace {

class Ajustes final : public Configuracoes {
  public:
    explicit Ajustes(std::string valor) : valor_(std::move(valor)) {}
    [[nodiscard]] std::string Ler(std::string_view, std::string_view, std::string_view,
                                  std::string_view) const override {
        return valor_;
    }

  private:
    std::string valor_;
};

constexpr std::size_t Grupos = 6;

// One UPDATE of all rows for each column; a value that breaks a key is left out.
std::vector<sqlite3_stmt*> PrepararColunas() {
    constexpr const char* Colunas =
        "SELECT 'UPDATE OR IGNORE \"' || t.name || '\" SET \"' || c.name || '\" = ?' "
        "FROM sqlite_schema t, pragma_table_info(t.name) c WHERE t.type = 'table'";
    std::vector<sqlite3_stmt*> atualizacoes;
    sqlite3_stmt* colunas = nullptr;
    sqlite3_prepare_v2(Banco().Conexao(), Colunas, -1, &colunas, nullptr);
    while (sqlite3_step(colunas) == SQLITE_ROW) {
        const auto* sql = reinterpret_cast<const char*>(sqlite3_column_text(colunas, 0));
        sqlite3_prepare_v2(Banco().Conexao(), sql, -1, &atualizacoes.emplace_back(), nullptr);
    }
    sqlite3_finalize(colunas);
    return atualizacoes;
}

void Gravar(std::string_view linha) {
    static const std::vector<sqlite3_stmt*> colunas = PrepararColunas();
    if (linha.size() < 2) {
        return;
    }
    auto* atualizacao = colunas[static_cast<unsigned char>(linha[0]) % colunas.size()];
    const std::string valor(linha.substr(2));
    switch (linha[1]) {
        case 'i':
            sqlite3_bind_int64(atualizacao, 1, std::strtoll(valor.c_str(), nullptr, 10));
            break;
        case 'r':
            sqlite3_bind_double(atualizacao, 1, std::strtod(valor.c_str(), nullptr));
            break;
        case 'b':
            sqlite3_bind_blob64(atualizacao, 1, valor.data(), valor.size(), SQLITE_TRANSIENT);
            break;
        case 'n':
            sqlite3_bind_null(atualizacao, 1);
            break;
        default:
            sqlite3_bind_text64(atualizacao, 1, valor.data(), valor.size(), SQLITE_TRANSIENT,
                                SQLITE_UTF8);
    }
    sqlite3_step(atualizacao);
    sqlite3_reset(atualizacao);
}

void ExigirUtf8(const Conteudo& conteudo) {
    for (const Pagina& pagina : conteudo.paginas) {
        for (const Primitiva& primitiva : pagina) {
            const auto* texto = std::get_if<Texto>(&primitiva);
            if (texto != nullptr && !EhUtf8(texto->texto)) {
                std::fprintf(stderr, "texto que não é UTF-8: %s\n", texto->texto.c_str());
                std::abort();
            }
        }
    }
}

}  // namespace

}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamanho) {
    using namespace tarvo;
    using namespace tarvo::fuzz;
    std::string_view resto(reinterpret_cast<const char*>(bytes), tamanho);
    const auto linha = [&resto] {
        const std::string_view lida = resto.substr(0, resto.find('\n'));
        resto.remove_prefix(std::min(resto.size(), lida.size() + 1));
        return lida;
    };
    const std::string_view primeira = linha();
    const std::size_t grupo = primeira.empty() ? 0 : static_cast<unsigned char>(primeira[0]);
    const Ajustes ajustes{std::string(primeira.substr(std::min<std::size_t>(1, primeira.size())))};
    const Tentativa tentativa;
    while (!resto.empty()) {
        Gravar(linha());
    }
    for (std::size_t i = grupo % Grupos; i < Catalogo().size(); i += Grupos) {
        const auto relatorio = Catalogo()[i].criar({.configuracoes = &ajustes});
        try {
            relatorio->Construir(*Banco(), "100", 7);
        } catch (const Erro&) {
            // What was drawn before it stays, and is checked too.
        }
        ExigirUtf8(relatorio->Documento());
    }
    return 0;
}
