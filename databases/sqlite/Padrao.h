#pragma once

#include <string>
#include <string_view>
#include <vector>

// The patterns of Like: * any text, ? one character, # one digit, [a-z] one of, [!a-z] none of;
// without regard to case, with regard to accents.
namespace tarvo::sqlite {

class Padrao {
  public:
    // A "[" that is never closed stands for itself.
    explicit Padrao(std::string_view padrao);

    [[nodiscard]] bool Casa(std::string_view texto) const;

  private:
    enum class Especie { Letra, Qualquer, Digito, Lista, Resto };
    struct Passo {
        Especie especie = Especie::Letra;
        char32_t letra = 0;
        std::u32string lista;  // pairs of first and last character
        bool nenhuma = false;  // [!...]
    };
    [[nodiscard]] static bool CasaUm(const Passo& passo, char32_t letra);
    static std::size_t LerLista(std::u32string_view padrao, std::size_t inicio, Passo& passo);

    std::vector<Passo> passos_;
};

}  // namespace tarvo::sqlite
