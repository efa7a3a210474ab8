// SPDX-License-Identifier: MIT
#ifndef RELATORIOSTARVO_H
#define RELATORIOSTARVO_H

/**
 * @file
 * The reports of the state ICMS declaration (DRQ) for programs in any language.
 *
 * A program opens a declaration database, creates an object of one of the eleven public classes
 * by its registered name, builds it from the database, and shows, prints or exports the document
 * that the object then holds.
 *
 * Errors. Every function that can fail returns zero, or the number of the error (tarvo_erro); it
 * and a Portuguese text for the user are kept for the calling thread (tarvo_erro_numero,
 * tarvo_erro_texto). No exception leaves the library. After an error the output arguments are
 * zero, unless said otherwise.
 *
 * Identifiers. Databases, objects and memory are numbers that the library gives out, each number
 * once in a process; zero is never one of them. A number that is no identifier, or no longer, is
 * error 91; one of another kind is error 13. Every identifier is released with tarvo_liberar.
 *
 * Texts are UTF-8 and end with a zero byte; a null pointer or a text that is not UTF-8 is error 5.
 * File names are passed to the system as they are. Numbers of pages and texts count from 1.
 *
 * Functions of the program. Some calls take a function of the program's and a contexto, which it
 * gets unchanged; it is called in the calling thread before the call returns, and may call this
 * library, but not with the identifiers that the call is using (error 20006).
 *
 * Threads. Every function may be called in any thread, and different identifiers may be used at
 * the same time; an identifier that another call is using, or whose call has not returned yet, is
 * error 20006. Windows and printing belong to one thread, the first that uses them (the one of the
 * user interface where the program has a Qt application); in any other they are error 445.
 */

#include "data/Versao.h"
#include "interface/relatoriostarvo_bancos.h"
#include "interface/relatoriostarvo_erros.h"

#ifdef __cplusplus
extern "C" {
#endif

/** The version of the library that is running, in the form of TARVO_VERSAO. */
TARVO_API int32_t tarvo_versao(void);

/** The number of the last error in this thread; zero when there was none. Successes leave it. */
TARVO_API int32_t tarvo_erro_numero(void);
/** Its text, valid until the next error in this thread; never null. */
TARVO_API const char* tarvo_erro_texto(void);

/** An object of a public class. */
typedef uint64_t tarvo_objeto;
/** Bytes that the library hands out. */
typedef uint64_t tarvo_memoria;

/**
 * Creates an object of a public class by its registered name: "RelatoriosTarvo." followed by
 * Relatorios, RelatorioCadastro, RelatorioResumoCFOPsEnt, RelatorioResumoCFOPsSai,
 * RelatorioSaiInterestad, RelatorioNotasSaiZFMALC, RelatorioApuracaoOpProp,
 * RelatorioApuracaoSubTrib, RelatorioRegExportacao, RelatorioPagamentos or RelatorioVELO. An
 * object is not tied to a database.
 *
 * Errors: 429 any other name.
 */
TARVO_API int32_t tarvo_criar(const char* nome, tarvo_objeto* objeto);

/**
 * Gives an object the host's current reference month ("07/2003"), which the CFOP summaries read,
 * in place of the user's setting in Tarvo.ini; a null pointer goes back to the user's setting.
 *
 * Errors: 13 no month and year.
 */
TARVO_API int32_t tarvo_definir_ref_atual(tarvo_objeto objeto, const char* mes_ano);

/** Told how many pages of a document are complete; anything but zero cancels. */
typedef int32_t (*tarvo_andamento)(void* contexto, size_t paginas);

/**
 * Gives an object a function that is told of each page while a document is built, and is asked some
 * twenty times a second while the database works or waits for its turn; a build that it cancels
 * ends with error 18. A null pointer takes the function back; contexto stays valid until then.
 */
TARVO_API int32_t tarvo_definir_andamento(tarvo_objeto objeto, tarvo_andamento andamento,
                                          void* contexto);

/**
 * RelatoriosTarvo.Relatorios: shows the selection dialog for a declaration and returns once it is
 * closed and the chosen reports are built and shown or printed. Bit i of opcoes ticks entry i.
 *
 * Errors: 438 an object of another class, 445 no desktop, 3021 no such declaration, and those of
 * the chosen reports; what was shown or printed before the error stays.
 */
TARVO_API int32_t tarvo_executar(tarvo_objeto objeto, tarvo_banco banco, const char* ie,
                                 int32_t numero_drq, int32_t opcoes);

/**
 * Builds the report of a declaration, in place of what the object held. A taxpayer or declaration
 * that does not exist gives a document of one empty page. After an error the object holds what was
 * drawn so far. The database is used during the call only. Where other programs or threads build
 * with the same work table, the call waits for its turn, up to a minute.
 *
 * Errors: 450 for RelatorioCadastro and RelatorioVELO, which take other arguments; 438 for
 * Relatorios; database errors (3061, 3078, 3260, 3027 and others), conversion errors (13, 94, 6,
 * 3421).
 */
TARVO_API int32_t tarvo_construir(tarvo_objeto objeto, tarvo_banco banco, const char* ie,
                                  int32_t numero_drq);
/** The same for RelatorioCadastro, which takes no declaration. 450 for any other report. */
TARVO_API int32_t tarvo_construir_cadastro(tarvo_objeto objeto, tarvo_banco banco, const char* ie);
/** The same for RelatorioVELO, which takes the database alone. 450 for any other report. */
TARVO_API int32_t tarvo_construir_velo(tarvo_objeto objeto, tarvo_banco banco);

/**
 * Opens a preview of the document as it is now and returns; tarvo_aguardar_janelas serves it.
 * Errors: 445 no desktop, 438 for Relatorios.
 */
TARVO_API int32_t tarvo_exibir(tarvo_objeto objeto);
/** Hides the preview, if there is one. */
TARVO_API int32_t tarvo_ocultar(tarvo_objeto objeto);
/**
 * Prints the document on the user's default printer.
 * Errors: 482 no printer, or it refuses; 445 no desktop; 438 for Relatorios and RelatorioVELO.
 */
TARVO_API int32_t tarvo_imprimir(tarvo_objeto objeto);
/** The same on the printer of that name, at once; the empty text is the user's default printer. */
TARVO_API int32_t tarvo_imprimir_em(tarvo_objeto objeto, const char* impressora);

/**
 * Serves the windows that this library opened, until all are closed or the time is over; for
 * programs without a Qt event loop of their own. Milliseconds; negative for no limit, zero to
 * serve what is waiting. abertas, which may be null, is how many windows are open then.
 */
TARVO_API int32_t tarvo_aguardar_janelas(int32_t milissegundos, size_t* abertas);

/** The forms in which a document is exported. */
enum tarvo_formato {
    /** A PDF/A file with the tags that screen readers follow. */
    TARVO_PDF = 1,
    /** The drawing operations as JSON. */
    TARVO_JSON = 2,
    /** The tables as separated values (UTF-8), for spreadsheets and programs. */
    TARVO_CSV = 3,
    /** The tables as a workbook, a sheet each. */
    TARVO_XLSX = 4,
    /** The PDF without tags: smaller and made in less time. */
    TARVO_PDF_SEM_ESTRUTURA = 5
};

/** How many pages the document has. An object that was never built holds one empty page. */
TARVO_API int32_t tarvo_paginas(tarvo_objeto objeto, size_t* paginas);

/**
 * Writes the document to a file, which appears whole or stays as it was.
 *
 * Errors: 76 no such folder, 70 no permission, 75 a name that is no regular file's, 61 no space, 57
 * other refusals of the file system,
 * 20005 a font is missing, 5 an unknown form, 438 for Relatorios.
 */
TARVO_API int32_t tarvo_exportar_arquivo(tarvo_objeto objeto, int32_t formato, const char* arquivo);
/** The same into memory, which tarvo_memoria_bytes reads and tarvo_liberar releases. */
TARVO_API int32_t tarvo_exportar_memoria(tarvo_objeto objeto, int32_t formato,
                                         tarvo_memoria* memoria);
/**
 * Writes the documents of several objects to one file, in their order; a PDF then has an outline of
 * their titles, and page numbers begin anew with each, and a workbook's sheets bear their titles.
 * JSON and CSV take one object only.
 *
 * Errors: those of tarvo_exportar_arquivo; 5 no objects, 20006 an object that is there twice.
 */
TARVO_API int32_t tarvo_exportar_reunidos(const tarvo_objeto* objetos, size_t quantos,
                                          int32_t formato, const char* arquivo);

/** Takes the next bytes of an output, valid during the call; anything but zero wants no more. */
typedef int32_t (*tarvo_receber)(void* contexto, const char* bytes, size_t tamanho);
/**
 * Hands the documents of one object or several to a function of the program's, piece by piece in
 * their order, as tarvo_exportar_reunidos writes them to a file; never the whole file in memory.
 *
 * Errors: 18 the function wanted no more; 20005, 5, 438 and 20006 as above.
 */
TARVO_API int32_t tarvo_transmitir(const tarvo_objeto* objetos, size_t quantos, int32_t formato,
                                   tarvo_receber receber, void* contexto);
/** The bytes, followed by a zero byte that is not counted; valid until memoria is released. */
TARVO_API int32_t tarvo_memoria_bytes(tarvo_memoria memoria, const char** bytes, size_t* tamanho);

/**
 * How many texts the object's last PDF had to cut ("…") because they did not fit their boxes even
 * condensed to 60 %, or has with "?" for a character of no installed font; zero before any PDF, and
 * after every build.
 */
TARVO_API int32_t tarvo_textos_cortados(tarvo_objeto objeto, size_t* quantidade);
/** One of them: its page, and the whole text. Error 5 for an index outside 1 to quantidade. */
TARVO_API int32_t tarvo_texto_cortado(tarvo_objeto objeto, size_t indice, size_t* pagina,
                                      tarvo_memoria* texto);

/**
 * RelatorioApuracaoSubTrib: one of the fields 51, 52, 53, 56, 57 and 58 of a declaration as
 * printed ("1.234,56"), "0,00" when there is nothing to add up, the empty text when banco is zero.
 * Needs no build and changes nothing. texto has room for capacidade bytes with the zero byte; 32
 * are enough for every amount.
 *
 * Errors: 5 another field or too little room, 438 an object of another class.
 */
TARVO_API int32_t tarvo_campo_st(tarvo_objeto objeto, int32_t campo, tarvo_banco banco,
                                 int32_t numero_drq, char* texto, size_t capacidade);

/**
 * RelatorioPagamentos: draws a group's total line with its top-left corner at (x, y), cm, on the
 * last page.
 *
 * Errors: 5 a coordinate that is not finite, 6 and 13 a total that is no amount, 438 an object of
 * another class.
 */
TARVO_API int32_t tarvo_adicionar_total_op(tarvo_objeto objeto, double x, double y, double total);

/**
 * Releases a database, an object (with its preview) or memory; zero is no error.
 * Errors: 91 already released, 20006 in use by a call that has not returned, 445 an object with
 * windows in another thread than theirs.
 */
TARVO_API int32_t tarvo_liberar(uint64_t identificador);

#ifdef __cplusplus
}
#endif

#endif
