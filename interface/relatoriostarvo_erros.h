// SPDX-License-Identifier: MIT
#ifndef RELATORIOSTARVO_ERROS_H
#define RELATORIOSTARVO_ERROS_H

/**
 * @file
 * The numbers of the errors, as functions return them. Included by relatoriostarvo.h.
 */

enum tarvo_erro {
    /** An argument that the function cannot take. */
    TARVO_ERRO_CHAMADA_INVALIDA = 5,
    /** A value outside its type's range. */
    TARVO_ERRO_ESTOURO = 6,
    /** Memory is out. */
    TARVO_ERRO_MEMORIA_INSUFICIENTE = 7,
    /** A value that cannot be converted; an identifier of another kind. */
    TARVO_ERRO_TIPO_INCOMPATIVEL = 13,
    /** The user, or the program's own function, cancelled. */
    TARVO_ERRO_CANCELADO = 18,
    /** A fault of the library itself. */
    TARVO_ERRO_INTERNO = 51,
    /** No such file. */
    TARVO_ERRO_ARQUIVO_NAO_ENCONTRADO = 53,
    /** Reading or writing failed below the file system's rules. */
    TARVO_ERRO_DISPOSITIVO = 57,
    /** The file exists. */
    TARVO_ERRO_ARQUIVO_JA_EXISTE = 58,
    /** No space is left. */
    TARVO_ERRO_DISCO_CHEIO = 61,
    /** Too many open files. */
    TARVO_ERRO_ARQUIVOS_DEMAIS = 67,
    /** No permission. */
    TARVO_ERRO_PERMISSAO_NEGADA = 70,
    /** What bears the name must not be replaced. */
    TARVO_ERRO_DESTINO_RECUSADO = 75,
    /** A folder on the way does not exist. */
    TARVO_ERRO_CAMINHO_NAO_ENCONTRADO = 76,
    /** An identifier that is none, or no longer. */
    TARVO_ERRO_OBJETO_NAO_DEFINIDO = 91,
    /** Null where a value must be. */
    TARVO_ERRO_USO_INVALIDO_DE_NULL = 94,
    /** No public class of that name. */
    TARVO_ERRO_NAO_PODE_CRIAR_OBJETO = 429,
    /** The class has no such operation. */
    TARVO_ERRO_MEMBRO_NAO_SUPORTADO = 438,
    /** This installation, session or thread cannot do it. */
    TARVO_ERRO_ACAO_NAO_SUPORTADA = 445,
    /** The class is built with other arguments. */
    TARVO_ERRO_NUMERO_DE_ARGUMENTOS = 450,
    /** No printer, or it refuses. */
    TARVO_ERRO_IMPRESSORA = 482,
    /** No current record. */
    TARVO_ERRO_REGISTRO_ATUAL_AUSENTE = 3021,
    /** Update or a field's write without AddNew. */
    TARVO_ERRO_ATUALIZACAO_SEM_ADD_NEW = 3020,
    /** No database file of that name. */
    TARVO_ERRO_BANCO_NAO_ENCONTRADO = 3024,
    /** Writing to a database opened read-only. */
    TARVO_ERRO_BANCO_SOMENTE_LEITURA = 3027,
    /** The server knows no such user, or another password. */
    TARVO_ERRO_SENHA_RECUSADA = 3029,
    /** A database file that is encrypted or has a password. */
    TARVO_ERRO_SENHA_DO_BANCO = 3031,
    /** A query names an unknown column. */
    TARVO_ERRO_COLUNA_DESCONHECIDA = 3061,
    /** The query's text is outside the dialect. */
    TARVO_ERRO_SINTAXE_CONSULTA = 3075,
    /** The database lacks a table. */
    TARVO_ERRO_TABELA_INEXISTENTE = 3078,
    /** An unqualified column that two tables have. */
    TARVO_ERRO_COLUNA_AMBIGUA = 3079,
    /** The user may not read, or write, a table of the server's. */
    TARVO_ERRO_SEM_PERMISSAO_DE_LEITURA = 3112,
    /** A column neither grouped by nor summed. */
    TARVO_ERRO_FORA_DA_AGREGACAO = 3122,
    /** The server did not do what it was asked to. */
    TARVO_ERRO_FALHA_DO_SERVIDOR = 3146,
    /** There is no connection with the server, or no longer. */
    TARVO_ERRO_SERVIDOR_INACESSIVEL = 3151,
    /** The database to be created exists. */
    TARVO_ERRO_BANCO_JA_EXISTE = 3204,
    /** An operation that the recordset does not take. */
    TARVO_ERRO_OPERACAO_INVALIDA = 3219,
    /** Locked by another user. */
    TARVO_ERRO_BANCO_OCUPADO = 3260,
    /** Item not found in this collection. */
    TARVO_ERRO_ITEM_NAO_ENCONTRADO = 3265,
    /** Not a database, or a damaged one. */
    TARVO_ERRO_BANCO_IRRECONHECIVEL = 3343,
    /** The recordset or database has been closed. */
    TARVO_ERRO_OBJETO_INVALIDO = 3420,
    /** A stored value that does not fit its declared type. */
    TARVO_ERRO_CONVERSAO_DE_DADO = 3421,
    /** A query compares a text with a number. */
    TARVO_ERRO_TIPO_INCOMPATIVEL_NA_CONSULTA = 3464,
    /** The four page-setup refusals of a report document. */
    TARVO_ERRO_DOCUMENTO_CONTEM_OBJETOS = 20001,
    TARVO_ERRO_PADRAO_DE_PAGINA_INVALIDO = 20002,
    TARVO_ERRO_PAGINA_INSUFICIENTE = 20003,
    TARVO_ERRO_MARGENS_INVALIDAS = 20004,
    /** A font that a document uses is not installed. */
    TARVO_ERRO_FONTE_AUSENTE = 20005,
    /** Another call that has not returned is using the identifier. */
    TARVO_ERRO_EM_USO = 20006
};

#endif
