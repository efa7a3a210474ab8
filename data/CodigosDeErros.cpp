// SPDX-License-Identifier: MIT
#include "data/CodigosDeErros.h"

#include <new>
#include <utility>

#include "data/Utf8.h"

namespace tarvo {

Erro ErroCorrente() {
    try {
        throw;
    } catch (const Erro& erro) {
        return erro;
    } catch (const std::bad_alloc&) {
        return {NumeroErro::MemoriaInsuficiente, "Memória insuficiente."};
    } catch (const std::exception& excecao) {
        return {NumeroErro::ErroInterno, std::string("Erro interno: ") + excecao.what()};
    } catch (...) {
        return {NumeroErro::ErroInterno, "Erro interno."};
    }
}

namespace CodigosDeErros {
const std::string_view DocumentoContemObjetos =
    "Relatório contém objetos. Não é possível configurar as páginas ou margens.";
const std::string_view PadraoDePaginaInvalido = "Padrão de tamanho de páginas inválido.";
const std::string_view PaginaInsuficiente =
    "O tamanho de páginas é inválido ou não é suficiente para conter as margens.";
const std::string_view MargensInvalidas =
    "O tamanho das margens é inválido ou muito grande para o tamanho de páginas.";
}  // namespace CodigosDeErros

Erro::Erro(NumeroErro numero, std::string descricao)
    : numero_(numero), descricao_(ComoUtf8(std::move(descricao))) {}

void LancarCancelado() {
    throw Erro(NumeroErro::Cancelado, "Operação cancelada pelo usuário.");
}

void LancarUsoInvalidoDeNull(std::string_view onde) {
    throw Erro(NumeroErro::UsoInvalidoDeNull, "Uso inválido de Null: " + std::string(onde) + ".");
}

void LancarTipoIncompativel(std::string_view valor, std::string_view destino) {
    throw Erro(NumeroErro::TipoIncompativel, "Tipo incompatível: \"" + std::string(valor) +
                                                 "\" não se converte em " + std::string(destino) +
                                                 ".");
}

void LancarEstouro(std::string_view onde) {
    throw Erro(NumeroErro::Estouro, "Estouro: " + std::string(onde) + ".");
}

}  // namespace tarvo
