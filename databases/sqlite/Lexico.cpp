// SPDX-License-Identifier: MIT
#include "databases/sqlite/Lexico.h"

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"

namespace tarvo::sqlite {

namespace {

bool EhBranco(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// Every letter outside ASCII may stand in a name.
bool EhLetra(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

class Leitor {
  public:
    explicit Leitor(std::string_view consulta) : consulta_(consulta) {}

    std::vector<Simbolo> Ler() {
        while (true) {
            while (EhBranco(Atual())) {
                ++i_;
            }
            inicio_ = i_;
            if (i_ == consulta_.size()) {
                Juntar(TipoSimbolo::Fim, "");
                return std::move(simbolos_);
            }
            LerSimbolo();
        }
    }

  private:
    [[nodiscard]] char Atual(std::size_t adiante = 0) const {
        return i_ + adiante < consulta_.size() ? consulta_[i_ + adiante] : '\0';
    }

    void Juntar(TipoSimbolo tipo, std::string texto) {
        simbolos_.push_back({tipo, std::move(texto), inicio_});
    }

    void LerSimbolo() {
        const char c = Atual();
        if (EhLetra(c)) {
            while (EhLetra(Atual()) || EhDigito(Atual())) {
                ++i_;
            }
            Juntar(TipoSimbolo::Palavra, std::string(consulta_.substr(inicio_, i_ - inicio_)));
        } else if (EhDigito(c)) {
            while (EhDigito(Atual())) {
                ++i_;
            }
            Juntar(TipoSimbolo::Numero, std::string(consulta_.substr(inicio_, i_ - inicio_)));
        } else if (c == '\'') {
            Juntar(TipoSimbolo::Texto, LerAte(c, true, "texto sem fim"));
        } else if (c == '[') {
            Juntar(TipoSimbolo::NomeEntreColchetes, LerAte(']', false, "nome sem \"]\""));
        } else {
            LerSinal();
        }
    }

    // What stands between the opening character and fim; with dobrado, fim twice is the character.
    std::string LerAte(char fim, bool dobrado, std::string_view problema) {
        std::string texto;
        for (++i_; i_ < consulta_.size(); ++i_) {
            if (Atual() != fim) {
                texto += Atual();
            } else if (dobrado && Atual(1) == fim) {
                texto += fim;
                ++i_;
            } else {
                ++i_;
                return texto;
            }
        }
        LancarErroDeSintaxe(consulta_, inicio_, problema);
    }

    void LerSinal() {
        for (const std::string_view sinal : {"<=", ">="}) {
            if (consulta_.substr(i_, 2) == sinal) {
                i_ += 2;
                return Juntar(TipoSimbolo::Sinal, std::string(sinal));
            }
        }
        if (std::string_view("(),.;=&-*").find(Atual()) == std::string_view::npos) {
            LancarErroDeSintaxe(consulta_, i_, "caractere inesperado");
        }
        Juntar(TipoSimbolo::Sinal, std::string(1, Atual()));
        ++i_;
    }

    std::string_view consulta_;
    std::size_t i_ = 0;
    std::size_t inicio_ = 0;
    std::vector<Simbolo> simbolos_;
};

}  // namespace

std::vector<Simbolo> LerSimbolos(std::string_view consulta) {
    if (const auto nulo = consulta.find('\0'); nulo != std::string_view::npos) {
        LancarErroDeSintaxe(consulta, nulo, "caractere nulo");
    }
    return Leitor(consulta).Ler();
}

void LancarErroDeSintaxe(std::string_view consulta, std::size_t posicao,
                         std::string_view problema) {
    constexpr std::size_t Trecho = 30;
    const auto antes = Caracteres(consulta.substr(0, posicao));
    std::size_t fim = std::min(consulta.size(), posicao + Trecho);
    while (fim < consulta.size() && ContinuaCaractere(consulta[fim])) {
        ++fim;
    }
    const std::string onde =
        posicao >= consulta.size()
            ? "no fim do texto"
            : "perto de \"" + std::string(consulta.substr(posicao, fim - posicao)) + "\"";
    throw Erro(NumeroErro::ErroSintaxeConsulta, "Erro de sintaxe na consulta, posição " +
                                                    std::to_string(antes + 1) + ", " + onde + ": " +
                                                    std::string(problema) + ".");
}

}  // namespace tarvo::sqlite
