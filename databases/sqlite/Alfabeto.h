#pragma once

#include <memory>
#include <string>
#include <string_view>

struct UCollator;

// How texts compare: without regard to case, in the order of the Portuguese alphabet, whatever
// the machine's locale.
namespace tarvo::sqlite {

// The text without its differences of case. Letters outside ASCII never fold into ASCII, so that
// a text of ASCII alone equals only what an ASCII comparison without case would find.
std::string SemCaixa(std::string_view texto);
char32_t SemCaixa(char32_t letra);

// True for well-formed UTF-8.
bool EhUtf8(std::string_view texto);

// The characters of an UTF-8 text; what is no UTF-8 counts as U+FFFD.
std::u32string Caracteres(std::string_view texto);

class Alfabeto {
  public:
    Alfabeto();
    ~Alfabeto();
    Alfabeto(const Alfabeto&) = delete;
    Alfabeto& operator=(const Alfabeto&) = delete;

    // Negative, 0, positive. An accent decides only between texts that are otherwise equal, the
    // unaccented first; 0 exactly when SemCaixa(a) == SemCaixa(b).
    [[nodiscard]] int Comparar(std::string_view a, std::string_view b) const;

  private:
    struct Fechar {
        void operator()(UCollator* ordem) const;
    };
    // Opened at the first text outside ASCII: loading the tables takes milliseconds.
    mutable std::unique_ptr<UCollator, Fechar> ordem_;
};

}  // namespace tarvo::sqlite
