#include "databases/sqlite/Padrao.h"

#include "databases/sqlite/Alfabeto.h"

namespace tarvo::sqlite {

namespace {

std::u32string CaracteresSemCaixa(std::string_view texto) {
    std::u32string caracteres = Caracteres(texto);
    for (char32_t& c : caracteres) {
        c = SemCaixa(c);
    }
    return caracteres;
}

}  // namespace

Padrao::Padrao(std::string_view padrao) {
    const std::u32string letras = CaracteresSemCaixa(padrao);
    for (std::size_t i = 0; i < letras.size(); ++i) {
        Passo passo;
        passo.letra = letras[i];
        switch (letras[i]) {
            case U'*':
                passo.especie = Especie::Resto;
                break;
            case U'?':
                passo.especie = Especie::Qualquer;
                break;
            case U'#':
                passo.especie = Especie::Digito;
                break;
            case U'[':
                i = LerLista(letras, i, passo);
                break;
            default:
                break;
        }
        passos_.push_back(std::move(passo));
    }
}

// Reads the list that opens at inicio; the index of its last character.
std::size_t Padrao::LerLista(std::u32string_view padrao, std::size_t inicio, Passo& passo) {
    const std::size_t fim = padrao.find(U']', inicio + 1);
    if (fim == std::u32string_view::npos) {
        return inicio;
    }
    passo.especie = Especie::Lista;
    std::size_t i = inicio + 1;
    if (i < fim && padrao[i] == U'!') {
        passo.nenhuma = true;
        ++i;
    }
    while (i < fim) {
        const bool faixa = i + 2 < fim && padrao[i + 1] == U'-';
        passo.lista += {padrao[i], padrao[faixa ? i + 2 : i]};
        i += faixa ? 3 : 1;
    }
    return fim;
}

bool Padrao::CasaUm(const Passo& passo, char32_t letra) {
    switch (passo.especie) {
        case Especie::Letra:
            return letra == passo.letra;
        case Especie::Digito:
            return letra >= U'0' && letra <= U'9';
        case Especie::Lista:
            for (std::size_t i = 0; i < passo.lista.size(); i += 2) {
                if (letra >= passo.lista[i] && letra <= passo.lista[i + 1]) {
                    return !passo.nenhuma;
                }
            }
            return passo.nenhuma;
        default:
            return true;
    }
}

// Greedy with one point of return: when a character does not fit, only the last * can take more.
bool Padrao::Casa(std::string_view texto) const {
    const std::u32string letras = CaracteresSemCaixa(texto);
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t pVolta = passos_.size() + 1;
    std::size_t tVolta = 0;
    while (t < letras.size()) {
        if (p < passos_.size() && passos_[p].especie == Especie::Resto) {
            pVolta = ++p;
            tVolta = t;
        } else if (p < passos_.size() && CasaUm(passos_[p], letras[t])) {
            ++p;
            ++t;
        } else if (pVolta <= passos_.size()) {
            p = pVolta;
            t = ++tVolta;
        } else {
            return false;
        }
    }
    while (p < passos_.size() && passos_[p].especie == Especie::Resto) {
        ++p;
    }
    return p == passos_.size();
}

}  // namespace tarvo::sqlite
