// SPDX-License-Identifier: MIT
#include "databases/sqlite/Abertura.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
#include "data/Textos.h"
#include "system/files/Arquivos.h"

namespace tarvo::sqlite {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Lancar(NumeroErro numero, const fs::path& arquivo, std::string_view problema) {
    throw Erro(numero, "\"" + arquivo.string() + "\": " + std::string(problema) + ".");
}

bool Permite(const fs::path& caminho, int modo) {
    return faccessat(AT_FDCWD, caminho.c_str(), modo, AT_EACCESS) == 0;
}

// Reads the file's first bytes: True for a database in WAL mode. Errors 3024, 70, 3343.
bool UsaWal(const fs::path& arquivo) {
    constexpr std::string_view Marca{"SQLite format 3\0", 16};
    constexpr std::size_t VersaoDeEscrita = 18;
    constexpr char Wal = 2;
    std::error_code erro;
    const fs::file_status estado = fs::status(arquivo, erro);
    if (estado.type() == fs::file_type::not_found) {
        Lancar(NumeroErro::BancoNaoEncontrado, arquivo, "o banco de dados não existe");
    }
    if (erro || !Permite(arquivo, R_OK)) {
        LancarErroDeArquivo(arquivo, erro ? erro.value() : EACCES);
    }
    std::array<char, VersaoDeEscrita + 1> inicio{};
    if (estado.type() == fs::file_type::regular) {
        std::ifstream(arquivo, std::ios::binary).read(inicio.data(), inicio.size());
    }
    if (std::string_view(inicio.data(), Marca.size()) != Marca) {
        Lancar(NumeroErro::BancoIrreconhecivel, arquivo, "não é um banco de dados");
    }
    return inicio.back() == Wal;
}

bool TemWal(const fs::path& arquivo) {
    std::error_code ignorado;
    return fs::exists(fs::path(arquivo) += "-wal", ignorado);
}

// What SQLite itself reads beside the file, which a link may lead to: it would wait at a pipe.
void ExigirVizinhosComuns(const fs::path& arquivo) {
    std::error_code ignorado;
    const fs::path real = fs::canonical(arquivo, ignorado);
    for (const char* sufixo : {"-journal", "-wal"}) {
        ExigirArquivoComum(fs::path(real) += sufixo);
    }
}

bool PodeEscrever(const fs::path& arquivo) {
    return Permite(arquivo, W_OK) && Permite(fs::absolute(arquivo).parent_path(), W_OK);
}

// The file's name as a URI: everything but letters, digits and "/" is written in hexadecimal.
std::string Uri(const fs::path& arquivo) {
    constexpr std::string_view Digitos = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : fs::absolute(arquivo).string()) {
        const auto byte = static_cast<unsigned char>(c);
        if (EhLetraOuDigito(c) || c == '/') {
            uri += c;
        } else {
            uri += {'%', Digitos[byte >> 4U], Digitos[byte & 0xFU]};
        }
    }
    return uri;
}

// The file may come from anybody: nothing in its schema runs by itself or reaches beyond it, and a
// page is looked at before it is believed.
void Desconfiar(Conexao& conexao) {
    constexpr std::pair<int, int> Chaves[] = {
        {SQLITE_DBCONFIG_DEFENSIVE, 1},
        {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
        {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
        {SQLITE_DBCONFIG_ENABLE_FKEY, 0},
    };
    constexpr std::pair<int, int> Limites[] = {
        {SQLITE_LIMIT_LENGTH, 1 << 26},  // bytes of a value or row
        {SQLITE_LIMIT_SQL_LENGTH, 1 << 24},  {SQLITE_LIMIT_VDBE_OP, 1 << 22},
        {SQLITE_LIMIT_COMPOUND_SELECT, 100}, {SQLITE_LIMIT_ATTACHED, 0},
        {SQLITE_LIMIT_TRIGGER_DEPTH, 1},     {SQLITE_LIMIT_WORKER_THREADS, 0},
    };
    for (const auto& [chave, valor] : Chaves) {
        conexao.Conferir(sqlite3_db_config(conexao.Db(), chave, valor, nullptr));
    }
    for (const auto& [limite, valor] : Limites) {
        sqlite3_limit(conexao.Db(), limite, valor);
    }
    conexao.Executar("PRAGMA cell_size_check = ON");
}

std::shared_ptr<Conexao> Conectar(const char* endereco, int opcoes) {
    sqlite3* db = nullptr;
    const int estado = sqlite3_open_v2(endereco, &db, opcoes | SQLITE_OPEN_NOMUTEX, nullptr);
    ObjetoDeC<sqlite3_close> semDono(db);
    if (estado != SQLITE_OK) {
        LancarErroSQLite(db, estado);
    }
    auto conexao = std::make_shared<Conexao>(db, Conexao::Posse::Propria);
    static_cast<void>(semDono.release());
    return conexao;
}

}  // namespace

std::shared_ptr<Conexao> AbrirArquivo(const fs::path& arquivo, ModoAbertura modo) {
    const bool wal = UsaWal(arquivo);
    ExigirVizinhosComuns(arquivo);
    // In WAL mode even a reader writes files beside the database. Where that cannot be, the file is
    // read as it is: without a -wal nobody has changes to it that it does not hold yet.
    const bool imutavel = wal && !TemWal(arquivo) && !PodeEscrever(arquivo);

    // For reading alone, too, the file is opened for writing: only then does the last one to close
    // it take the -wal and -shm files away again. That nothing is written is seen to by Conexao.
    auto conexao =
        Conectar((Uri(arquivo) + (imutavel ? "?immutable=1" : "")).c_str(),
                 SQLITE_OPEN_URI | (imutavel ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE));
    Desconfiar(*conexao);
    conexao->Executar("PRAGMA temp_store = MEMORY; SELECT count(*) FROM sqlite_master");
    if (wal) {
        conexao->Executar("PRAGMA synchronous = NORMAL");
        conexao->PermitirLeituras();
    }
    if (modo == ModoAbertura::SomenteLeitura) {
        conexao->ProibirEscrita();
    }
    return conexao;
}

std::shared_ptr<Conexao> AbrirNovo(const fs::path& arquivo) {
    return Conectar(arquivo.c_str(), SQLITE_OPEN_READWRITE);
}

std::shared_ptr<Conexao> AbrirTemporario() {
    auto conexao = Conectar("", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    conexao->Executar("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    return conexao;
}

std::shared_ptr<Conexao> AbrirEmMemoria() {
    return Conectar(":memory:", SQLITE_OPEN_READWRITE);
}

}  // namespace tarvo::sqlite
