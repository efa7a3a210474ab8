// SPDX-License-Identifier: MIT
// What reviewing a declaration costs: the example's one with 660 rows, and an ordinary one.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/BancoDeBench.h"
#include "host/example/Exemplo.h"
#include "review/Revisao.h"

namespace tarvo {
namespace {

void RevisarDeclaracao(benchmark::State& estado) {
    BancoDeBench arquivo{std::string(ScriptDeExemplo())};
    const auto banco = arquivo.Abrir(TabelasDeTrabalho::Privadas);
    const PedidoDeRevisao pedido{.IE = "250114377019",
                                 .NroDRQ = static_cast<std::int32_t>(estado.range(0))};
    for ([[maybe_unused]] auto _ : estado) {
        benchmark::DoNotOptimize(Revisar(*banco, pedido));
    }
}

BENCHMARK(RevisarDeclaracao)->Unit(benchmark::kMicrosecond)->Arg(101)->Arg(102);

}  // namespace
}  // namespace tarvo

BENCHMARK_MAIN();
