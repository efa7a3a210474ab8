// SPDX-License-Identifier: MIT
#ifndef RELATORIOSTARVO_BANCOS_H
#define RELATORIOSTARVO_BANCOS_H

/**
 * @file
 * Declaration databases: opening and creating them, and what is in them. Included by
 * relatoriostarvo.h, which says how errors, identifiers and texts are handled.
 */

#include <stddef.h>
#include <stdint.h>

#define TARVO_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

struct sqlite3;

/** An open declaration database. */
typedef uint64_t tarvo_banco;

/** How a database is opened; to be added up. */
enum tarvo_opcoes {
    /** Nothing may be written: reports that refill a work table in the database are error 3027. */
    TARVO_SOMENTE_LEITURA = 1,
    /** The work tables are this connection's own and temporary: the file is never written, and no
     *  build waits for another's. */
    TARVO_TABELAS_PRIVADAS = 2
};

/**
 * Opens a database file, or a server's database by its address (postgresql://SERVER/DATABASE,
 * as libpq knows it); never creates one.
 *
 * Errors: 3024 no such file or database, 70 no permission, 3343 not a database or a damaged one,
 * 3260 locked, 5 an unknown option or an address that cannot be understood; of a server also 3029
 * the user or password, 3151 no answer, 3112 no permission, 3061 and 3078 its tables, 3146 it gave
 * up.
 */
TARVO_API int32_t tarvo_abrir_banco(const char* arquivo, uint32_t opcoes, tarvo_banco* banco);

/**
 * Uses a connection of the host's, which stays the host's: it is closed by the host, after the
 * identifier is released. The connection must be to the same SQLite library that this library is
 * linked with, and belongs to one thread at a time. Of the options only TARVO_TABELAS_PRIVADAS.
 *
 * Errors: 5 a null pointer or another option.
 */
TARVO_API int32_t tarvo_adotar_banco(struct sqlite3* conexao, uint32_t opcoes, tarvo_banco* banco);

/**
 * Creates a declaration database without any declaration; it appears whole or not at all.
 *
 * Errors: 3204 the file exists, 76 no such folder, 70 no permission, 61 no space.
 */
TARVO_API int32_t tarvo_criar_banco(const char* arquivo);

/** What a value is. */
enum tarvo_tipo {
    TARVO_NULO = 0,
    /** In texto. */
    TARVO_TEXTO = 1,
    /** In numero, of 32 bits. */
    TARVO_INTEIRO = 2,
    /** In numero, as ten-thousandths: 1.234,5 is 12345000. */
    TARVO_MOEDA = 3,
    /** In texto: "2003-07-01" or "2003-07-01 13:45:10". */
    TARVO_DATA = 4,
    /** In numero: zero is False, anything else True. */
    TARVO_BOOLEANO = 5
};

/** One value of a row. */
typedef struct tarvo_valor {
    const char* texto;
    int64_t numero;
    int32_t tipo; /**< tarvo_tipo */
} tarvo_valor;

/**
 * Makes a database that lives in memory alone, for a program with a store of its own, which fills
 * it table by table before it builds reports from it. Tables and columns bear the names of the
 * schema; what a report asks for and was not given is error 3078, 3061 or 3265, never an empty
 * value.
 */
TARVO_API int32_t tarvo_banco_em_memoria(tarvo_banco* banco);

/**
 * Begins a table with these of its columns.
 *
 * Errors: 3078 no such table, 3061 no such column, 3219 a table that was begun before or has no
 * columns, 438 a database of another kind.
 */
TARVO_API int32_t tarvo_comecar_tabela(tarvo_banco banco, const char* tabela,
                                       const char* const* colunas, size_t quantas);

/**
 * Adds rows to the table that was begun last, in their order: the values of the first row, one for
 * each column, then those of the next. A value of another type than its column's is converted; one
 * that does not convert is error 3421 when a report reads it.
 *
 * Errors: 3219 no table was begun, or quantos values are no whole rows; 5, 6 and 13 a value of no
 * type, an integer beyond 32 bits, a date that is none: the rows before it are there; 438 a
 * database of another kind.
 */
TARVO_API int32_t tarvo_acrescentar_linhas(tarvo_banco banco, const tarvo_valor* valores,
                                           size_t quantos);

/** Whether the database has that taxpayer: existe is 1 or 0. */
TARVO_API int32_t tarvo_existe_contribuinte(tarvo_banco banco, const char* ie, int32_t* existe);
/** Whether the database has that declaration: existe is 1 or 0. */
TARVO_API int32_t tarvo_existe_declaracao(tarvo_banco banco, int32_t numero_drq, int32_t* existe);

/** A taxpayer. Its texts are valid during the call that shows it, and never null. */
typedef struct tarvo_contribuinte {
    const char* ie; /**< state registration */
    const char* razao_social;
    const char* cnpj;
} tarvo_contribuinte;

/** A declaration. Its texts are valid during the call that shows it. */
typedef struct tarvo_declaracao {
    const char* ie;         /**< whose it is; null when the database does not tell */
    const char* referencia; /**< "07/2003"; empty without a month */
    const char* regime;     /**< code as stored, "01" */
    const char* tipo;       /**< "Normal"; empty for an unknown one */
    int32_t numero_drq;
    int32_t consistente; /**< 1 or 0 */
} tarvo_declaracao;

/** Is shown one after the other; anything but zero ends the list, which is no error. */
typedef int32_t (*tarvo_ver_contribuinte)(void* contexto, const tarvo_contribuinte* contribuinte);
/** The same for declarations. */
typedef int32_t (*tarvo_ver_declaracao)(void* contexto, const tarvo_declaracao* declaracao);

/** The taxpayers in the order of their names. The database may be used while they are shown. */
TARVO_API int32_t tarvo_listar_contribuintes(tarvo_banco banco, tarvo_ver_contribuinte ver,
                                             void* contexto);
/** The declarations in the order of reference and number. */
TARVO_API int32_t tarvo_listar_declaracoes(tarvo_banco banco, tarvo_ver_declaracao ver,
                                           void* contexto);

/** Something of a declaration that does not print as its user expects: rows that pages leave out,
 *  split, repeat or show under another code. Its texts are valid during the call that shows it, and
 *  never null. */
typedef struct tarvo_achado {
    const char* relatorio; /**< code, "05"; empty: of no report, or of all */
    const char* tabela;    /**< empty when motivo says everything */
    const char* motivo;    /**< Portuguese, one line */
    size_t linhas;         /**< rows of tabela; 0 when it is not about rows */
} tarvo_achado;

/** Is shown one finding after the other; anything but zero ends the list, which is no error. */
typedef int32_t (*tarvo_ver_achado)(void* contexto, const tarvo_achado* achado);

/**
 * Reviews a declaration as the pages of its reports show it under that taxpayer's name; changes
 * nothing. relatorio is the code of a report, "01" to "17", "11A" or "VELO"; a null pointer reviews
 * those that the selection dialog offers. ref_atual is the host's reference month ("07/2003"), by
 * which the CFOP summaries choose their table; a null pointer takes the declaration's own.
 *
 * Errors: 5 another code, 13 no month, and those of the database that end a report.
 */
TARVO_API int32_t tarvo_revisar(tarvo_banco banco, const char* ie, int32_t numero_drq,
                                const char* relatorio, const char* ref_atual, tarvo_ver_achado ver,
                                void* contexto);

#ifdef __cplusplus
}
#endif

#endif
