// SPDX-License-Identifier: MIT
#include "databases/mdb/reader/Decodificador.h"

#include <glib.h>

#include <array>
#include <cerrno>

namespace tarvo::mdb {

namespace {

constexpr char32_t Ilegivel = 0xFFFD;

void Acrescentar(char32_t letra, std::string& utf8) {
    std::array<char, 6> bytes{};
    utf8.append(bytes.data(), static_cast<std::size_t>(g_unichar_to_utf8(letra, bytes.data())));
}

// The 16-bit units of a text, compressed or not, one by one.
class Unidades {
  public:
    explicit Unidades(std::span<const unsigned char> bytes) : bytes_(bytes) {
        comprimido_ = bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
        curtas_ = comprimido_;
        i_ = comprimido_ ? 2 : 0;
    }
    // False at the end; half a unit there is none.
    bool Proxima(char32_t& unidade) {
        // A zero byte changes between short and long units.
        while (comprimido_ && i_ < bytes_.size() && bytes_[i_] == 0) {
            curtas_ = !curtas_;
            ++i_;
        }
        const std::size_t tamanho = curtas_ ? 1 : 2;
        if (i_ + tamanho > bytes_.size()) {
            return false;
        }
        unidade = bytes_[i_] | (curtas_ ? 0U : static_cast<unsigned>(bytes_[i_ + 1]) << 8U);
        i_ += tamanho;
        return true;
    }
    [[nodiscard]] bool Sobra() const { return i_ < bytes_.size(); }

  private:
    std::span<const unsigned char> bytes_;
    std::size_t i_;
    bool comprimido_;
    bool curtas_;
};

}  // namespace

Decodificador::Decodificador(const std::string& codificacao)
    : conversor_(iconv_open("UTF-8", codificacao.c_str())) {}

Decodificador::~Decodificador() {
    if (Valido()) {
        iconv_close(conversor_);
    }
}

bool Decodificador::DaCodificacao(std::span<const unsigned char> bytes, std::string& utf8) const {
    bool legivel = true;
    // iconv does not write to its input.
    auto* entrada = reinterpret_cast<char*>(const_cast<unsigned char*>(bytes.data()));
    std::size_t restam = bytes.size();
    iconv(conversor_, nullptr, nullptr, nullptr, nullptr);
    while (restam > 0) {
        std::array<char, 1024> bloco;
        char* saida = bloco.data();
        std::size_t livres = bloco.size();
        const bool feito = iconv(conversor_, &entrada, &restam, &saida, &livres) != std::size_t(-1);
        utf8.append(bloco.data(), saida);
        if (!feito && errno != E2BIG) {
            Acrescentar(Ilegivel, utf8);
            legivel = false;
            ++entrada;
            --restam;
        }
    }
    return legivel;
}

bool Decodificador::DeUnicode(std::span<const unsigned char> bytes, std::string& utf8) {
    const auto alta = [](char32_t u) { return u >= 0xD800 && u < 0xDC00; };
    const auto baixa = [](char32_t u) { return u >= 0xDC00 && u < 0xE000; };
    bool legivel = true;
    Unidades unidades(bytes);
    char32_t unidade = 0;
    for (bool ha = unidades.Proxima(unidade); ha;) {
        char32_t letra = unidade;
        ha = unidades.Proxima(unidade);
        if (alta(letra) && ha && baixa(unidade)) {
            letra = 0x10000 + ((letra - 0xD800) << 10U) + (unidade - 0xDC00);
            ha = unidades.Proxima(unidade);
        } else if (alta(letra) || baixa(letra)) {
            letra = Ilegivel;
            legivel = false;
        }
        Acrescentar(letra, utf8);
    }
    return legivel && !unidades.Sobra();
}

}  // namespace tarvo::mdb
