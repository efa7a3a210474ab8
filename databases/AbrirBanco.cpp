#include "databases/AbrirBanco.h"

#include "data/CodigosDeErros.h"
#include "databases/sqlite/BancoSQLite.h"

namespace tarvo {

std::unique_ptr<BancoDados> AbrirBanco(const std::string& endereco, const OpcoesAbertura& opcoes) {
    // The address may hold a password: it is not repeated.
    if (endereco.starts_with("postgresql://") || endereco.starts_with("postgres://")) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   "A leitura de servidores PostgreSQL não faz parte desta versão.");
    }
    return BancoSQLite::Abrir(endereco, opcoes);
}

}  // namespace tarvo
