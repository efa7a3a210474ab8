// SPDX-License-Identifier: MIT
#include <sqlite3.h>

#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

using Respostas = apoio::Roteiro::Respostas;

// SQLite counts the steps of its machine.
std::vector<int> Passos(const std::filesystem::path& arquivo, const Respostas& leituras) {
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open(arquivo.c_str(), &db), SQLITE_OK);
    std::vector<int> contagens;
    {
        const auto banco = BancoSQLite::Adotar(db);
        for (const auto& leitura : leituras) {
            const auto [colunas, consulta] = apoio::ColunasEConsulta(leitura);
            LinhasDe(*banco, consulta, colunas);  // reads the schema
            sqlite3_progress_handler(
                db, 1, [](void* n) { return 0 * ++*static_cast<int*>(n); },
                &contagens.emplace_back(0));
            LinhasDe(*banco, consulta, colunas);
            sqlite3_progress_handler(db, 0, nullptr, nullptr);
        }
    }
    EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
    return contagens;
}

TEST(Consultas, MeanWhatTheySayAndCostTheSameAmongManyDeclarations) {
    apoio::Roteiro roteiro;
    std::vector<int> antes;
    // What has become dearer since the first time.
    roteiro.Ensinar("passos", [&](const auto&) {
        const auto leituras = roteiro.Pedidos("ler");
        const auto agora = Passos(roteiro.Banco().Arquivo(), leituras);
        Respostas respostas{std::to_string(agora.size()) + " consultas"};
        for (std::size_t i = 0; i < antes.size(); ++i) {
            if (agora[i] >= antes[i] + 200) {
                respostas.push_back(leituras[i]);
            }
        }
        antes = agora;
        return respostas;
    });
    roteiro.Conferir("databases/sqlite/consultas.txt");
}

}  // namespace

}  // namespace tarvo
