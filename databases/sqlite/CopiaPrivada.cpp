// SPDX-License-Identifier: MIT
#include "databases/sqlite/CopiaPrivada.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>
#include <string>

#include "data/CodigosDeErros.h"
#include "databases/sqlite/Abertura.h"
#include "system/files/Arquivos.h"
#include "system/files/Descritor.h"

namespace tarvo::sqlite {

namespace {

namespace fs = std::filesystem;

// Nothing of it outlives a crash, so nothing is done for that.
void Encher(const std::shared_ptr<Conexao>& conexao,
            const std::function<void(Preenchimento&)>& preencher) {
    conexao->Executar("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; BEGIN");
    {
        Preenchimento preenchimento(conexao);
        preencher(preenchimento);
    }
    CriarIndices(*conexao, Indices::ComChaves);
    conexao->Executar("COMMIT");
}

class EmMemoria final : public CopiaPrivada {
  public:
    explicit EmMemoria(const std::function<void(Preenchimento&)>& preencher) {
        const auto conexao = AbrirEmMemoria();
        Encher(conexao, preencher);
        sqlite3_int64 tamanho = 0;
        bytes_ = sqlite3_serialize(conexao->Db(), "main", &tamanho, 0);
        if (bytes_ == nullptr && tamanho > 0) {
            throw std::bad_alloc();
        }
        tamanho_ = static_cast<std::size_t>(tamanho);
    }
    ~EmMemoria() override { sqlite3_free(bytes_); }
    EmMemoria(const EmMemoria&) = delete;
    EmMemoria& operator=(const EmMemoria&) = delete;
};

class EmArquivo final : public CopiaPrivada {
  public:
    explicit EmArquivo(const std::function<void(Preenchimento&)>& preencher) {
        std::error_code erroDaPasta;
        const fs::path pasta = fs::temp_directory_path(erroDaPasta);
        if (erroDaPasta) {
            throw Erro(NumeroErro::CaminhoNaoEncontrado,
                       "A pasta de arquivos temporários (TMPDIR) não existe.");
        }
        std::string nome = (pasta / "tarvo-XXXXXX").string();
        const Descritor arquivo(mkostemp(nome.data(), O_CLOEXEC));  // mode 0600
        if (arquivo.Valor() < 0) {
            LancarErroDeArquivo(pasta, errno);
        }
        try {
            const auto conexao = AbrirSemNome(nome);
            Encher(conexao, preencher);
        } catch (const Erro& erro) {
            if (erro.Numero() == NumeroErro::DiscoCheio) {
                throw Erro(NumeroErro::DiscoCheio,
                           "Disco cheio na pasta de arquivos temporários \"" + pasta.string() +
                               "\" (TMPDIR).");
            }
            throw;
        }
        struct stat estado {};
        fstat(arquivo.Valor(), &estado);
        tamanho_ = static_cast<std::size_t>(estado.st_size);
        void* const mapa = mmap(nullptr, tamanho_, PROT_READ, MAP_SHARED, arquivo.Valor(), 0);
        if (mapa == MAP_FAILED) {
            LancarErroDeArquivo(pasta, errno);
        }
        bytes_ = static_cast<unsigned char*>(mapa);
    }
    ~EmArquivo() override { munmap(bytes_, tamanho_); }
    EmArquivo(const EmArquivo&) = delete;
    EmArquivo& operator=(const EmArquivo&) = delete;

  private:
    // The name goes as soon as the file is open, whether that succeeded or not.
    static std::shared_ptr<Conexao> AbrirSemNome(const std::string& nome) {
        try {
            auto conexao = AbrirNovo(nome);
            unlink(nome.c_str());
            return conexao;
        } catch (...) {
            unlink(nome.c_str());
            throw;
        }
    }
};

}  // namespace

std::shared_ptr<const CopiaPrivada> CopiaPrivada::Preencher(
    Lugar lugar, const std::function<void(Preenchimento&)>& preencher) {
    if (lugar == Lugar::Arquivo) {
        return std::make_shared<const EmArquivo>(preencher);
    }
    return std::make_shared<const EmMemoria>(preencher);
}

std::shared_ptr<Conexao> CopiaPrivada::Conectar(std::shared_ptr<const CopiaPrivada> copia) {
    // The connection goes first, then what it reads.
    auto aberta = AbrirEmMemoria();
    std::shared_ptr<Conexao> conexao(aberta.get(), [aberta, copia](Conexao*) mutable {
        aberta.reset();
        copia.reset();
    });
    const auto tamanho = static_cast<sqlite3_int64>(copia->tamanho_);
    conexao->Conferir(sqlite3_deserialize(conexao->Db(), "main", copia->bytes_, tamanho, tamanho,
                                          SQLITE_DESERIALIZE_READONLY));
    conexao->Executar("PRAGMA temp_store = MEMORY");
    conexao->ProibirEscrita();
    return conexao;
}

std::shared_ptr<Conexao> CopiaPrivada::ConectarOutra(const CopiaPrivada& copia) {
    auto conexao = AbrirEmMemoria();
    const auto tamanho = static_cast<sqlite3_int64>(copia.tamanho_);
    // SQLite frees it, on errors too.
    auto* const bytes = static_cast<unsigned char*>(sqlite3_malloc64(copia.tamanho_));
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    std::copy_n(copia.bytes_, copia.tamanho_, bytes);
    conexao->Conferir(
        sqlite3_deserialize(conexao->Db(), "main", bytes, tamanho, tamanho,
                            SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE));
    conexao->Executar("PRAGMA temp_store = MEMORY; PRAGMA journal_mode = MEMORY");
    return conexao;
}

std::unique_ptr<BancoSQLite> CopiaPrivada::Abrir(std::shared_ptr<const CopiaPrivada> copia) {
    return AbrirSobre(Conectar(std::move(copia)), TabelasDeTrabalho::Privadas);
}

}  // namespace tarvo::sqlite
