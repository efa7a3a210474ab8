#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

// The connection and its prepared statements.
namespace tarvo::sqlite {

// An open connection, shared by a database and its recordsets: the last of them closes it, so that
// neither a statement nor the file's handle outlives its owner, whatever the order of destruction.
class Conexao {
  public:
    enum class Posse { Propria, DoHospedeiro };

    // A connection of our own is closed with this object, a host's is left open.
    Conexao(sqlite3* db, Posse posse) : db_(db), posse_(posse) {}
    ~Conexao();
    Conexao(const Conexao&) = delete;
    Conexao& operator=(const Conexao&) = delete;

    [[nodiscard]] sqlite3* Db() const { return db_; }
    void Executar(const std::string& sql);
    // Undoes what was done since the savepoint, if it still stands.
    void Desfazer(const std::string& ponto) noexcept;

    // Error 3027 when nothing may be written to that schema ("main", "temp").
    void ExigirEscrita(const std::string& esquema) const;
    void ProibirEscrita() { proibida_ = true; }

    // A temporary table, unless the connection has one of that name; it goes with this object even
    // when the connection stays.
    void CriarTemporaria(const std::string& nome, const std::string& definicao);

  private:
    void Fechar() noexcept;

    sqlite3* db_;
    Posse posse_;
    bool proibida_ = false;
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

  private:
    std::shared_ptr<Conexao> conexao_;
    sqlite3_stmt* ponteiro_ = nullptr;
};

// A name as SQLite quotes it.
std::string NomeSql(std::string_view nome);

// The connection's last error as an Erro.
[[noreturn]] void LancarErroSQLite(sqlite3* db);

// How a function that SQLite calls passes an Erro through it: the number stands in the text.
std::string CodificarErro(int numero, std::string_view descricao);

}  // namespace tarvo::sqlite
