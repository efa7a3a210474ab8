#include "databases/sqlite/Conexao.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <charconv>
#include <new>

#include "data/CodigosDeErros.h"

namespace tarvo::sqlite {

namespace {

constexpr std::string_view MarcaDeErro = "tarvo#";

struct ErroTraduzido {
    NumeroErro numero;
    const char* descricao;
    bool comDetalhe;  // SQLite's own text says more
};

ErroTraduzido TraduzirCodigo(int codigo) {
    switch (codigo) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {NumeroErro::BancoOcupado, "O banco de dados está bloqueado por outro usuário",
                    false};
        case SQLITE_READONLY:
            return {NumeroErro::BancoSomenteLeitura, "O banco de dados é somente para leitura",
                    false};
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return {NumeroErro::BancoIrreconhecivel,
                    "O arquivo não é um banco de dados ou está danificado", false};
        case SQLITE_FULL:
            return {NumeroErro::DiscoCheio, "Disco cheio", false};
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_CANTOPEN:
            return {NumeroErro::PermissaoNegada, "Permissão negada no banco de dados", false};
        case SQLITE_IOERR:
            return {NumeroErro::ErroDispositivo, "Erro de leitura ou gravação", true};
        case SQLITE_ERROR:
            return {NumeroErro::ErroSintaxeConsulta, "Erro na consulta", true};
        default:
            return {NumeroErro::OperacaoInvalida, "Operação inválida no banco de dados", true};
    }
}

}  // namespace

std::string NomeSql(std::string_view nome) {
    std::string sql = "\"";
    for (const char c : nome) {
        sql += c;
        if (c == '"') {
            sql += c;
        }
    }
    return sql + "\"";
}

std::string CodificarErro(int numero, std::string_view descricao) {
    return std::string(MarcaDeErro) + std::to_string(numero) + " " + std::string(descricao);
}

void LancarErroSQLite(sqlite3* db) {
    const int codigo = sqlite3_extended_errcode(db);
    if ((codigo & 0xFF) == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    const std::string mensagem = sqlite3_errmsg(db);
    if (mensagem.starts_with(MarcaDeErro)) {
        int numero = 0;
        const char* fim = mensagem.data() + mensagem.size();
        const auto lido = std::from_chars(mensagem.data() + MarcaDeErro.size(), fim, numero);
        throw Erro(static_cast<NumeroErro>(numero), std::string(lido.ptr + 1, fim));
    }
    const ErroTraduzido erro = TraduzirCodigo(codigo & 0xFF);
    throw Erro(erro.numero, erro.descricao + (erro.comDetalhe ? " (" + mensagem + ")." : "."));
}

void Conexao::Fechar() noexcept {
    // What another program left in the -wal stays there when we are not to write: the last
    // connection would move it into the file.
    const char* const arquivo = proibida_ ? sqlite3_db_filename(db_, "main") : nullptr;
    struct stat wal {};
    if (arquivo != nullptr && ::stat(sqlite3_filename_wal(arquivo), &wal) == 0 && wal.st_size > 0) {
        sqlite3_db_config(db_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    sqlite3_close(db_);
}

Conexao::~Conexao() {
    if (posse_ == Posse::Propria) {
        Fechar();
        return;
    }
    for (const std::string& remocao : remocoes_) {
        sqlite3_exec(db_, remocao.c_str(), nullptr, nullptr, nullptr);
    }
}

void Conexao::Executar(const std::string& sql) {
    if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        LancarErroSQLite(db_);
    }
}

void Conexao::Desfazer(const std::string& ponto) noexcept {
    const std::unique_ptr<char, decltype(&sqlite3_free)> sql(
        sqlite3_mprintf("ROLLBACK TO %s; RELEASE %s", ponto.c_str(), ponto.c_str()), sqlite3_free);
    sqlite3_exec(db_, sql.get(), nullptr, nullptr, nullptr);
}

void Conexao::ExigirEscrita(const std::string& esquema) const {
    const bool privada = esquema == "temp";
    if (!privada && (proibida_ || sqlite3_db_readonly(db_, esquema.c_str()) == 1)) {
        throw Erro(NumeroErro::BancoSomenteLeitura, "O banco de dados é somente para leitura.");
    }
}

void Conexao::CriarTemporaria(const std::string& nome, const std::string& definicao) {
    if (sqlite3_table_column_metadata(db_, "temp", nome.c_str(), nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr) == SQLITE_OK) {
        return;
    }
    std::string remocao = "DROP TABLE temp." + NomeSql(nome);
    remocoes_.reserve(remocoes_.size() + 1);
    Executar("CREATE TEMP TABLE " + NomeSql(nome) + " (" + definicao + ")");
    remocoes_.push_back(std::move(remocao));
}

Instrucao::Instrucao(std::shared_ptr<Conexao> conexao, std::string_view sql)
    : conexao_(std::move(conexao)) {
    if (sqlite3_prepare_v3(conexao_->Db(), sql.data(), static_cast<int>(sql.size()), 0, &ponteiro_,
                           nullptr) != SQLITE_OK) {
        LancarErroSQLite(conexao_->Db());
    }
}

Instrucao::~Instrucao() {
    sqlite3_finalize(ponteiro_);
}

bool Instrucao::Passo() {
    const int estado = sqlite3_step(ponteiro_);
    if (estado != SQLITE_ROW && estado != SQLITE_DONE) {
        LancarErroSQLite(conexao_->Db());
    }
    return estado == SQLITE_ROW;
}

void Instrucao::Executar() {
    while (sqlite3_step(ponteiro_) == SQLITE_ROW) {
    }
    if (sqlite3_reset(ponteiro_) != SQLITE_OK) {
        LancarErroSQLite(conexao_->Db());
    }
}

void Instrucao::Reiniciar() {
    sqlite3_reset(ponteiro_);
}

}  // namespace tarvo::sqlite
