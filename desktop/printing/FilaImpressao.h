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

struct TrabalhoImpressao {
    std::string_view pdf{};    // A4 pages, each in its own orientation; printed without scaling
    std::string titulo{};      // the job's name
    std::string impressora{};  // empty: the user's default printer
    int copias = 1;
    int primeiraPagina = 0;  // from 1; 0 prints all pages
    int ultimaPagina = 0;
    Lados lados = Lados::ComoNaFila;
};

// The printers that can be chosen; never empty (error 482).
std::vector<Impressora> ListarImpressoras();

// Hands the job to the queue and returns its number there; does not wait for the paper. Error 18
// when cancelar becomes true before the job is complete; nothing is printed then.
int EnviarTrabalho(const TrabalhoImpressao& trabalho, const std::atomic<bool>* cancelar = nullptr);

}  // namespace tarvo
