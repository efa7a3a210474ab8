// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "databases/sqlite/Vigilancia.h"

struct sqlite3;
struct sqlite3_stmt;

// The connection and its prepared statements.
namespace tarvo::sqlite {

struct ErroPendente;

// An open connection, shared by a database and its recordsets: the last of them closes it, so that
// neither a statement nor the file's handle outlives its owner, whatever the order of destruction.
class Conexao {
  public:
    enum class Posse { Propria, DoHospedeiro };

    // A connection of our own is closed with this object, a host's is left open. Registers what
    // generated SQL calls (see FuncoesSql).
    Conexao(sqlite3* db, Posse posse);
    ~Conexao();
    Conexao(const Conexao&) = delete;
    Conexao& operator=(const Conexao&) = delete;

    [[nodiscard]] sqlite3* Db() const { return db_; }
    void Executar(const std::string& sql);
    // SQLite's own result, SQLITE_BUSY at once.
    [[nodiscard]] int Tentar(const char* sql) noexcept;
    // Before a statement runs, and after SQLite has returned: throws unless that succeeded.
    void Comecar() noexcept;
    void Conferir(int resultado);

    Acompanhante* Acompanhar(Acompanhante* quem) { return vigilancia_.Acompanhar(quem); }
    // Error 18 when the one who accompanies says so.
    void Perguntar(std::chrono::milliseconds aguardando);
    // The same, where SQLite itself does not ask.
    void PerguntarEntreLinhas();

    // Error 3027 when nothing may be written to that schema ("main", "temp"). Who writes to "main"
    // sees its last state: a reading begun before ends.
    void ExigirEscrita(const std::string& esquema);
    void ProibirEscrita() { proibida_ = true; }

    // What is read until TerminarLeitura is of one moment. False, and nothing to end, within a
    // transaction, and where readers would keep others from writing.
    bool ComecarLeitura();
    void TerminarLeitura() noexcept;
    void PermitirLeituras() { permitidas_ = true; }

    // A temporary table, unless the connection has one of that name; it goes with this object even
    // when the connection stays.
    void CriarTemporaria(const std::string& nome, const std::string& definicao);

  private:
    void Fechar() noexcept;

    sqlite3* db_;
    Posse posse_;
    ErroPendente& erroDasFuncoes_;
    Vigilancia vigilancia_;
    bool proibida_ = false;
    bool permitidas_ = false;
    bool lendo_ = false;
    std::vector<std::string> remocoes_;  // ready to run: the destructor must not allocate
};

// A prepared statement; finalized with this object.
class Instrucao {
  public:
    Instrucao(std::shared_ptr<Conexao> conexao, std::string_view sql);
    ~Instrucao();
    Instrucao(const Instrucao&) = delete;
    Instrucao& operator=(const Instrucao&) = delete;

    [[nodiscard]] sqlite3_stmt* Ponteiro() const { return ponteiro_; }
    // Runs to the next row; False at the end.
    bool Passo();
    // Runs to the end and makes ready for the next run, on errors too.
    void Executar();
    void Reiniciar();
    // Ends it without another word, and keeps no value of its parameters.
    void Soltar() noexcept;

  private:
    std::shared_ptr<Conexao> conexao_;
    sqlite3_stmt* ponteiro_ = nullptr;
};

// A name as SQLite quotes it.
std::string NomeSql(std::string_view nome);

// A result of SQLite's that is a failure, as an Erro (std::bad_alloc when memory is out).
[[noreturn]] void LancarErroSQLite(sqlite3* db, int resultado);

}  // namespace tarvo::sqlite
