#include "review/Achado.h"

namespace tarvo {

namespace {

// A character of a UTF-8 text: its bytes, and whether it may stand in a message.
struct Caractere {
    std::string_view bytes;
    bool visivel = true;
};

bool Continua(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// C0, DEL, C1, the line and paragraph separators, and what turns the direction of writing.
bool Comanda(std::string_view bytes) {
    const auto primeiro = static_cast<unsigned char>(bytes[0]);
    if (primeiro < 0x20 || primeiro == 0x7F || primeiro == 0xFE || primeiro == 0xFF) {
        return true;
    }
    const auto entre = [&](std::string_view de, std::string_view ate) {
        return bytes >= de && bytes <= ate;
    };
    return entre("\u0080", "\u009F") || entre("\u2028", "\u202E") || entre("\u2066", "\u2069") ||
           Continua(bytes[0]);
}

Caractere Primeiro(std::string_view texto) {
    std::size_t fim = 1;
    while (fim < texto.size() && fim < 4 && !Continua(texto[0]) && Continua(texto[fim])) {
        ++fim;
    }
    const std::string_view bytes = texto.substr(0, fim);
    return {bytes, !Comanda(bytes)};
}

}  // namespace

std::string Trecho(std::string_view texto, std::size_t caracteres) {
    std::string trecho;
    for (; !texto.empty(); --caracteres) {
        if (caracteres == 0) {
            return trecho + "…";
        }
        const Caractere c = Primeiro(texto);
        trecho += c.visivel ? c.bytes : " ";
        texto.remove_prefix(c.bytes.size());
    }
    return trecho;
}

std::string TextoDoAchado(const Achado& achado) {
    std::string onde;
    const auto juntar = [&](const std::string& parte) {
        onde += (onde.empty() ? "" : ", ") + parte;
    };
    if (!achado.relatorio.empty()) {
        juntar("relatório " + achado.relatorio);
    }
    if (!achado.tabela.empty()) {
        juntar(achado.tabela);
    }
    if (achado.linhas > 0) {
        juntar(std::to_string(achado.linhas) + (achado.linhas == 1 ? " linha" : " linhas"));
    }
    return (onde.empty() ? "" : onde + ": ") + achado.motivo;
}

}  // namespace tarvo
