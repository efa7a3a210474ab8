// SPDX-License-Identifier: MIT
#include "output/pdf/file/ObjetosEmFileira.h"

#include <algorithm>

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

namespace {

constexpr std::size_t EntradasPorFileira = 2;  // of the index
constexpr std::size_t MenorLargura = 40;       // an entry has room
constexpr std::size_t MaiorLargura = 4000;
constexpr char Acima = 2;  // the predictor: difference to the row above

}  // namespace

std::size_t ObjetosEmFileira::LarguraPara(std::size_t tamanho) {
    const std::size_t passo = tamanho < 100 ? 10 : tamanho < 400 ? 40 : 160;
    const std::size_t largura = std::max(MenorLargura, (tamanho / passo + 1) * passo);
    return largura <= MaiorLargura ? largura : 0;
}

void ObjetosEmFileira::Acrescentar(int numero, std::string_view corpo) {
    numeros_.push_back(numero);
    corpos_.append(corpo);
    corpos_.append(largura_ - corpo.size(), ' ');
}

std::string_view ObjetosEmFileira::Corpo(std::size_t i) const {
    return std::string_view(corpos_).substr(i * largura_, largura_);
}

std::size_t ObjetosEmFileira::FileirasDoIndice() const {
    return (numeros_.size() + EntradasPorFileira - 1) / EntradasPorFileira;
}

std::string ObjetosEmFileira::Dicionario() const {
    std::string dicionario = "/Type/ObjStm/N ";
    AnexarInteiro(dicionario, static_cast<std::int64_t>(numeros_.size()));
    dicionario += "/First ";
    AnexarInteiro(dicionario, static_cast<std::int64_t>(FileirasDoIndice() * largura_));
    dicionario += "/DecodeParms<</Predictor 12/Columns ";
    AnexarInteiro(dicionario, static_cast<std::int64_t>(largura_));
    return dicionario + ">>";
}

std::string_view ObjetosEmFileira::Dados() {
    linhas_.clear();
    for (std::size_t i = 0; i < numeros_.size(); ++i) {
        AnexarInteiro(linhas_, numeros_[i]);
        linhas_ += ' ';
        AnexarInteiro(linhas_, static_cast<std::int64_t>(i * largura_));
        linhas_.resize((i + 1) * (largura_ / EntradasPorFileira), ' ');
    }
    linhas_.resize(FileirasDoIndice() * largura_, ' ');

    dados_.resize((linhas_.size() + corpos_.size()) / largura_ * (largura_ + 1));
    char* saida = dados_.data();
    const std::string nada(largura_, '\0');
    const char* acima = nada.data();
    for (const std::string* const parte : {&linhas_, &corpos_}) {
        for (std::size_t i = 0; i < parte->size(); i += largura_) {
            const char* const linha = parte->data() + i;
            *saida++ = Acima;
            saida = std::transform(linha, linha + largura_, acima, saida,
                                   [](char a, char b) { return static_cast<char>(a - b); });
            acima = linha;
        }
    }
    return dados_;
}

void ObjetosEmFileira::Esvaziar() {
    numeros_.clear();
    corpos_.clear();
}

}  // namespace tarvo::pdf
