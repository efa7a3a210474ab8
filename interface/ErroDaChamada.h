#pragma once

#include <cstdint>
#include <exception>
#include <new>
#include <string_view>

#include "data/CodigosDeErros.h"

// The border of the C interface: no exception crosses it, the calling thread keeps the error.
namespace tarvo::c {

// The thread's last error. Texts longer than its room are cut at a character.
void GuardarErro(NumeroErro numero, std::string_view descricao) noexcept;
std::int32_t NumeroDoErro() noexcept;
const char* TextoDoErro() noexcept;

// Runs a call; zero, or the number of the error that ended it.
template <class Acao>
std::int32_t Proteger(Acao&& acao) noexcept {
    try {
        acao();
        return 0;
    } catch (const Erro& erro) {
        GuardarErro(erro.Numero(), erro.Descricao());
    } catch (const std::bad_alloc&) {
        GuardarErro(NumeroErro::MemoriaInsuficiente, "Memória insuficiente.");
    } catch (const std::exception& erro) {
        GuardarErro(NumeroErro::ErroInterno, erro.what());
    } catch (...) {
        GuardarErro(NumeroErro::ErroInterno, "Erro interno.");
    }
    return NumeroDoErro();
}

}  // namespace tarvo::c
