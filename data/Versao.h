// SPDX-License-Identifier: MIT
#ifndef RELATORIOSTARVO_VERSAO_H
#define RELATORIOSTARVO_VERSAO_H

/**
 * @file
 * The version of these headers, for C and C++.
 */

/** 10000 times the major version, plus 100 times the minor, plus the patch. */
#define TARVO_VERSAO 10100

#endif
