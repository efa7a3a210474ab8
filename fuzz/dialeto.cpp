// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "data/CodigosDeErros.h"
#include "fuzz/BancoDeFuzz.h"

// Any bytes as the text of a query: it opens, runs or is refused with an Erro, and what the
// translator lets through is always something that SQLite understands.
namespace tarvo::fuzz {

namespace {

// SQLite's limits and our interruption are no faults of the translator.
bool EhLimite(std::string_view descricao) {
    for (const char* limite : {"interrupted", "too large", "too big", "too many", "overflow",
                               "at most", "too complex"}) {
        if (descricao.find(limite) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

template <class Acao>
void Tentar(Acao acao) {
    try {
        acao();
    } catch (const Erro& erro) {
        const std::string_view descricao = erro.Descricao();
        const bool doSQLite = descricao.starts_with("Erro na consulta (") ||
                              descricao.starts_with("Operação inválida no banco de dados (");
        if (doSQLite && !EhLimite(descricao)) {
            std::fprintf(stderr, "%s\n", erro.what());
            std::abort();
        }
    }
}

void LerLinha(Recordset& registros) {
    for (int i = 0;; ++i) {
        try {
            static_cast<void>(registros.Fields(i).Value());
        } catch (const Erro& erro) {
            if (erro.Numero() == NumeroErro::ItemNaoEncontrado) {
                return;
            }
        }
    }
}

}  // namespace

}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamanho) {
    using namespace tarvo;
    using namespace tarvo::fuzz;
    const std::string_view consulta(reinterpret_cast<const char*>(bytes), tamanho);
    const Tentativa tentativa;
    Tentar([&] {
        const auto registros = Banco()->OpenRecordset(consulta, TipoRecordset::ForwardOnly);
        for (int i = 0; i < 20 && !registros->EOF_(); ++i) {
            LerLinha(*registros);
            registros->MoveNext();
        }
    });
    Tentar([&] {
        const auto registros = Banco()->OpenRecordset(consulta, TipoRecordset::Dynaset);
        registros->AddNew();
        registros->Fields(0) = Valor(std::string("7"));
        registros->Update();
    });
    Tentar([&] { Banco()->CreateQueryDef("", consulta)->Execute(); });
    return 0;
}
