// SPDX-License-Identifier: MIT
// What the long lists cost: building their pages, and writing them as PDF. Time and memory must
// grow linearly with the rows.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include "bench/BancoDeBench.h"
#include "output/pdf/RenderizadorPDF.h"
#include "reports/RelatorioNotasSaiZFMALC.h"
#include "reports/RelatorioRegExportacao.h"

namespace tarvo {
namespace {

std::string Linhas(std::int64_t quantas, const std::string& comando) {
    return "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
           std::to_string(quantas) + ") " + comando + ";";
}

constexpr const char* Declaracao = R"sql(
insert into tblContribuinte (IE, RazãoSocial) values ('1', 'Comércio de Exemplo');
insert into tblDRQ (NroDRQ, Ref1, RegTrib) values (1, '2003-07-01', '01');
)sql";

std::string Registros(std::int64_t quantos) {
    return Declaracao + Linhas(quantos,
                               "insert into tblRegistroExportação (NroDRQ, RE) select 1, "
                               "printf('03/%07d-001', (i * 7919) % 9999991) from n");
}

// Ten groups of CFOPs, as real declarations have them, besides those of 20 other declarations.
std::string Notas(std::int64_t quantas) {
    return Declaracao +
           Linhas(100,
                  "insert into tblMunicípiosZFM_ALC (CódMunicípio, Município, UF) select i, "
                  "'Município ' || i, 'AM' from n") +
           Linhas(200,
                  "insert into tblDetalhesCFOPs (NroDRQ, CFOP) select i % 20 + 1, 6100 + i / 20 "
                  "from n") +
           Linhas(quantas,
                  "insert into tblZFM_ALC (NroDRQ, CFOP, NF, Data, MunicípioDest, CNPJDest, Valor) "
                  "select 1, 6100 + i % 10, i, date('2003-07-01', '+' || (i % 31) || ' days'), i % "
                  "100 + 1, printf('%014d', i), i * 123 from n");
}

double BytesEmUso() {
    const auto uso = mallinfo2();
    return static_cast<double>(uso.uordblks + uso.hblkhd);
}

template <class R, std::string (*Script)(std::int64_t)>
void Construir(benchmark::State& estado) {
    BancoDeBench arquivo(Script(estado.range(0)));
    const auto banco = arquivo.Abrir(TabelasDeTrabalho::NoBanco);
    const double antes = BytesEmUso();
    R relatorio;
    for ([[maybe_unused]] auto _ : estado) {
        relatorio.Construir(*banco, "1", 1);
        benchmark::DoNotOptimize(relatorio.Documento());
    }
    estado.counters["paginas"] = static_cast<double>(relatorio.Documento().paginas.size());
    estado.counters["bytes_por_linha"] =
        (BytesEmUso() - antes) / static_cast<double>(estado.range(0));
    estado.SetComplexityN(estado.range(0));
}

template <class R, std::string (*Script)(std::int64_t)>
void Exportar(benchmark::State& estado) {
    BancoDeBench arquivo(Script(estado.range(0)));
    R relatorio;
    relatorio.Construir(*arquivo.Abrir(TabelasDeTrabalho::NoBanco), "1", 1);
    double bytes = 0;
    for ([[maybe_unused]] auto _ : estado) {
        std::string pdf;
        RenderizarPDF(relatorio.Documento(), pdf);
        bytes = static_cast<double>(pdf.size());
    }
    estado.counters["bytes_por_linha"] = bytes / static_cast<double>(estado.range(0));
    estado.SetComplexityN(estado.range(0));
}

constexpr auto Ms = benchmark::kMillisecond;
void Tamanhos(benchmark::internal::Benchmark* bench, std::int64_t maior) {
    bench->Unit(Ms)->Arg(maior / 8)->Arg(maior / 4)->Arg(maior / 2)->Arg(maior)->Complexity();
}
void Ate150Mil(benchmark::internal::Benchmark* bench) {
    Tamanhos(bench, 150'000);
}
void Ate50Mil(benchmark::internal::Benchmark* bench) {
    Tamanhos(bench, 50'000);
}

BENCHMARK_TEMPLATE(Construir, RelatorioRegExportacao, Registros)->Apply(Ate150Mil);
BENCHMARK_TEMPLATE(Exportar, RelatorioRegExportacao, Registros)->Apply(Ate150Mil);
BENCHMARK_TEMPLATE(Construir, RelatorioNotasSaiZFMALC, Notas)->Apply(Ate50Mil);
BENCHMARK_TEMPLATE(Exportar, RelatorioNotasSaiZFMALC, Notas)->Apply(Ate50Mil);

}  // namespace
}  // namespace tarvo

BENCHMARK_MAIN();
