// SPDX-License-Identifier: MIT
#include "databases/mdb/reader/TabelaMdb.h"

#include <cstring>

namespace tarvo::mdb {

namespace {

constexpr int LugarNaPagina = 0x1FFF;
// A row that was deleted, or moved here from where a pointer to it is left.
constexpr int ForaDoLugar = 0x8000;
constexpr int Ponteiro = 0x4000;

constexpr std::uint32_t MemoNaLinha = 0x80000000;
constexpr std::uint32_t MemoNumaPagina = 0x40000000;
constexpr std::size_t CabecalhoDoMemo = 12;

std::uint32_t LerNumero(const unsigned char* bytes) {
    std::uint32_t numero = 0;
    std::memcpy(&numero, bytes, sizeof numero);
    return numero;
}

}  // namespace

TabelaMdb::TabelaMdb(MdbHandle& mdb, std::uint32_t pagina) : mdb_(mdb) {
    entrada_.mdb = &mdb;
    entrada_.object_type = MDB_TABLE;
    entrada_.table_pg = pagina;
    tabela_.reset(mdb_read_table(&entrada_));
    if (!tabela_ || mdb_read_columns(tabela_.get()) == nullptr ||
        tabela_->columns->len != tabela_->num_cols) {
        throw Recusado{Motivo::Danificado};
    }
    campos_.resize(tabela_->num_cols);
}

std::span<MdbColumn* const> TabelaMdb::Colunas() const {
    return {reinterpret_cast<MdbColumn* const*>(tabela_->columns->pdata), tabela_->num_cols};
}

std::uint32_t TabelaMdb::Percorrer(const std::function<void()>& visitar) {
    std::uint32_t lidas = 0;
    mdb_rewind_table(tabela_.get());
    while (mdb_read_next_dpg(tabela_.get()) != 0) {
        const auto pagina = mdb_.cur_pg;
        const int linhas = mdb_get_int16(mdb_.pg_buf, mdb_.fmt->row_count_offset);
        for (int linha = 0; linha < linhas; ++linha) {
            if (LerLinha(static_cast<unsigned>(linha))) {
                ++lidas;
                visitar();
            }
            if (mudada_) {
                mudada_ = false;
                mdb_read_alt_pg(&mdb_, pagina);
                mdb_swap_pgbuf(&mdb_);
            }
        }
    }
    return lidas;
}

bool TabelaMdb::LerLinha(unsigned linha) {
    int inicio = 0;
    std::size_t tamanho = 0;
    if (mdb_find_row(&mdb_, static_cast<int>(linha), &inicio, &tamanho) != 0 || tamanho == 0 ||
        (inicio & ForaDoLugar) != 0) {
        return false;
    }
    const int lugar = inicio & LugarNaPagina;
    if ((inicio & Ponteiro) == 0) {
        Separar(lugar, tamanho);
    } else if (tamanho >= sizeof(std::uint32_t)) {
        LerLinhaMudada(LerNumero(mdb_.pg_buf + lugar));
    } else {
        throw Recusado{Motivo::Danificado};
    }
    return true;
}

void TabelaMdb::LerLinhaMudada(std::uint32_t ponteiro) {
    int inicio = 0;
    std::size_t tamanho = 0;
    if (mdb_read_alt_pg(&mdb_, ponteiro >> 8U) != mdb_.fmt->pg_size) {
        throw Recusado{Motivo::Danificado};
    }
    mdb_swap_pgbuf(&mdb_);
    mudada_ = true;
    if (mdb_find_row(&mdb_, static_cast<int>(ponteiro & 0xFFU), &inicio, &tamanho) != 0 ||
        tamanho == 0) {
        throw Recusado{Motivo::Danificado};
    }
    Separar(inicio & LugarNaPagina, tamanho);
}

void TabelaMdb::Separar(int inicio, std::size_t tamanho) {
    const int colunasDaLinha = mdb_crack_row(tabela_.get(), inicio, tamanho, campos_.data());
    if (colunasDaLinha < 0) {
        throw Recusado{Motivo::Danificado};
    }
    for (std::size_t c = 0; c < campos_.size(); ++c) {
        MdbField& campo = campos_[c];
        // A column that was added after the row is not in it.
        if (Colunas()[c]->col_num >= colunasDaLinha) {
            campo.is_null = 1;
        }
        const bool cabe = campo.start >= 0 && campo.siz >= 0 &&
                          campo.start + campo.siz <= static_cast<int>(mdb_.fmt->pg_size);
        if (campo.is_null == 0 && !cabe) {
            throw Recusado{Motivo::Danificado};
        }
    }
}

std::span<const unsigned char> TabelaMdb::Bytes(std::size_t coluna) {
    const MdbField& campo = campos_[coluna];
    if (campo.is_null != 0) {
        return {};
    }
    const std::span<const unsigned char> bytes(mdb_.pg_buf + campo.start,
                                               static_cast<std::size_t>(campo.siz));
    const bool memo = Colunas()[coluna]->col_type == MDB_MEMO;
    return memo && !bytes.empty() ? Memo(bytes) : bytes;
}

std::span<const unsigned char> TabelaMdb::Memo(std::span<const unsigned char> cabecalho) {
    if (cabecalho.size() < CabecalhoDoMemo) {
        throw Recusado{Motivo::Danificado};
    }
    const std::uint32_t onde = LerNumero(cabecalho.data());
    const std::size_t tamanho = onde & ~(MemoNaLinha | MemoNumaPagina);
    if ((onde & MemoNaLinha) != 0) {
        const auto texto = cabecalho.subspan(CabecalhoDoMemo);
        if (texto.size() < tamanho) {
            throw Recusado{Motivo::Danificado};
        }
        return texto.first(tamanho);
    }
    memo_.clear();
    std::uint32_t ponteiro = LerNumero(cabecalho.data() + 4);
    const std::size_t antes = (onde & MemoNumaPagina) != 0 ? 0 : sizeof ponteiro;
    while (memo_.size() < tamanho) {
        void* pagina = nullptr;
        int inicio = 0;
        std::size_t pedaco = 0;
        if (ponteiro == 0 ||
            mdb_find_pg_row(&mdb_, static_cast<int>(ponteiro), &pagina, &inicio, &pedaco) != 0 ||
            pedaco <= antes) {
            throw Recusado{Motivo::Danificado};
        }
        const auto* bytes = static_cast<const unsigned char*>(pagina) + inicio;
        ponteiro = antes == 0 ? 0 : LerNumero(bytes);
        memo_.insert(memo_.end(), bytes + antes, bytes + pedaco);
    }
    memo_.resize(tamanho);
    return memo_;
}

}  // namespace tarvo::mdb
