// SPDX-License-Identifier: MIT
#include "databases/mdb/reader/LeituraDoArquivo.h"

#include <sys/mman.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace tarvo::mdb {

namespace {

constexpr std::uint32_t PaginaDoCatalogo = 2;
constexpr std::uint32_t PaginaDoObjeto = 0x00FFFFFF;
// The part of the file that was read needs no memory any more.
constexpr std::uint32_t LinhasAteSoltar = 50'000;

using TextoDaGlib = std::unique_ptr<char, LiberadorDeC<g_free>>;

std::string SemCaixa(const std::string& texto) {
    const TextoDaGlib outra(g_utf8_casefold(texto.c_str(), -1));
    return outra.get();
}

bool MesmoNome(const std::string& um, const std::string& outro) {
    return um == outro || SemCaixa(um) == SemCaixa(outro);
}

std::size_t ProcurarColuna(const TabelaMdb& tabela, const std::string& nome) {
    const auto colunas = tabela.Colunas();
    const auto achada = std::ranges::find_if(
        colunas, [&](const MdbColumn* coluna) { return MesmoNome(coluna->name, nome); });
    return static_cast<std::size_t>(achada - colunas.begin());
}

// A number of the file; what is shorter than its type cannot be one.
template <class T>
T LerNumero(std::span<const unsigned char> bytes) {
    if (bytes.size() < sizeof(T)) {
        throw Recusado{Motivo::Danificado};
    }
    T numero{};
    std::memcpy(&numero, bytes.data(), sizeof numero);
    return numero;
}

template <class T>
void EnviarNumero(Tipo tipo, T numero, Emissor& emissor) {
    emissor.Escrever(tipo);
    emissor.Escrever(numero);
}

}  // namespace

LeituraDoArquivo::LeituraDoArquivo(std::span<unsigned char> bytes,
                                   const Decodificador& decodificador)
    : decodificador_(decodificador), bytes_(bytes) {
    constexpr std::size_t LugarDaVersao = 0x14;
    if (bytes.size() <= LugarDaVersao) {
        throw Recusado{Motivo::Danificado};
    }
    if (bytes[LugarDaVersao] > MDB_VER_ACCDB_2019) {
        throw Recusado{Motivo::VersaoDesconhecida};
    }
    mdb_.reset(mdb_open_buffer(bytes.data(), bytes.size(), MDB_NOFLAGS));
    if (!mdb_) {
        throw Recusado{Motivo::Danificado};
    }
    ConferirProtecao();
}

// Right after opening, the page buffer holds the file's header in the clear.
void LeituraDoArquivo::ConferirProtecao() const {
    constexpr std::size_t LugarDaSenha = 0x42;
    constexpr std::size_t LugarDaCriacao = 0x72;
    if (mdb_->f->db_key != 0) {
        throw Recusado{Motivo::Criptografado};
    }
    std::array<unsigned char, 4> mascara{};
    std::size_t tamanho = 20;
    if (!IS_JET3(mdb_)) {
        // The day on which the file was made hides the password.
        tamanho = 40;
        const auto dia =
            LerNumero<double>(std::span(mdb_->pg_buf).subspan(LugarDaCriacao, sizeof(double)));
        if (dia > 0 && dia < INT32_MAX) {
            const auto inteiro = static_cast<std::int32_t>(dia);
            std::memcpy(mascara.data(), &inteiro, sizeof inteiro);
        }
    }
    for (std::size_t i = 0; i < tamanho; ++i) {
        if ((mdb_->pg_buf[LugarDaSenha + i] ^ mascara[i % mascara.size()]) != 0) {
            throw Recusado{Motivo::ComSenha};
        }
    }
}

std::map<std::uint16_t, std::uint32_t> LeituraDoArquivo::LerCatalogo(
    std::span<const Pedido> pedidos) {
    TabelaMdb catalogo(*mdb_, PaginaDoCatalogo);
    const std::size_t id = ProcurarColuna(catalogo, "Id");
    const std::size_t nome = ProcurarColuna(catalogo, "Name");
    const std::size_t tipo = ProcurarColuna(catalogo, "Type");
    if (std::max({id, nome, tipo}) >= catalogo.Colunas().size()) {
        throw Recusado{Motivo::Danificado};
    }
    std::map<std::uint16_t, std::uint32_t> paginas;
    const auto lidas = catalogo.Percorrer([&] {
        const int classe = LerNumero<std::int16_t>(catalogo.Bytes(tipo)) & 0x7F;
        const bool vinculada = classe == MDB_LINKED_TABLE || classe == MDB_FORM + 4;
        if (classe != MDB_TABLE && !vinculada) {
            return;
        }
        std::string este;
        Decodificar(catalogo.Bytes(nome), este);
        const auto achado = std::ranges::find_if(
            pedidos, [&](const Pedido& pedido) { return MesmoNome(pedido.tabela, este); });
        if (achado == pedidos.end()) {
            return;
        }
        const auto lugar = static_cast<std::uint16_t>(achado - pedidos.begin());
        if (vinculada) {
            throw Recusado{Motivo::TabelaVinculada, lugar};
        }
        paginas[lugar] = LerNumero<std::uint32_t>(catalogo.Bytes(id)) & PaginaDoObjeto;
    });
    // Otherwise a table might be missing without a trace.
    if (lidas != catalogo.LinhasDeclaradas()) {
        throw Recusado{Motivo::Danificado};
    }
    return paginas;
}

void LeituraDoArquivo::Enviar(std::span<const Pedido> pedidos, Emissor& emissor) {
    struct Contagem {
        std::uint16_t tabela;
        std::uint32_t linhas;
        std::uint32_t ilegiveis;
    };
    std::vector<Contagem> contagens;
    for (const auto& [lugar, pagina] : LerCatalogo(pedidos)) {
        TabelaMdb tabela(*mdb_, pagina);
        std::vector<Coluna> colunas;
        for (std::size_t i = 0; i < pedidos[lugar].colunas.size(); ++i) {
            const std::size_t indice = ProcurarColuna(tabela, pedidos[lugar].colunas[i]);
            if (indice < tabela.Colunas().size()) {
                colunas.push_back({indice, static_cast<std::uint8_t>(i)});
            }
        }
        emissor.Abrir(Quadro::Tabela);
        emissor.Escrever(lugar);
        emissor.Escrever(tabela.LinhasDeclaradas());
        emissor.Escrever(static_cast<std::uint8_t>(colunas.size()));
        for (const Coluna& coluna : colunas) {
            emissor.Escrever(coluna.pedida);
        }
        emissor.Fechar();
        ilegiveis_ = 0;
        const auto linhas = tabela.Percorrer([&] {
            emissor.Abrir(Quadro::Linha);
            for (const Coluna& coluna : colunas) {
                EnviarValor(tabela, coluna.indice, emissor);
            }
            emissor.Fechar();
            if (++linhasEnviadas_ % LinhasAteSoltar == 0) {
                madvise(bytes_.data(), bytes_.size(), MADV_DONTNEED);
            }
        });
        contagens.push_back({lugar, linhas, ilegiveis_});
    }
    emissor.Abrir(Quadro::Fim);
    emissor.Escrever(static_cast<std::uint16_t>(contagens.size()));
    for (const Contagem& contagem : contagens) {
        emissor.Escrever(contagem.tabela);
        emissor.Escrever(contagem.linhas);
        emissor.Escrever(contagem.ilegiveis);
    }
    emissor.Fechar();
}

void LeituraDoArquivo::EnviarValor(TabelaMdb& tabela, std::size_t indice, Emissor& emissor) {
    const MdbColumn& coluna = *tabela.Colunas()[indice];
    if (coluna.col_type == MDB_BOOL) {
        EnviarNumero(Tipo::Booleano, static_cast<std::uint8_t>(tabela.Nulo(indice) ? 0 : 1),
                     emissor);
        return;
    }
    const auto bytes = tabela.Bytes(indice);
    if (bytes.empty()) {
        emissor.Escrever(Tipo::Nulo);
        return;
    }
    switch (coluna.col_type) {
        case MDB_BYTE:
            return EnviarNumero(Tipo::Longo, std::int32_t{bytes[0]}, emissor);
        case MDB_INT:
            return EnviarNumero(Tipo::Longo, std::int32_t{LerNumero<std::int16_t>(bytes)}, emissor);
        case MDB_LONGINT:
            return EnviarNumero(Tipo::Longo, LerNumero<std::int32_t>(bytes), emissor);
        case MDB_MONEY:
            return EnviarNumero(Tipo::Moeda, LerNumero<std::int64_t>(bytes), emissor);
        case MDB_FLOAT:
            return EnviarNumero(Tipo::Duplo, double{LerNumero<float>(bytes)}, emissor);
        case MDB_DOUBLE:
            return EnviarNumero(Tipo::Duplo, LerNumero<double>(bytes), emissor);
        case MDB_DATETIME:
            return EnviarNumero(Tipo::Data, LerNumero<double>(bytes), emissor);
        case MDB_NUMERIC: {
            if (bytes.size() < 17) {
                throw Recusado{Motivo::Danificado};
            }
            const TextoDaGlib numero(mdb_numeric_to_string(mdb_.get(), tabela.Inicio(indice),
                                                           coluna.col_scale, coluna.col_prec));
            emissor.Escrever(Tipo::Decimal);
            return emissor.EscreverTexto(numero.get());
        }
        case MDB_TEXT:
        case MDB_MEMO:
            return EnviarTexto(bytes, emissor);
        default:
            emissor.Escrever(Tipo::Binario);
    }
}

void LeituraDoArquivo::EnviarTexto(std::span<const unsigned char> bytes, Emissor& emissor) {
    texto_.clear();
    ilegiveis_ += Decodificar(bytes, texto_) ? 0 : 1;
    if (texto_.empty()) {
        emissor.Escrever(Tipo::Nulo);
        return;
    }
    emissor.Escrever(Tipo::Texto);
    emissor.EscreverTexto(texto_);
}

bool LeituraDoArquivo::Decodificar(std::span<const unsigned char> bytes, std::string& utf8) const {
    return IS_JET3(mdb_) ? decodificador_.DaCodificacao(bytes, utf8)
                         : Decodificador::DeUnicode(bytes, utf8);
}

}  // namespace tarvo::mdb
