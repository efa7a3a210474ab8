// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

// The way to paper: the system's print queue (CUPS). Needs no display. Each call makes its own
// connection, gives up when the service is silent for some seconds, and may run on any thread.
// Errors 482: service not reachable, no printer, unknown printer, a queue that is stopped or
// rejects jobs, a job that the service refuses; the text says what to do.
namespace tarvo {

struct Impressora {
    std::string nome;
    bool padrao = false;  // the user's default
};

enum class Lados { ComoNaFila, Frente, FrenteEVerso, FrenteEVersoBordaCurta };

struct OpcoesDeImpressao {
    std::string impressora{};  // empty: the user's default printer
    int copias = 1;
    Lados lados = Lados::ComoNaFila;
    bool ajustar = false;  // to the sheet; otherwise without scaling
};

struct TrabalhoImpressao {
    std::string_view pdf{};  // A4 pages, each in its own orientation
    std::string titulo{};    // the job's name
    OpcoesDeImpressao opcoes{};
};

// Which options a printer does; one whose queue sends the bytes as they are does none.
struct RecursosDaImpressora {
    bool copias = false;
    bool frenteEVerso = false;
    bool escala = false;
};

// Each of the calls ends with error 18 when cancelar becomes true before it is done.

// The printers that can be chosen; never empty (error 482).
std::vector<Impressora> ListarImpressoras(const std::atomic<bool>* cancelar = nullptr);

// Asks the printer, which may take seconds.
RecursosDaImpressora ConsultarRecursos(const std::string& impressora,
                                       const std::atomic<bool>* cancelar = nullptr);

// Hands the job to the queue and returns its number there; does not wait for the paper. Of a job
// that ends with an error nothing is printed.
int EnviarTrabalho(const TrabalhoImpressao& trabalho, const std::atomic<bool>* cancelar = nullptr);

}  // namespace tarvo
