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
 * Opens a database file; never creates one.
 *
 * Errors: 3024 no such file, 70 no permission, 3343 not a database or a damaged one, 3260 locked,
 * 5 an unknown option.
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
