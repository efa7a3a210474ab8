// SPDX-License-Identifier: MIT
#pragma once

#include <libpq-fe.h>

#include "system/loading/BibliotecaSobDemanda.h"

// libpq, which brings libraries of its own for encryption and directories, is loaded at the first
// address of a server. In this namespace its functions bear their own names.
namespace tarvo::postgresql {

inline constinit const BibliotecaSobDemanda Libpq{"libpq.so.5", "libpq5",
                                                  "abrir bancos em servidores"};

#define TARVO_DA_LIBPQ(nome) \
    inline constinit const FuncaoSobDemanda<Libpq, decltype(::nome)> nome(#nome)
TARVO_DA_LIBPQ(PQcancel);
TARVO_DA_LIBPQ(PQclear);
TARVO_DA_LIBPQ(PQconnectPoll);
TARVO_DA_LIBPQ(PQconnectStartParams);
TARVO_DA_LIBPQ(PQconnectionNeedsPassword);
TARVO_DA_LIBPQ(PQconninfo);
TARVO_DA_LIBPQ(PQconninfoFree);
TARVO_DA_LIBPQ(PQconninfoParse);
TARVO_DA_LIBPQ(PQconsumeInput);
TARVO_DA_LIBPQ(PQenterPipelineMode);
TARVO_DA_LIBPQ(PQerrorMessage);
TARVO_DA_LIBPQ(PQescapeLiteral);
TARVO_DA_LIBPQ(PQexitPipelineMode);
TARVO_DA_LIBPQ(PQfinish);
TARVO_DA_LIBPQ(PQflush);
TARVO_DA_LIBPQ(PQfreeCancel);
TARVO_DA_LIBPQ(PQfreemem);
TARVO_DA_LIBPQ(PQgetCancel);
TARVO_DA_LIBPQ(PQgetCopyData);
TARVO_DA_LIBPQ(PQgetResult);
TARVO_DA_LIBPQ(PQgetisnull);
TARVO_DA_LIBPQ(PQgetlength);
TARVO_DA_LIBPQ(PQgetvalue);
TARVO_DA_LIBPQ(PQhost);
TARVO_DA_LIBPQ(PQhostaddr);
TARVO_DA_LIBPQ(PQisBusy);
TARVO_DA_LIBPQ(PQntuples);
TARVO_DA_LIBPQ(PQpipelineSync);
TARVO_DA_LIBPQ(PQport);
TARVO_DA_LIBPQ(PQputCopyData);
TARVO_DA_LIBPQ(PQputCopyEnd);
TARVO_DA_LIBPQ(PQresultErrorField);
TARVO_DA_LIBPQ(PQresultStatus);
TARVO_DA_LIBPQ(PQsendPrepare);
TARVO_DA_LIBPQ(PQsendQuery);
TARVO_DA_LIBPQ(PQsendQueryParams);
TARVO_DA_LIBPQ(PQsendQueryPrepared);
TARVO_DA_LIBPQ(PQsetErrorVerbosity);
TARVO_DA_LIBPQ(PQsetNoticeProcessor);
TARVO_DA_LIBPQ(PQsetnonblocking);
TARVO_DA_LIBPQ(PQsocket);
TARVO_DA_LIBPQ(PQstatus);

#undef TARVO_DA_LIBPQ

}  // namespace tarvo::postgresql
