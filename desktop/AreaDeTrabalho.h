// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

#include "data/Publico.h"
#include "dispatch/frmImpressaoRelatorios.h"
#include "document/Ambiente.h"

// The desktop: previews, printing and the selection dialog, for hosts with and without a user
// interface of their own.
namespace tarvo {

// What a preview's user may ask of a host that can build reports anew.
enum class Pedido { DeclaracaoAnterior, ProximaDeclaracao, Atualizar };

// Everything that has to do with windows and printing happens in one thread: the one that opened
// the area first, or the one of the host's own Qt application.
class TARVO_PUBLICO AreaDeTrabalho {
  public:
    virtual ~AreaDeTrabalho() = default;

    // Whether the calling thread is that one.
    [[nodiscard]] virtual bool NestaThread() const = 0;
    // False where the session has no screen: windows would be seen by nobody, printing works.
    [[nodiscard]] virtual bool TemTela() const = 0;
    // For Ambiente::visualizadores.
    virtual FabricaVisualizadores& Visualizadores() = 0;
    // For Relatorios.
    virtual JanelaSelecao& Selecao() = 0;
    // From now on the previews offer the declaration before and behind, and to be built anew, and
    // acao does it; null takes the offer away. What acao shows anew stays in its window, built anew
    // at the page that it shows; what it hides and does not show again goes when acao returns.
    virtual void AoPedir(std::function<void(Pedido)> acao) = 0;
    // Serves the windows until none is open or the time is over; returns how many are open. A
    // negative time is no limit; zero serves what is waiting and returns.
    virtual std::size_t AguardarJanelas(std::chrono::milliseconds tempo) = 0;
    // Prints at once on the printer of that name, without a window; an empty name is the user's
    // default printer. Error 482 as the print queue states it.
    virtual void ImprimirEm(const Conteudo& conteudo, const std::string& impressora) = 0;
};

// The area of the process, made at the first call and kept to its end. It lives in the host's Qt
// application, or makes one where the host has none; error 445 when the host's cannot have windows.
// Under this very name, because the C interface loads the desktop library only once something must
// be shown or printed.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif
extern "C" TARVO_PUBLICO AreaDeTrabalho& AbrirAreaDeTrabalho();
#ifdef __clang__
#pragma clang diagnostic pop
#endif

}  // namespace tarvo
