#include "platform/sqlite/Abertura.h"

#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

constexpr int EsperaPorBloqueioMs = 2000;

[[noreturn]] void Lancar(NumeroErro numero, const fs::path& arquivo, std::string_view problema) {
    throw Erro(numero, "\"" + arquivo.string() + "\": " + std::string(problema) + ".");
}

// The first bytes of a database file.
class Cabecalho {
  public:
    // Errors 3024, 70, 3343.
    explicit Cabecalho(const fs::path& arquivo) {
        std::error_code erro;
        const fs::file_status estado = fs::status(arquivo, erro);
        if (estado.type() == fs::file_type::not_found) {
            Lancar(NumeroErro::BancoNaoEncontrado, arquivo, "o banco de dados não existe");
        }
        if (erro || access(arquivo.c_str(), R_OK) != 0) {
            Lancar(NumeroErro::PermissaoNegada, arquivo, "permissão negada");
        }
        if (estado.type() != fs::file_type::regular) {
            Lancar(NumeroErro::BancoIrreconhecivel, arquivo, "não é um arquivo de banco de dados");
        }
        std::ifstream(arquivo, std::ios::binary).read(bytes_.data(), bytes_.size());
        if (std::string_view(bytes_.data(), Marca.size()) != Marca) {
            Lancar(NumeroErro::BancoIrreconhecivel, arquivo, "não é um banco de dados");
        }
    }

    [[nodiscard]] bool UsaWal() const { return Numero(18, 1) == 2; }
    // Bytes that the file must have; 0 when the header does not say.
    [[nodiscard]] std::uint64_t Tamanho() const {
        const std::uint64_t pagina = Numero(16, 2) == 1 ? 65536 : Numero(16, 2);
        const bool valido = Numero(24, 4) == Numero(92, 4);
        return valido ? pagina * Numero(28, 4) : 0;
    }

  private:
    static constexpr std::string_view Marca{"SQLite format 3\0", 16};

    [[nodiscard]] std::uint64_t Numero(std::size_t inicio, std::size_t bytes) const {
        std::uint64_t numero = 0;
        for (std::size_t i = 0; i < bytes; ++i) {
            numero = numero << 8U | static_cast<unsigned char>(bytes_.at(inicio + i));
        }
        return numero;
    }

    std::array<char, 100> bytes_{};
};

bool TemWal(const fs::path& arquivo) {
    std::error_code ignorado;
    return fs::exists(fs::path(arquivo) += "-wal", ignorado);
}

bool PodeEscrever(const fs::path& arquivo) {
    const fs::path pasta = fs::absolute(arquivo).parent_path();
    return access(arquivo.c_str(), W_OK) == 0 && access(pasta.c_str(), W_OK) == 0;
}

// The file's name as a URI: everything but letters, digits and "/" is written in hexadecimal.
std::string Uri(const fs::path& arquivo) {
    constexpr std::string_view Digitos = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : fs::absolute(arquivo).string()) {
        const auto byte = static_cast<unsigned char>(c);
        if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
            c == '/') {
            uri += c;
        } else {
            uri += {'%', Digitos[byte >> 4U], Digitos[byte & 0xFU]};
        }
    }
    return uri;
}

}  // namespace

std::shared_ptr<Conexao> AbrirArquivo(const fs::path& arquivo, ModoAbertura modo) {
    const Cabecalho cabecalho(arquivo);
    std::error_code ignorado;
    if (!TemWal(arquivo) && fs::file_size(arquivo, ignorado) < cabecalho.Tamanho()) {
        Lancar(NumeroErro::BancoIrreconhecivel, arquivo, "o banco de dados está truncado");
    }
    // In WAL mode even a reader writes files beside the database. Where that cannot be, the file is
    // read as it is: without a -wal nobody has changes to it that it does not hold yet.
    const bool imutavel = cabecalho.UsaWal() && !TemWal(arquivo) && !PodeEscrever(arquivo);

    // For reading alone, too, the file is opened for writing: only then does the last one to close
    // it take the -wal and -shm files away again. That nothing is written is seen to by Conexao.
    sqlite3* db = nullptr;
    const int estado =
        sqlite3_open_v2((Uri(arquivo) + (imutavel ? "?immutable=1" : "")).c_str(), &db,
                        SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX |
                            (imutavel ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE),
                        nullptr);
    auto conexao = std::make_shared<Conexao>(db, Conexao::Posse::Propria);
    if (estado != SQLITE_OK) {
        LancarErroSQLite(db);
    }
    sqlite3_busy_timeout(db, EsperaPorBloqueioMs);
    conexao->Executar("PRAGMA temp_store = MEMORY; SELECT count(*) FROM sqlite_master");
    if (cabecalho.UsaWal()) {
        conexao->Executar("PRAGMA synchronous = NORMAL");
    }
    if (modo == ModoAbertura::SomenteLeitura) {
        conexao->ProibirEscrita();
    }
    return conexao;
}

}  // namespace tarvo
