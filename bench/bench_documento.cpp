// SPDX-License-Identifier: MIT
// What recording and rendering a document cost: time, bytes and memory, and how often as fast as a
// plain QPainter/QPdfWriter loop over the same pages the rendering is.

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <time.h>

#include <QGuiApplication>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "bench/LacoQPainter.h"
#include "bench/PaginasDeExemplo.h"
#include "output/pdf/RenderizadorPDF.h"

namespace tarvo::bench {
namespace {

constexpr std::size_t Mil = 1000;

std::size_t Renderizar(const Conteudo& conteudo, const OpcoesPDF& opcoes = {}) {
    const SecaoPDF secao{&conteudo, conteudo.titulo};
    std::size_t tamanho = 0;
    RenderizarPDF(
        {&secao, 1}, [&tamanho](std::string_view bytes) { tamanho += bytes.size(); }, opcoes);
    return tamanho;
}

// A figure of /proc/self/status in bytes, such as "VmRSS" or its peak "VmHWM".
double Memoria(const std::string& nome) {
    std::ifstream estado("/proc/self/status");
    for (std::string palavra; estado >> palavra;) {
        if (palavra == nome + ":") {
            double kb = 0;
            estado >> kb;
            return kb * 1024;
        }
    }
    return 0;
}

void ZerarPico() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

// Processor time: on a shared machine the clock on the wall measures the others, too.
double Segundos(auto&& acao) {
    const auto agora = [] {
        timespec t{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
        return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec);
    };
    const double inicio = agora();
    acao();
    return agora() - inicio;
}

double Mediana(std::vector<double> valores) {
    std::sort(valores.begin(), valores.end());
    return valores[valores.size() / 2];
}

void Paginas(benchmark::State& estado, std::size_t quantas) {
    estado.counters["paginas/s"] = benchmark::Counter(
        static_cast<double>(quantas), benchmark::Counter::kIsIterationInvariantRate);
}

void RegistrarMilPaginas(benchmark::State& estado) {
    const PaginasDeExemplo exemplo(Mil);
    for ([[maybe_unused]] auto _ : estado) {
        DocumentoRelatorio doc;
        exemplo.Registrar(doc);
    }
    Paginas(estado, Mil);
    const auto antes = mallinfo2().uordblks;
    DocumentoRelatorio doc;
    exemplo.Registrar(doc);
    estado.counters["bytes/pagina"] =
        static_cast<double>(mallinfo2().uordblks - antes) / static_cast<double>(Mil);
}
BENCHMARK(RegistrarMilPaginas)->Unit(benchmark::kMillisecond);

void RenderizarMilPaginas(benchmark::State& estado) {
    DocumentoRelatorio doc;
    PaginasDeExemplo(Mil).Registrar(doc);
    std::size_t tamanho = 0;
    for ([[maybe_unused]] auto _ : estado) {
        tamanho = Renderizar(doc.Registrado());
    }
    Paginas(estado, Mil);
    estado.counters["MB"] = static_cast<double>(tamanho) / 1e6;
}
BENCHMARK(RenderizarMilPaginas)->Unit(benchmark::kMillisecond);

// One page, as a small report has it: what the fonts and the file itself cost.
void RenderizarUmaPagina(benchmark::State& estado, const OpcoesPDF& opcoes) {
    DocumentoRelatorio doc;
    PaginasDeExemplo(1).Registrar(doc);
    std::size_t tamanho = 0;
    for ([[maybe_unused]] auto _ : estado) {
        tamanho = Renderizar(doc.Registrado(), opcoes);
    }
    estado.counters["bytes"] = static_cast<double>(tamanho);
}
BENCHMARK_CAPTURE(RenderizarUmaPagina, marcada, OpcoesPDF{})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RenderizarUmaPagina, sem_estrutura, OpcoesPDF{.semEstrutura = true})
    ->Unit(benchmark::kMillisecond);

// The peak of memory while 10,000 pages are rendered, beyond what the recorded document takes.
void MemoriaDeDezMilPaginas(benchmark::State& estado) {
    constexpr std::size_t DezMil = 10'000;
    DocumentoRelatorio doc;
    PaginasDeExemplo(DezMil).Registrar(doc);
    double pico = 0;
    for ([[maybe_unused]] auto _ : estado) {
        ZerarPico();
        const double antes = Memoria("VmRSS");
        Renderizar(doc.Registrado());
        pico = std::max(pico, Memoria("VmHWM") - antes);
    }
    estado.counters["MB_alem_do_documento"] = pico / 1e6;
}
BENCHMARK(MemoriaDeDezMilPaginas)->Unit(benchmark::kMillisecond)->Iterations(1);

// Alternating rounds over the same pages; the figures are medians.
void ContraQPainter(benchmark::State& estado) {
    const PaginasDeExemplo exemplo(Mil);
    std::vector<double> nosso;
    std::vector<double> laco;
    std::vector<double> registro;
    std::size_t tamanhoDoLaco = 0;
    for ([[maybe_unused]] auto _ : estado) {
        DocumentoRelatorio doc;
        registro.push_back(Segundos([&] { exemplo.Registrar(doc); }));
        nosso.push_back(Segundos([&] { Renderizar(doc.Registrado()); }));
        laco.push_back(Segundos([&] { tamanhoDoLaco = DesenharComQPainter(doc.Registrado()); }));
    }
    estado.counters["vezes"] = Mediana(laco) / Mediana(nosso);
    estado.counters["laco_paginas/s"] = static_cast<double>(Mil) / Mediana(laco);
    estado.counters["laco_MB"] = static_cast<double>(tamanhoDoLaco) / 1e6;
    estado.counters["registro/renderizacao"] = Mediana(registro) / Mediana(nosso);
}
BENCHMARK(ContraQPainter)->Unit(benchmark::kSecond)->Iterations(5);

}  // namespace
}  // namespace tarvo::bench

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QGuiApplication aplicacao(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
