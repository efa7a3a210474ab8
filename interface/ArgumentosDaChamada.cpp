// SPDX-License-Identifier: MIT
#include "interface/ArgumentosDaChamada.h"

#include "data/Utf8.h"

namespace tarvo::c {

void Recusar(const std::string& motivo) {
    throw Erro(NumeroErro::ChamadaInvalida, "Chamada inválida: " + motivo + ".");
}

std::string LerTexto(const char* texto, const char* nome) {
    ExigirPonteiro(texto != nullptr, nome);
    if (!EhUtf8(texto)) {
        Recusar(std::string(nome) + " não é UTF-8");
    }
    return texto;
}

std::filesystem::path Caminho(const char* arquivo) {
    if (arquivo == nullptr || *arquivo == '\0') {
        Recusar("falta o nome do arquivo");
    }
    return arquivo;
}

}  // namespace tarvo::c
