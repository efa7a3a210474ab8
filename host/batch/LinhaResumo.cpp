// SPDX-License-Identifier: MIT
#include "host/batch/LinhaResumo.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <istream>
#include <span>
#include <tuple>
#include <utility>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "system/files/Arquivos.h"

namespace tarvo::host {

namespace {

constexpr std::string_view Marca = "\xEF\xBB\xBF";
constexpr std::array<std::string_view, 14> Colunas = {
    "inscrição", "declaração", "referência", "relatório",        "arquivo", "bytes", "páginas",
    "cortados",  "erro",       "descrição",  "referência atual", "opções",  "dados", "conteúdo"};
constexpr std::size_t ColunasSemHashes = 10;

// Before what a spreadsheet would take for a formula, and before itself.
constexpr char Texto = '\'';
constexpr std::string_view ComecosDeFormula = "=+-@\t'";

std::string Celula(std::string texto) {
    std::ranges::replace_if(
        texto, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    if (!texto.empty() && ComecosDeFormula.find(texto.front()) != std::string_view::npos) {
        texto.insert(0, 1, Texto);
    }
    if (texto.find_first_of(";\"") == std::string::npos) {
        return texto;
    }
    std::string citada = "\"";
    for (const char c : texto) {
        citada.append(c == '"' ? 2 : 1, c);
    }
    return citada + '"';
}

std::string_view SemFimDeLinha(std::string_view registro) {
    for (const char fim : {'\n', '\r'}) {
        if (registro.ends_with(fim)) {
            registro.remove_suffix(1);
        }
    }
    return registro;
}

std::string Celula(std::integral auto numero) {
    return std::to_string(numero);
}

bool Ler(std::string_view celula, std::string& texto) {
    texto = celula.substr(celula.starts_with(Texto) ? 1 : 0);
    return true;
}

template <std::integral Inteiro>
bool Ler(std::string_view celula, Inteiro& numero) {
    const auto lido = LerInteiro<Inteiro>(celula);
    numero = lido.value_or(0);
    return lido.has_value();
}

// In the order of the columns.
auto Celulas(auto& l) {
    return std::tie(l.IE, l.NroDRQ, l.referencia, l.relatorio, l.arquivo, l.bytes, l.paginas,
                    l.cortados, l.erro, l.descricao, l.refAtual, l.opcoes, l.dados, l.conteudo);
}

}  // namespace

std::string Escrita(const LinhaResumo& l) {
    std::string linha;
    std::apply([&](const auto&... campos) { ((linha += Celula(campos) + ';'), ...); }, Celulas(l));
    linha.pop_back();
    return linha + "\r\n";
}

std::optional<LinhaResumo> Lida(std::string_view registro) {
    const auto celulas = SepararCelulas(registro);
    if (celulas.size() != Colunas.size()) {
        return std::nullopt;
    }
    LinhaResumo l;
    auto celula = celulas.begin();
    const bool lida =
        std::apply([&](auto&... campos) { return (Ler(*celula++, campos) && ...); }, Celulas(l));
    return lida ? std::optional(std::move(l)) : std::nullopt;
}

std::string Cabecalho() {
    std::string linha(Marca);
    for (const auto coluna : Colunas) {
        linha.append(coluna).append(coluna == Colunas.back() ? "\r\n" : ";");
    }
    return linha;
}

void ExigirCabecalho(std::string_view registro, const std::filesystem::path& arquivo) {
    if (registro.starts_with(Marca)) {
        registro.remove_prefix(Marca.size());
    }
    const auto celulas = SepararCelulas(registro);
    if (std::ranges::equal(celulas, Colunas)) {
        return;
    }
    const bool semHashes =
        std::ranges::equal(celulas, std::span(Colunas).first<ColunasSemHashes>());
    throw Erro(NumeroErro::ChamadaInvalida,
               "\"" + arquivo.string() +
                   (semHashes ? "\" é o resumo de um lote da versão 1.0, que não diz de que dados "
                                "foi feito; use outra pasta."
                              : "\" não é o resumo de um lote; use outra pasta."));
}

std::vector<std::string> SepararCelulas(std::string_view registro) {
    registro = SemFimDeLinha(registro);
    std::vector<std::string> celulas(1);
    bool citada = false;
    bool noComeco = true;
    for (std::size_t i = 0; i < registro.size(); ++i) {
        const char c = registro[i];
        const bool aspas = c == '"';
        if (aspas && noComeco) {
            citada = true;
        } else if (aspas && citada && i + 1 < registro.size() && registro[i + 1] == '"') {
            celulas.back() += c;
            ++i;
        } else if (aspas && citada) {
            citada = false;
        } else if (c == ';' && !citada) {
            celulas.emplace_back();
        } else {
            celulas.back() += c;
        }
        noComeco = c == ';' && !citada;
    }
    return celulas;
}

int LeitorDeRegistros::Ler() {
    if (usados_ < devolvidos_.size()) {
        return static_cast<unsigned char>(devolvidos_[usados_++]);
    }
    try {
        return entrada_.rdbuf()->sbumpc();
    } catch (const std::ios_base::failure& falha) {
        LancarErroDeArquivo("resumo.csv", falha.code().value());
    }
}

bool LeitorDeRegistros::Proximo(std::string& registro) {
    constexpr std::size_t MaiorCitado = 65'536;
    constexpr int Fim = std::char_traits<char>::eof();
    registro.clear();
    inicio_ = fim_;
    bool noComeco = true;  // of a cell
    bool celulaCitada = false;
    bool citado = false;
    for (;;) {
        const int c = Ler();
        const bool demais = citado && registro.size() >= MaiorCitado;
        if (c != Fim) {
            registro += static_cast<char>(c);
        }
        if (c == Fim || demais) {
            const std::size_t linha = citado ? registro.find('\n') : std::string::npos;
            if (linha != std::string::npos) {
                devolvidos_ = registro.substr(linha + 1) + devolvidos_.substr(usados_);
                usados_ = 0;
                registro.resize(linha + 1);
            }
            break;
        }
        if (c == '"' && (noComeco || celulaCitada)) {
            celulaCitada = true;
            citado = !citado;
        } else if (c == '\n' && !citado) {
            break;
        } else if (c == ';' && !citado) {
            celulaCitada = false;
        }
        noComeco = c == ';' && !citado;
    }
    fim_ = inicio_ + registro.size();
    return !registro.empty();
}

}  // namespace tarvo::host
