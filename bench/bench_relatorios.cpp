// SPDX-License-Identifier: MIT
// What building the reports that refill a work table costs. CPU time is what counts: the time of
// the disk is not the report's.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/BancoDeBench.h"
#include "reports/RelatorioApuracaoOpProp.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "reports/RelatorioResumoCFOPsSai.h"

namespace tarvo {
namespace {

class Referencia2003 : public Configuracoes {
    std::string Ler(std::string_view /*aplicacao*/, std::string_view /*secao*/,
                    std::string_view /*chave*/, std::string_view /*padrao*/) const override {
        return "01/2003";
    }
};

// Declaration 1, among nine others: 40 sub-items, 30 of them of own operations (so that its
// assessment has 52 lines), and as many CFOP details as asked for.
std::string Declaracoes(std::int64_t detalhes) {
    return R"sql(
insert into tblContribuinte (IE) values ('1');
with recursive n(i) as (select 1 union all select i + 1 from n where i < 10)
insert into tblDRQ (NroDRQ, Ref1, RegTrib, SaldoCredAntDig, SaldoCredAntDigST)
    select i, '2003-07-01', '01', 0, 0 from n;
with recursive k(j) as (select 0 union all select j + 1 from k where j < 39)
insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias)
    select NroDRQ, '00' || substr('2378', 1 + j % 4, 1) || '.' || (j + 10), NroDRQ * 100 + j,
           j * 12345, -(j < 30) from tblDRQ, k;
with recursive k(j) as (select 1 union all select j + 1 from k where j < )sql" +
           std::to_string(detalhes) + R"sql()
insert into tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo, Imposto, ImpostoRetidoST)
    select NroDRQ, (5 + j % 3) || '.' || (101 + j % 560), j * 1234, j * 1000, j * 180, j
    from tblDRQ, k;
)sql";
}

template <class R>
void Construir(benchmark::State& estado, TabelasDeTrabalho onde, std::int64_t detalhes) {
    BancoDeBench arquivo(Declaracoes(detalhes));
    const auto banco = arquivo.Abrir(onde);
    const Referencia2003 referencia;
    R relatorio({.configuracoes = &referencia});
    for ([[maybe_unused]] auto _ : estado) {
        relatorio.Construir(*banco, "1", 1);
        benchmark::DoNotOptimize(relatorio.Documento());
    }
    estado.counters["paginas"] = static_cast<double>(relatorio.Documento().paginas.size());
}

void ApuracaoOpProp(benchmark::State& estado, TabelasDeTrabalho onde) {
    Construir<RelatorioApuracaoOpProp>(estado, onde, 60);
}

void ApuracaoSubTrib(benchmark::State& estado, TabelasDeTrabalho onde) {
    Construir<RelatorioApuracaoSubTrib>(estado, onde, 60);
}

void ResumoCFOPs(benchmark::State& estado, TabelasDeTrabalho onde) {
    Construir<RelatorioResumoCFOPsSai>(estado, onde, estado.range(0));
    estado.SetComplexityN(estado.range(0));
}

constexpr auto Ms = benchmark::kMillisecond;
BENCHMARK_CAPTURE(ApuracaoOpProp, NoBanco, TabelasDeTrabalho::NoBanco)->Unit(Ms);
BENCHMARK_CAPTURE(ApuracaoOpProp, Privadas, TabelasDeTrabalho::Privadas)->Unit(Ms);
BENCHMARK_CAPTURE(ApuracaoSubTrib, NoBanco, TabelasDeTrabalho::NoBanco)->Unit(Ms);
BENCHMARK_CAPTURE(ResumoCFOPs, Privadas, TabelasDeTrabalho::Privadas)
    ->Unit(Ms)
    ->Arg(625)
    ->Arg(1250)
    ->Arg(2500)
    ->Arg(5000)
    ->Complexity();
BENCHMARK_CAPTURE(ResumoCFOPs, NoBanco, TabelasDeTrabalho::NoBanco)
    ->Unit(Ms)
    ->Arg(1250)
    ->Arg(5000)
    ->Iterations(2);

}  // namespace
}  // namespace tarvo

BENCHMARK_MAIN();
