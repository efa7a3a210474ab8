// SPDX-License-Identifier: MIT
#include "databases/OrigemBanco.h"

#include "databases/CopiarBanco.h"
#include "databases/mdb/LeituraMdb.h"
#include "databases/postgresql/BancoPostgreSQL.h"
#include "databases/postgresql/Endereco.h"
#include "databases/sqlite/Abertura.h"
#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/CopiaPrivada.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

// What tells one state of a file from another.
struct Marca {
    std::uintmax_t bytes = 0;
    fs::file_time_type mudanca;
    friend bool operator==(const Marca&, const Marca&) = default;
};

Marca MarcaDe(const fs::path& arquivo) {
    std::error_code ignorado;
    return {fs::file_size(arquivo, ignorado), fs::last_write_time(arquivo, ignorado)};
}

}  // namespace

struct OrigemBanco::Partes {
    std::string endereco;
    OpcoesAbertura opcoes;
    bool noServidor = false;
    // Of a copy:
    std::shared_ptr<const sqlite::CopiaPrivada> copia;
    std::vector<std::string> avisos;
    std::chrono::system_clock::time_point lidaEm;
    Marca marca;
};

OrigemBanco::OrigemBanco(std::string endereco, OpcoesAbertura opcoes)
    : partes_(std::make_unique<Partes>()) {
    if (postgresql::EhEndereco(endereco)) {
        static_cast<void>(postgresql::Mostrado(endereco));  // error 5 at once
        partes_->noServidor = true;
    } else if (mdb::EhArquivoMdb(endereco)) {
        partes_->marca = MarcaDe(endereco);
        partes_->lidaEm = std::chrono::system_clock::now();
        auto leitura = mdb::LerArquivoMdb(endereco, opcoes.codificacao, opcoes.acompanhante);
        partes_->copia = std::move(leitura.copia);
        partes_->avisos = std::move(leitura.avisos);
    }
    partes_->endereco = std::move(endereco);
    partes_->opcoes = std::move(opcoes);
}

OrigemBanco::~OrigemBanco() = default;
OrigemBanco::OrigemBanco(OrigemBanco&&) noexcept = default;
OrigemBanco& OrigemBanco::operator=(OrigemBanco&&) noexcept = default;

std::unique_ptr<BancoDados> OrigemBanco::Abrir() const {
    if (partes_->copia) {
        return sqlite::CopiaPrivada::Abrir(partes_->copia);
    }
    if (partes_->noServidor) {
        return postgresql::Abrir(partes_->endereco, partes_->opcoes.acompanhante);
    }
    return BancoSQLite::Abrir(partes_->endereco, partes_->opcoes);
}

const std::vector<std::string>& OrigemBanco::Avisos() const {
    return partes_->avisos;
}

std::optional<std::chrono::system_clock::time_point> OrigemBanco::LidaEm() const {
    return partes_->copia ? std::optional(partes_->lidaEm) : std::nullopt;
}

bool OrigemBanco::Mudou() const {
    return partes_->copia && MarcaDe(partes_->endereco) != partes_->marca;
}

Acompanhante* OrigemBanco::QuemAcompanha() const {
    return partes_->opcoes.acompanhante;
}

std::shared_ptr<sqlite::Conexao> OrigemBanco::Conectar(const SelecaoDaCopia& selecao) const {
    auto conexao =
        partes_->noServidor
            ? postgresql::LerTudo(partes_->endereco, selecao.IE, selecao.NroDRQ, QuemAcompanha())
        : partes_->copia ? sqlite::CopiaPrivada::Conectar(partes_->copia)
                         : sqlite::AbrirArquivo(partes_->endereco, ModoAbertura::SomenteLeitura);
    conexao->Acompanhar(QuemAcompanha());
    return conexao;
}

}  // namespace tarvo
