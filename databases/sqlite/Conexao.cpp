// SPDX-License-Identifier: MIT
#include "databases/sqlite/Conexao.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <cerrno>
#include <new>
#include <utility>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
#include "data/Procura.h"
#include "data/Textos.h"
#include "databases/sqlite/FuncoesSql.h"
#include "system/files/Arquivos.h"

namespace tarvo::sqlite {

namespace {

struct ErroTraduzido {
    int codigo;
    NumeroErro numero;
    const char* descricao;
    bool comDetalhe = false;  // SQLite's own text says more
};

constexpr const char* Bloqueado = "O banco de dados está bloqueado por outro usuário";
constexpr const char* Danificado = "O arquivo não é um banco de dados ou está danificado";
constexpr const char* Negado = "Permissão negada no banco de dados";

constexpr ErroTraduzido Traducoes[] = {
    {SQLITE_BUSY, NumeroErro::BancoOcupado, Bloqueado},
    {SQLITE_LOCKED, NumeroErro::BancoOcupado, Bloqueado},
    {SQLITE_READONLY, NumeroErro::BancoSomenteLeitura, "O banco de dados é somente para leitura"},
    {SQLITE_CORRUPT, NumeroErro::BancoIrreconhecivel, Danificado},
    {SQLITE_NOTADB, NumeroErro::BancoIrreconhecivel, Danificado},
    {SQLITE_FULL, NumeroErro::DiscoCheio, "Disco cheio"},
    {SQLITE_PERM, NumeroErro::PermissaoNegada, Negado},
    {SQLITE_AUTH, NumeroErro::PermissaoNegada, Negado},
    {SQLITE_CANTOPEN, NumeroErro::PermissaoNegada, Negado},
    {SQLITE_IOERR, NumeroErro::ErroDispositivo, "Erro de leitura ou gravação", true},
    {SQLITE_INTERRUPT, NumeroErro::Cancelado, "Operação cancelada"},  // by a host, on its own
    {SQLITE_ERROR, NumeroErro::ErroSintaxeConsulta, "Erro na consulta", true},
};
constexpr ErroTraduzido Outro{0, NumeroErro::OperacaoInvalida,
                              "Operação inválida no banco de dados", true};

// SQLite reports lengths that no file can have as a lack of memory, too. It is one only when the
// largest value that the connection takes would find no room.
bool FaltaMemoria(sqlite3* db) {
    if (db == nullptr) {
        return true;
    }
    const auto maiorValor = static_cast<sqlite3_uint64>(sqlite3_limit(db, SQLITE_LIMIT_LENGTH, -1));
    return ObjetoDeC<sqlite3_free>(sqlite3_malloc64(maiorValor)) == nullptr;
}

}  // namespace

std::string NomeSql(std::string_view nome) {
    return EntreAspas(nome, '"');
}

void LancarErroSQLite(sqlite3* db, int resultado) {
    if ((resultado & 0xFF) == SQLITE_NOMEM) {
        if (FaltaMemoria(db)) {
            throw std::bad_alloc();
        }
        resultado = SQLITE_CORRUPT;
    }
    // SQLite has one code for all files that it cannot open, and one for all that it cannot write.
    const int sistema = sqlite3_system_errno(db);
    const int codigo = resultado & 0xFF;
    if ((codigo == SQLITE_CANTOPEN &&
         (sistema == EMFILE || sistema == ENFILE || sistema == ENAMETOOLONG)) ||
        (codigo == SQLITE_IOERR && (sistema == ENOSPC || sistema == EDQUOT))) {
        LancarErroDeArquivo("banco de dados", sistema);
    }
    const auto* const traduzido = Achar(Traducoes, resultado & 0xFF, &ErroTraduzido::codigo);
    const ErroTraduzido& erro = traduzido != nullptr ? *traduzido : Outro;
    throw Erro(erro.numero,
               std::string(erro.descricao) +
                   (erro.comDetalhe ? " (" + std::string(sqlite3_errmsg(db)) + ")." : "."));
}

Conexao::Conexao(sqlite3* db, Posse posse)
    : db_(db), posse_(posse), erroDasFuncoes_(RegistrarFuncoes(db)) {
    if (posse_ == Posse::Propria) {
        vigilancia_.Instalar(db_);
    }
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
    vigilancia_.Acompanhar(nullptr);
    if (posse_ == Posse::Propria) {
        Fechar();
        return;
    }
    for (const std::string& remocao : remocoes_) {
        sqlite3_exec(db_, remocao.c_str(), nullptr, nullptr, nullptr);
    }
}

void Conexao::Executar(const std::string& sql) {
    Comecar();
    Conferir(sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr));
}

int Conexao::Tentar(const char* sql) noexcept {
    vigilancia_.Esperar(false);
    const int resultado = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
    vigilancia_.Esperar(true);
    return resultado == SQLITE_OK ? resultado : sqlite3_extended_errcode(db_);
}

void Conexao::Comecar() noexcept {
    erroDasFuncoes_.erro = nullptr;  // a statement of the host's may have left one
}

// What our own functions and the one who accompanies have said counts whatever SQLite makes of it:
// a comparison, for one, cannot fail.
void Conexao::Conferir(int resultado) {
    if (erroDasFuncoes_.erro != nullptr) {
        std::rethrow_exception(std::exchange(erroDasFuncoes_.erro, nullptr));
    }
    vigilancia_.LancarSeParou();
    if (resultado != SQLITE_OK && resultado != SQLITE_ROW && resultado != SQLITE_DONE) {
        LancarErroSQLite(db_, resultado);
    }
}

void Conexao::Perguntar(std::chrono::milliseconds aguardando) {
    static_cast<void>(vigilancia_.Continuar(aguardando));
    vigilancia_.LancarSeParou();
}

void Conexao::PerguntarEntreLinhas() {
    if (posse_ == Posse::DoHospedeiro) {
        Perguntar(std::chrono::milliseconds(0));
    }
}

void Conexao::ExigirEscrita(const std::string& esquema) {
    if (esquema == "temp") {
        return;
    }
    if (proibida_ || sqlite3_db_readonly(db_, esquema.c_str()) == 1) {
        throw Erro(NumeroErro::BancoSomenteLeitura, "O banco de dados é somente para leitura.");
    }
    TerminarLeitura();
}

bool Conexao::ComecarLeitura() {
    if (!permitidas_ || sqlite3_get_autocommit(db_) == 0) {
        return false;
    }
    Executar("BEGIN");
    lendo_ = true;
    return true;
}

void Conexao::TerminarLeitura() noexcept {
    // Some failures have ended it already.
    if (std::exchange(lendo_, false) && sqlite3_get_autocommit(db_) == 0) {
        sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
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
    conexao_->Comecar();
    conexao_->Conferir(sqlite3_prepare_v3(conexao_->Db(), sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &ponteiro_, nullptr));
}

Instrucao::~Instrucao() {
    sqlite3_finalize(ponteiro_);
}

bool Instrucao::Passo() {
    conexao_->PerguntarEntreLinhas();
    conexao_->Comecar();
    const int resultado = sqlite3_step(ponteiro_);
    conexao_->Conferir(resultado);
    return resultado == SQLITE_ROW;
}

void Instrucao::Executar() {
    conexao_->Comecar();
    while (sqlite3_step(ponteiro_) == SQLITE_ROW) {
    }
    Reiniciar();
}

void Instrucao::Soltar() noexcept {
    sqlite3_reset(ponteiro_);
    sqlite3_clear_bindings(ponteiro_);
}

void Instrucao::Reiniciar() {
    conexao_->Conferir(sqlite3_reset(ponteiro_));
}

}  // namespace tarvo::sqlite
