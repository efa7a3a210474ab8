// SPDX-License-Identifier: MIT
#include "tests/databases/mdb/EscritorMdb.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>

namespace tarvo::mdb {

namespace {

constexpr std::size_t Pagina = 4096;
constexpr std::uint32_t PaginaDosMapas = 1;
constexpr std::size_t Contagem = 12;  // of a page's rows
constexpr int Apagada = 0x8000;
constexpr int Ponteiro = 0x4000;
constexpr std::int64_t ClasseTabela = 1;
constexpr std::int64_t ClasseVinculada = 6;

template <class T>
std::string Cru(T valor) {
    std::string bytes(sizeof valor, '\0');
    std::memcpy(bytes.data(), &valor, sizeof valor);
    return bytes;
}

template <class T>
void Por(std::string& pagina, std::size_t onde, T valor) {
    std::memcpy(pagina.data() + onde, &valor, sizeof valor);
}

std::uint16_t Ler16(const std::string& pagina, std::size_t onde) {
    std::uint16_t valor = 0;
    std::memcpy(&valor, pagina.data() + onde, sizeof valor);
    return valor;
}

// The header is hidden by a fixed key.
void Embaralhar(std::string& pagina) {
    constexpr std::array<unsigned, 4> Chave{0xC7, 0xDA, 0x39, 0x6B};
    std::array<std::uint8_t, 256> s{};
    std::iota(s.begin(), s.end(), std::uint8_t{0});
    for (unsigned i = 0, j = 0; i < s.size(); ++i) {
        j = (j + s[i] + Chave[i % Chave.size()]) % 256;
        std::swap(s[i], s[j]);
    }
    for (unsigned n = 0, i = 0, j = 0; n < 128; ++n) {
        i = (i + 1) % 256;
        j = (j + s[i]) % 256;
        std::swap(s[i], s[j]);
        pagina[0x18 + n] = static_cast<char>(pagina[0x18 + n] ^ s[(s[i] + s[j]) % 256]);
    }
}

// Compressed where every character allows it, as the engine does.
std::string Unicode(const std::string& utf8, bool comprimir) {
    std::string inteiro;
    std::string curto = "\xFF\xFE";
    bool latino = comprimir;
    const auto unidades = icu::UnicodeString::fromUTF8(utf8);
    for (int i = 0; i < unidades.length(); ++i) {
        // U+FFFD stands for half a character.
        const char16_t unidade = unidades[i] == 0xFFFD ? 0xD83D : unidades[i];
        inteiro += Cru(static_cast<std::uint16_t>(unidade));
        latino = latino && unidade > 0 && unidade < 256;
        curto += static_cast<char>(unidade);
    }
    return latino && curto.size() < inteiro.size() ? curto : inteiro;
}

bool Fixa(TipoMdb tipo) {
    return tipo != TipoMdb::Texto && tipo != TipoMdb::Memo;
}

std::string BytesFixos(TipoMdb tipo, const CelulaMdb& celula) {
    const auto* inteiro = std::get_if<std::int64_t>(&celula);
    const std::int64_t n = inteiro != nullptr ? *inteiro : 0;
    const auto* real = std::get_if<double>(&celula);
    const double d = real != nullptr ? *real : 0;
    switch (tipo) {
        case TipoMdb::Byte:
            return Cru(static_cast<std::uint8_t>(n));
        case TipoMdb::Inteiro:
            return Cru(static_cast<std::int16_t>(n));
        case TipoMdb::Longo:
            return Cru(static_cast<std::int32_t>(n));
        case TipoMdb::Moeda:
            return Cru(n);
        case TipoMdb::Simples:
            return Cru(static_cast<float>(d));
        case TipoMdb::Duplo:
        case TipoMdb::Data:
            return Cru(d);
        case TipoMdb::Decimal: {
            // Sign, then four words from the highest.
            const auto absoluto = static_cast<std::uint64_t>(n < 0 ? -n : n);
            return std::string(1, n < 0 ? '\x80' : '\0') + std::string(8, '\0') +
                   Cru(static_cast<std::uint32_t>(absoluto >> 32U)) +
                   Cru(static_cast<std::uint32_t>(absoluto));
        }
        default:
            return "";  // a Boolean is a bit among those of Null
    }
}

}  // namespace

EscritorMdb::EscritorMdb() {
    NovaPagina(0);
    NovaPagina(1);
    tabelas_.push_back({NovaPagina(2),
                        {{"Id", TipoMdb::Longo},
                         {"Name", TipoMdb::Texto},
                         {"Type", TipoMdb::Inteiro},
                         {"Flags", TipoMdb::Longo},
                         {"LvProp", TipoMdb::Memo}},
                        0,
                        {}});
}

std::uint32_t EscritorMdb::NovaPagina(std::uint8_t tipo) {
    paginas_.emplace_back(Pagina, '\0');
    paginas_.back()[0] = static_cast<char>(tipo);
    paginas_.back()[1] = 1;
    return static_cast<std::uint32_t>(paginas_.size() - 1);
}

std::uint32_t EscritorMdb::NovaPaginaDeDados(std::uint32_t dono) {
    const auto pagina = NovaPagina(1);
    Por(Da(pagina), 4, dono);
    return pagina;
}

std::size_t EscritorMdb::Livres(std::uint32_t pagina) const {
    const std::string& p = paginas_[pagina];
    const std::size_t linhas = Ler16(p, Contagem);
    const std::size_t fim = linhas == 0 ? Pagina : Ler16(p, Contagem + 2 * linhas) & 0x1FFFU;
    const std::size_t inicio = Contagem + 2 + 2 * (linhas + 1);
    return fim > inicio ? fim - inicio : 0;
}

std::uint32_t EscritorMdb::Acrescentar(std::uint32_t pagina, const std::string& linha, int marcas) {
    std::string& p = Da(pagina);
    const std::uint16_t linhas = Ler16(p, Contagem);
    const std::size_t fim = linhas == 0 ? Pagina : Ler16(p, Contagem + 2UL * linhas) & 0x1FFFU;
    const std::size_t inicio = fim - linha.size();
    linha.copy(p.data() + inicio, linha.size());
    Por(p, Contagem, static_cast<std::uint16_t>(linhas + 1));
    Por(p, Contagem + 2 + 2UL * linhas, static_cast<std::uint16_t>(inicio | unsigned(marcas)));
    return pagina << 8U | linhas;
}

void EscritorMdb::Tabela(const std::string& nome, std::vector<ColunaMdb> colunas) {
    const auto pagina = NovaPagina(2);
    std::swap(tabelas_.front(), tabelas_.back());
    Linha({std::int64_t{pagina}, nome, ClasseTabela, std::int64_t{0}, {}});
    std::swap(tabelas_.front(), tabelas_.back());
    tabelas_.push_back({pagina, std::move(colunas), 0, {}});
}

void EscritorMdb::Vinculada(const std::string& nome) {
    std::swap(tabelas_.front(), tabelas_.back());
    Linha({std::int64_t{0}, nome, ClasseVinculada, std::int64_t{0}, {}});
    std::swap(tabelas_.front(), tabelas_.back());
}

// A memo in the row, in one piece elsewhere, or in a chain of pieces.
std::string EscritorMdb::Guardar(const std::string& memo) {
    constexpr std::size_t MaiorNaLinha = 64;
    constexpr std::size_t MaiorPedaco = 4000;
    constexpr std::uint32_t LongVal = 0x4C41564C;
    const auto tamanho = static_cast<std::uint32_t>(memo.size());
    if (memo.size() <= MaiorNaLinha) {
        return Cru(tamanho | 0x80000000U) + std::string(8, '\0') + memo;
    }
    const bool inteiro = memo.size() <= MaiorPedaco;
    const std::size_t pedacos = (memo.size() + MaiorPedaco - 1) / MaiorPedaco;
    std::uint32_t ponteiro = 0;
    for (std::size_t i = pedacos; i-- > 0;) {
        const std::string pedaco = memo.substr(i * MaiorPedaco, MaiorPedaco);
        if (memos_ == 0 || Livres(memos_) < pedaco.size() + 4) {
            memos_ = NovaPaginaDeDados(LongVal);
        }
        ponteiro = Acrescentar(memos_, (inteiro ? "" : Cru(ponteiro)) + pedaco);
    }
    return Cru(tamanho | (inteiro ? 0x40000000U : 0U)) + Cru(ponteiro) + std::string(4, '\0');
}

std::string EscritorMdb::Montar(const std::vector<ColunaMdb>& colunas,
                                const std::vector<CelulaMdb>& celulas) {
    std::string linha = Cru(static_cast<std::uint16_t>(colunas.size()));
    std::string nulos((colunas.size() + 7) / 8, '\0');
    std::vector<std::uint16_t> lugares;
    for (const bool fixas : {true, false}) {
        for (std::size_t c = 0; c < colunas.size(); ++c) {
            if (Fixa(colunas[c].tipo) != fixas) {
                continue;
            }
            const auto* logico = std::get_if<bool>(&celulas[c]);
            const bool presente =
                logico != nullptr ? *logico : !std::holds_alternative<std::monostate>(celulas[c]);
            nulos[c / 8] = static_cast<char>(nulos[c / 8] | (presente ? 1 << (c % 8) : 0));
            if (fixas) {
                linha += BytesFixos(colunas[c].tipo, celulas[c]);
                continue;
            }
            lugares.push_back(static_cast<std::uint16_t>(linha.size()));
            if (presente) {
                const bool memo = colunas[c].tipo == TipoMdb::Memo;
                const std::string texto = Unicode(std::get<std::string>(celulas[c]), !memo);
                linha += memo ? Guardar(texto) : texto;
            }
        }
    }
    if (!lugares.empty()) {
        linha += Cru(static_cast<std::uint16_t>(linha.size()));
        std::for_each(lugares.rbegin(), lugares.rend(),
                      [&](std::uint16_t lugar) { linha += Cru(lugar); });
        linha += Cru(static_cast<std::uint16_t>(lugares.size()));
    }
    return linha + nulos;
}

void EscritorMdb::Linha(const std::vector<CelulaMdb>& celulas, LinhaMdb como) {
    const std::size_t qual = tabelas_.size() - 1;
    const std::string linha = Montar(tabelas_[qual].colunas, celulas);
    Definicao& tabela = tabelas_[qual];
    if (tabela.paginas.empty() || Livres(tabela.paginas.back()) < linha.size()) {
        tabela.paginas.push_back(NovaPaginaDeDados(tabela.pagina));
    }
    const auto pagina = tabela.paginas.back();
    if (como == LinhaMdb::Mudada) {
        const auto outra = NovaPaginaDeDados(tabela.pagina);
        tabela.paginas.insert(tabela.paginas.begin(), outra);
        Acrescentar(pagina, Cru(Acrescentar(outra, linha, Apagada)), Ponteiro);
    } else {
        Acrescentar(pagina, linha, como == LinhaMdb::Apagada ? Apagada | Ponteiro : 0);
    }
    tabela.linhas += como == LinhaMdb::Apagada ? 0 : 1;
}

void EscritorMdb::EscreverDefinicao(const Definicao& tabela, std::uint32_t lugarDoMapa) {
    std::string& p = Da(tabela.pagina);
    Por(p, 16, tabela.linhas);
    p[40] = 0x4E;
    const auto total = static_cast<std::uint16_t>(tabela.colunas.size());
    const auto variaveis = static_cast<std::uint16_t>(std::ranges::count_if(
        tabela.colunas, [](const ColunaMdb& coluna) { return !Fixa(coluna.tipo); }));
    Por(p, 41, total);
    Por(p, 43, variaveis);
    Por(p, 45, total);
    Por(p, 55, lugarDoMapa);
    Por(p, 59, PaginaDosMapas << 8U);
    std::size_t onde = 63;
    std::uint16_t fixa = 0;
    std::uint16_t variavel = 0;
    for (std::uint16_t c = 0; c < total; ++c, onde += 25) {
        const TipoMdb tipo = tabela.colunas[c].tipo;
        p[onde] = static_cast<char>(tipo);
        Por(p, onde + 5, c);
        Por(p, onde + 7, variavel);
        Por(p, onde + 9, c);
        if (tipo == TipoMdb::Decimal) {
            p[onde + 11] = 28;
            p[onde + 12] = 4;
        }
        p[onde + 15] = Fixa(tipo) ? 3 : 2;
        const auto bytes = static_cast<std::uint16_t>(BytesFixos(tipo, {}).size());
        Por(p, onde + 21, fixa);
        Por(p, onde + 23, static_cast<std::uint16_t>(tipo == TipoMdb::Texto ? 510 : bytes));
        fixa = static_cast<std::uint16_t>(fixa + bytes);
        variavel = static_cast<std::uint16_t>(variavel + (Fixa(tipo) ? 0 : 1));
    }
    for (const ColunaMdb& coluna : tabela.colunas) {
        const std::string nome = Unicode(coluna.nome, false);
        Por(p, onde, static_cast<std::uint16_t>(nome.size()));
        nome.copy(p.data() + onde + 2, nome.size());
        onde += 2 + nome.size();
    }
    Por(p, 8, static_cast<std::uint32_t>(onde - 8));
}

void EscritorMdb::EscreverCabecalho() {
    constexpr double Criacao = 37803.5;
    std::string& p = Da(0);
    p.assign(Pagina, '\0');
    p.replace(0, 20, std::string("\0\1\0\0Standard Jet DB\0", 20));
    p[0x14] = 1;
    Por(p, 0x3C, std::uint16_t{1252});
    Por(p, 0x3E, chave);
    for (std::size_t i = 0; i < 40; i += 4) {
        Por(p, 0x42 + i, static_cast<std::uint32_t>(Criacao));
    }
    p[0x42] = static_cast<char>(p[0x42] ^ senha);
    Por(p, 0x72, Criacao);
    Embaralhar(p);
}

std::string EscritorMdb::Bytes() {
    EscreverCabecalho();
    Da(PaginaDosMapas) = std::string(Pagina, '\0');
    Da(PaginaDosMapas)[0] = 1;
    Acrescentar(PaginaDosMapas, std::string(69, '\0'));  // no page has room
    tabelas_.back().linhas += static_cast<std::uint32_t>(linhasAMais);
    for (const Definicao& tabela : tabelas_) {
        std::string mapa(69, '\0');
        for (const std::uint32_t pagina : tabela.paginas) {
            mapa.resize(std::max(mapa.size(), std::size_t{6} + pagina / 8));
            mapa[5 + pagina / 8] = static_cast<char>(mapa[5 + pagina / 8] | 1 << (pagina % 8));
        }
        EscreverDefinicao(tabela, Acrescentar(PaginaDosMapas, mapa));
    }
    tabelas_.back().linhas -= static_cast<std::uint32_t>(linhasAMais);
    return std::accumulate(paginas_.begin(), paginas_.end(), std::string());
}

}  // namespace tarvo::mdb
