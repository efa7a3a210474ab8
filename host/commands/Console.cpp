#include "host/commands/Console.h"

#include "data/Utf8.h"

namespace tarvo::host {

namespace {

bool Perturba(std::string_view caractere) {
    const auto primeiro = static_cast<unsigned char>(caractere[0]);
    if (caractere.size() == 1) {
        return primeiro < 0x20 || primeiro == 0x7F;
    }
    // U+0080 to U+009F; the separators and marks of direction U+2028 to U+202E, U+2066 to U+2069.
    const auto entre = [&](std::string_view de, std::string_view ate) {
        return caractere >= de && caractere <= ate && caractere.size() == de.size();
    };
    return entre("\xC2\x80", "\xC2\x9F") || entre("\u2028", "\u202E") || entre("\u2066", "\u2069");
}

}  // namespace

std::string Legivel(std::string_view texto) {
    std::string legivel;
    legivel.reserve(texto.size());
    while (!texto.empty()) {
        const std::size_t tamanho = TamanhoDoCaractere(texto);
        const auto caractere = texto.substr(0, tamanho);
        if (tamanho == 0) {
            legivel += '?';
        } else if (Perturba(caractere)) {
            legivel += ' ';
        } else {
            legivel += caractere;
        }
        texto.remove_prefix(tamanho == 0 ? 1 : tamanho);
    }
    return legivel;
}

void Console::Dizer(std::string_view linha) {
    Saida() << Legivel(linha) << "\n";
}

void Console::Avisar(std::string_view aviso) {
    if (!modo_.silencioso) {
        erros_ << "aviso: " << Legivel(aviso) << "\n";
    }
}

}  // namespace tarvo::host
