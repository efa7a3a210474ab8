// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "data/Publico.h"

// The one exception type of the system, its error numbers and the library's own error texts.
namespace tarvo {

// What went wrong, as a number that a program can test. The database and conversion numbers are
// those that the desktop engine and its language use for the same condition.
enum class NumeroErro : int {
    ChamadaInvalida = 5,                // an argument that the operation cannot take
    Estouro = 6,                        // a value outside its type's range
    MemoriaInsuficiente = 7,            //
    TipoIncompativel = 13,              // a value that cannot be converted
    Cancelado = 18,                     // the user cancelled
    ErroInterno = 51,                   // a fault of the library itself
    ArquivoNaoEncontrado = 53,          //
    ErroDispositivo = 57,               // reading or writing failed below the file system's rules
    ArquivoJaExiste = 58,               //
    DiscoCheio = 61,                    //
    ArquivosDemais = 67,                // too many open files
    PermissaoNegada = 70,               //
    DestinoRecusado = 75,               // what bears the name must not be replaced
    CaminhoNaoEncontrado = 76,          // a folder on the way does not exist
    ObjetoNaoDefinido = 91,             // no object where one must be
    UsoInvalidoDeNull = 94,             // Null where a value must be
    NaoPodeCriarObjeto = 429,           // no public class of that name
    MembroNaoSuportado = 438,           // the object has no such operation
    AcaoNaoSuportada = 445,             // the host did not provide what the operation needs
    NumeroDeArgumentos = 450,           // the operation takes other arguments
    ErroImpressora = 482,               //
    RegistroAtualAusente = 3021,        // no current record
    AtualizacaoSemAddNew = 3020,        // Update or a field's write without AddNew
    BancoNaoEncontrado = 3024,          // no database file of that name
    BancoSomenteLeitura = 3027,         // writing to a database opened read-only
    SenhaRecusada = 3029,               // the server knows no such user, or another password
    SenhaDoBanco = 3031,                // encrypted, or protected by a password
    ColunaDesconhecida = 3061,          // a query names an unknown column
    ErroSintaxeConsulta = 3075,         // the query's text is outside the dialect
    TabelaInexistente = 3078,           //
    ColunaAmbigua = 3079,               // an unqualified column that two tables have
    SemPermissaoDeLeitura = 3112,       // the user may not read, or write, a table of the server's
    ForaDaAgregacao = 3122,             // a column neither grouped by nor summed
    FalhaDoServidor = 3146,             // the server did not do what it was asked to
    ServidorInacessivel = 3151,         // there is no connection with the server, or no longer
    BancoJaExiste = 3204,               //
    OperacaoInvalida = 3219,            //
    BancoOcupado = 3260,                // locked by another user
    ItemNaoEncontrado = 3265,           // item not found in this collection
    BancoIrreconhecivel = 3343,         // not a database, or a damaged one
    ObjetoInvalido = 3420,              // the recordset or database has been closed
    ConversaoDeDado = 3421,             // a stored value that does not fit its declared type
    TipoIncompativelNaConsulta = 3464,  // a query compares a text with a number
    DocumentoContemObjetos = 20001,     // the four page-setup refusals of a report document
    PadraoDePaginaInvalido = 20002,
    PaginaInsuficiente = 20003,
    MargensInvalidas = 20004,
    FonteAusente = 20005,  // a font that a document uses is not installed
    EmUso = 20006,         // a call that has not ended yet is using the object
};

// An error with its number and a description fit to be shown to the user, in UTF-8 whatever the
// names in it are.
class TARVO_PUBLICO Erro : public std::exception {
  public:
    Erro(NumeroErro numero, std::string descricao);

    [[nodiscard]] NumeroErro Numero() const noexcept { return numero_; }
    [[nodiscard]] const std::string& Descricao() const noexcept { return descricao_; }
    [[nodiscard]] const char* what() const noexcept override { return descricao_.c_str(); }

  private:
    NumeroErro numero_;
    std::string descricao_;
};

// The exception that is being handled, as an Erro: 7 when memory is out, 51 for what is none of
// ours.
TARVO_PUBLICO Erro ErroCorrente();

// The error texts that several places raise word for word.
namespace CodigosDeErros TARVO_PUBLICO {
extern const std::string_view DocumentoContemObjetos;
extern const std::string_view PadraoDePaginaInvalido;
extern const std::string_view PaginaInsuficiente;
extern const std::string_view MargensInvalidas;
}  // namespace TARVO_PUBLICO

// Error 18.
[[noreturn]] TARVO_PUBLICO void LancarCancelado();
// Error 94, 13 and 6 with the operation that met them.
[[noreturn]] TARVO_PUBLICO void LancarUsoInvalidoDeNull(std::string_view onde);
[[noreturn]] TARVO_PUBLICO void LancarTipoIncompativel(std::string_view valor,
                                                       std::string_view destino);
[[noreturn]] TARVO_PUBLICO void LancarEstouro(std::string_view onde);

}  // namespace tarvo
