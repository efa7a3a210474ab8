// SPDX-License-Identifier: MIT
#include "host/batch/HashDeDados.h"

#include <fcntl.h>
#include <unistd.h>
#include <xxhash.h>

#include <array>
#include <cstring>
#include <new>
#include <type_traits>

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/ObjetoDeC.h"
#include "system/files/Descritor.h"

namespace tarvo::host {

namespace {

constexpr const char* TabelasComuns[] = {"tblQuadroOcorrências", "tblEstados",
                                         "tblMunicípiosZFM_ALC", "tblMunicípios",
                                         "tblCódigosMIDAX",      "tblVELO"};
constexpr const char* TabelasDaDeclaracao[] = {
    "tblDRQ",         "tblDetalhesCFOPs", "tblDetalhesInterUFs",   "tblZFM_ALC",
    "tblOcorrências", "tblMIDAX",         "tblRegistroExportação", "tblPagamento"};
// Those of the declaration's rows in tblOcorrências.
constexpr const char* TabelasDasOcorrencias[] = {"tblIEsRemetente", "tblRecibosCredito",
                                                 "tblIESubstituido", "tblIESubstituto"};

class Hash {
  public:
    Hash() {
        if (estado_ == nullptr) {
            throw std::bad_alloc();
        }
        XXH3_128bits_reset(estado_.get());
    }
    void Acrescentar(std::string_view bytes) {
        XXH3_128bits_update(estado_.get(), bytes.data(), bytes.size());
    }
    // So that neighbours cannot pass for each other.
    void AcrescentarTexto(std::string_view texto) {
        AcrescentarNumero(texto.size());
        Acrescentar(texto);
    }
    template <class Numero>
    void AcrescentarNumero(Numero numero) {
        std::array<char, sizeof numero> bytes{};
        std::memcpy(bytes.data(), &numero, sizeof numero);
        Acrescentar({bytes.data(), bytes.size()});
    }
    [[nodiscard]] std::string EmHexadecimal() const {
        constexpr std::string_view Digitos = "0123456789abcdef";
        XXH128_canonical_t canonico;
        XXH128_canonicalFromHash(&canonico, XXH3_128bits_digest(estado_.get()));
        std::string texto;
        for (const unsigned char byte : canonico.digest) {
            texto += Digitos[byte >> 4U];
            texto += Digitos[byte & 0xFU];
        }
        return texto;
    }

  private:
    ObjetoDeC<XXH3_freeState> estado_{XXH3_createState()};
};

void AcrescentarValor(Hash& hash, const Valor& valor) {
    hash.AcrescentarNumero(static_cast<std::uint8_t>(valor.index()));
    std::visit(
        [&](const auto& v) {
            using Tipo = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<Tipo, std::string>) {
                hash.AcrescentarTexto(v);
            } else if constexpr (std::is_same_v<Tipo, Moeda>) {
                hash.AcrescentarNumero(v.DecimosMilesimos());
            } else if constexpr (std::is_same_v<Tipo, Data>) {
                hash.AcrescentarNumero(v.Serial());
            } else if constexpr (!std::is_same_v<Tipo, Nulo>) {
                hash.AcrescentarNumero(v);
            }
        },
        valor);
}

// What cannot be read makes pages too, as an error: its number stands for it.
template <class Leitura>
void AcrescentarOuErro(Hash& hash, Leitura&& leitura) {
    try {
        leitura();
    } catch (const Erro& erro) {
        hash.AcrescentarNumero(static_cast<int>(erro.Numero()));
    }
}

int QuantasColunas(Recordset& linhas) {
    for (int n = 0;; ++n) {
        try {
            (void)linhas.Fields(n);
        } catch (const Erro&) {
            return n;
        }
    }
}

std::string ConsultaLinhas(const std::string& tabela, const std::string& daDeclaracao) {
    return "select * from " + tabela + " where " + daDeclaracao;
}

std::string ConsultaDetalhes(const std::string& tabela, const std::string& daDeclaracao) {
    return "select " + tabela + ".* from " + tabela + ", tblOcorrências where " + tabela +
           ".Código = tblOcorrências.Código and tblOcorrências." + daDeclaracao;
}

void AcrescentarLinhas(Hash& hash, BancoDados& banco, const std::string& consulta) {
    hash.AcrescentarTexto(consulta);
    AcrescentarOuErro(hash, [&] {
        const auto linhas = banco.OpenRecordset(consulta, TipoRecordset::ForwardOnly);
        const int colunas = linhas->EOF_() ? 0 : QuantasColunas(*linhas);
        for (; !linhas->EOF_(); linhas->MoveNext()) {
            for (int i = 0; i < colunas; ++i) {
                AcrescentarOuErro(hash, [&] { AcrescentarValor(hash, linhas->Fields(i)); });
            }
        }
    });
}

}  // namespace

std::string HashDosDadosComuns(BancoDados& banco) {
    Hash hash;
    for (const std::string tabela : TabelasComuns) {
        AcrescentarLinhas(hash, banco, "select * from " + tabela);
    }
    return hash.EmHexadecimal();
}

std::string HashDaDeclaracao(BancoDados& banco, const std::string& IE, std::int32_t NroDRQ,
                             std::string_view comuns) {
    const std::string daDeclaracao = "NroDRQ = " + std::to_string(NroDRQ);
    Hash hash;
    hash.AcrescentarTexto(comuns);
    AcrescentarLinhas(hash, banco, ConsultaContribuinte(IE));
    for (const std::string tabela : TabelasDaDeclaracao) {
        AcrescentarLinhas(hash, banco, ConsultaLinhas(tabela, daDeclaracao));
    }
    for (const std::string tabela : TabelasDasOcorrencias) {
        AcrescentarLinhas(hash, banco, ConsultaDetalhes(tabela, daDeclaracao));
    }
    return hash.EmHexadecimal();
}

std::uint64_t HashCurto(std::string_view texto) {
    return XXH3_64bits(texto.data(), texto.size());
}

std::string HashDeTexto(std::string_view texto) {
    Hash hash;
    hash.Acrescentar(texto);
    return hash.EmHexadecimal();
}

std::string HashDeArquivos(std::span<const std::filesystem::path> arquivos) {
    Hash hash;
    std::array<char, 65'536> bloco{};
    for (const auto& arquivo : arquivos) {
        const Descritor entrada(
            ::open(arquivo.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        ssize_t lidos = -1;
        while (entrada.Valor() >= 0 &&
               (lidos = ::read(entrada.Valor(), bloco.data(), bloco.size())) > 0) {
            hash.Acrescentar({bloco.data(), static_cast<std::size_t>(lidos)});
        }
        if (lidos != 0) {
            return {};
        }
    }
    return hash.EmHexadecimal();
}

}  // namespace tarvo::host
