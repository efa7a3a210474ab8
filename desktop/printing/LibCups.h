// SPDX-License-Identifier: MIT
#pragma once

#include <cups/cups.h>

#include "system/loading/BibliotecaSobDemanda.h"

// libcups, loaded when somebody prints. In this namespace its functions bear their own names.
namespace tarvo {

inline constinit const BibliotecaSobDemanda LibCups{"libcups.so.2", "libcups2", "imprimir"};

#define TARVO_DA_LIBCUPS(nome) \
    inline constinit const FuncaoSobDemanda<LibCups, decltype(::nome)> nome(#nome)
TARVO_DA_LIBCUPS(cupsAddOption);
TARVO_DA_LIBCUPS(cupsCancelDestJob);
TARVO_DA_LIBCUPS(cupsCheckDestSupported);
TARVO_DA_LIBCUPS(cupsCopyDestInfo);
TARVO_DA_LIBCUPS(cupsCreateDestJob);
TARVO_DA_LIBCUPS(cupsEncryption);
TARVO_DA_LIBCUPS(cupsFinishDestDocument);
TARVO_DA_LIBCUPS(cupsFreeDestInfo);
TARVO_DA_LIBCUPS(cupsFreeDests);
TARVO_DA_LIBCUPS(cupsFreeOptions);
TARVO_DA_LIBCUPS(cupsGetDests2);
TARVO_DA_LIBCUPS(cupsGetNamedDest);
TARVO_DA_LIBCUPS(cupsGetOption);
TARVO_DA_LIBCUPS(cupsLastError);
TARVO_DA_LIBCUPS(cupsLastErrorString);
TARVO_DA_LIBCUPS(cupsServer);
TARVO_DA_LIBCUPS(cupsSetPasswordCB2);
TARVO_DA_LIBCUPS(cupsStartDestDocument);
TARVO_DA_LIBCUPS(cupsWriteRequestData);
TARVO_DA_LIBCUPS(httpClose);
TARVO_DA_LIBCUPS(httpConnect2);
TARVO_DA_LIBCUPS(httpSetTimeout);
TARVO_DA_LIBCUPS(ippPort);

#undef TARVO_DA_LIBCUPS

inline void LiberarConexao(http_t* conexao) {
    httpClose(conexao);
}
inline void LiberarInformacao(cups_dinfo_t* informacao) {
    cupsFreeDestInfo(informacao);
}

}  // namespace tarvo
