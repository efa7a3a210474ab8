// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "data/CodigosDeErros.h"
#include "databases/sqlite/BancoSQLite.h"
#include "dispatch/Catalogo.h"
#include "dispatch/Declaracoes.h"
#include "review/Revisao.h"
#include "slip/RelatorioVELO.h"

// Any bytes as a database file of a stranger's: looking for damages, the review and every report of
// its first declarations end, with pages or with an error that is not the library's own fault.
namespace tarvo::fuzz {

namespace {

constexpr std::size_t Declaracoes = 2;
constexpr std::size_t MaisPaginas = 20;

// Ends what takes long: the first question comes after some twentieth of a second.
class Impaciente final : public Andamento {
  public:
    bool PaginaConcluida(std::size_t paginas) override { return paginas < MaisPaginas; }
    bool Continuar(std::chrono::milliseconds /*aguardando*/) override { return false; }
};

template <class Acao>
void Tentar(Acao acao) {
    try {
        acao();
    } catch (const Erro& erro) {
        if (erro.Numero() == NumeroErro::ErroInterno) {
            std::abort();
        }
    }
}

void Percorrer(BancoDados& banco) {
    Impaciente andamento;
    const Ambiente ambiente{.andamento = &andamento};
    banco.Acompanhar(&andamento);
    Tentar([&] { banco.Danos(); });
    Tentar([&] { RevisarBanco(banco); });
    Tentar([&] { RelatorioVELO(ambiente).Construir(banco); });
    std::vector<Declaracao> declaracoes;
    Tentar([&] { declaracoes = LerDeclaracoes(banco); });
    for (std::size_t i = 0; i < std::min(declaracoes.size(), Declaracoes); ++i) {
        const std::string IE = declaracoes[i].IE.value_or("1");
        const std::int32_t numero = declaracoes[i].NroDRQ;
        Tentar([&] { Revisar(banco, {.IE = IE, .NroDRQ = numero}); });
        for (const EntradaCatalogo& entrada : Catalogo()) {
            Tentar([&] { entrada.criar(ambiente)->Construir(banco, IE, numero); });
        }
    }
}

}  // namespace

}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    using namespace tarvo;
    static const auto arquivo =
        std::filesystem::temp_directory_path() / ("tarvo-fuzz-" + std::to_string(::getpid()));
    std::ofstream(arquivo, std::ios::binary)
        << std::string_view(reinterpret_cast<const char*>(dados), tamanho);
    fuzz::Tentar([&] {
        fuzz::Percorrer(
            *BancoSQLite::Abrir(arquivo, {.tabelasDeTrabalho = TabelasDeTrabalho::Privadas}));
    });
    std::filesystem::remove(arquivo);
    return 0;
}
