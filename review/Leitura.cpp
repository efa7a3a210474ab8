// SPDX-License-Identifier: MIT
#include "review/Leitura.h"

#include <algorithm>
#include <bit>

#include "data/LeitoresDeCampo.h"

namespace tarvo::revisao {

namespace {

std::string Consulta(std::string_view tabela, Colunas colunas, std::string_view condicao) {
    std::string consulta = "select";
    for (const char* separador = " "; const std::string_view coluna : colunas) {
        consulta.append(separador).append(coluna);
        separador = ", ";
    }
    consulta.append(" from ").append(tabela);
    return condicao.empty() ? consulta : consulta.append(" where ").append(condicao);
}

std::string EmTexto(Valor&& valor) {
    auto* const texto = std::get_if<std::string>(&valor);
    return texto != nullptr ? std::move(*texto) : TextoCampo(valor);
}

}  // namespace

Leitura::Leitura(BancoDados& banco, std::string_view tabela, Colunas colunas,
                 std::string_view condicao)
    : colunas_(colunas),
      linhas_(
          banco.OpenRecordset(Consulta(tabela, colunas, condicao), TipoRecordset::ForwardOnly)) {}

Valor Leitura::Ler(std::string_view coluna) const {
    // Mostly the very same constant.
    const auto achada = std::ranges::find_if(colunas_, [&](std::string_view c) {
        return c.size() == coluna.size() && (c.data() == coluna.data() || c == coluna);
    });
    return linhas_->Fields(static_cast<int>(achada - colunas_.begin()));
}

bool Leitura::Nulo(std::string_view coluna) const {
    return EhNulo(Ler(coluna));
}

std::string Leitura::Texto(std::string_view coluna) const {
    return EmTexto(Ler(coluna));
}

std::optional<std::string> Leitura::Chave(std::string_view coluna) const {
    Valor valor = Ler(coluna);
    return EhNulo(valor) ? std::nullopt : std::optional(EmTexto(std::move(valor)));
}

std::int32_t Leitura::Longo(std::string_view coluna) const {
    return LongCampo(Ler(coluna));
}

Moeda Leitura::Quantia(std::string_view coluna) const {
    return MoedaCampo(Ler(coluna));
}

std::string DaDeclaracao(std::int32_t NroDRQ) {
    return "NroDRQ = " + std::to_string(NroDRQ);
}

void LerLinhasCom(BancoDados& banco, std::string_view tabela, Colunas colunas,
                  const std::set<std::string>& valores,
                  const std::function<void(const Leitura&)>& receber) {
    constexpr std::size_t PorConsulta = 64;
    constexpr std::size_t Passo = 8;
    std::size_t restam = valores.size();
    for (auto valor = valores.begin(); valor != valores.end();) {
        // Few lengths make few queries, which an engine can keep ready: the last value stands there
        // until one is reached. Each costs a search, so that they lie close.
        const std::size_t termos =
            restam < Passo ? std::bit_ceil(restam)
                           : std::min(PorConsulta, (restam + Passo - 1) / Passo * Passo);
        std::string condicao;
        for (std::size_t i = 0; i < termos; ++i) {
            condicao.append(i == 0 ? "" : " Or ").append(colunas[0]).append(" = ").append(*valor);
            if (restam > 1 || i + 1 == termos) {
                ++valor;
                --restam;
            }
        }
        for (Leitura linha(banco, tabela, colunas, condicao); !linha.Fim(); linha.Proxima()) {
            receber(linha);
        }
    }
}

void LerLinhasCom(BancoDados& banco, std::string_view tabela, Colunas colunas,
                  const std::set<std::int32_t>& numeros,
                  const std::function<void(const Leitura&)>& receber) {
    constexpr std::uint64_t LugaresPorNumero = 2;
    if (numeros.empty()) {
        return;
    }
    const std::string coluna(colunas[0]);
    const std::int64_t primeiro = *numeros.begin();
    const std::int64_t ultimo = *numeros.rbegin();
    if (static_cast<std::uint64_t>(ultimo - primeiro) >= LugaresPorNumero * numeros.size()) {
        std::set<std::string> valores;
        for (const std::int32_t numero : numeros) {
            valores.insert(std::to_string(numero));
        }
        return LerLinhasCom(banco, tabela, colunas, valores, receber);
    }
    const std::string faixa = coluna + " >= " + std::to_string(primeiro) + " And " + coluna +
                              " <= " + std::to_string(ultimo) + " order by " + coluna;
    for (Leitura linha(banco, tabela, colunas, faixa); !linha.Fim(); linha.Proxima()) {
        if (numeros.contains(linha.Longo(colunas[0]))) {
            receber(linha);
        }
    }
}

Catalogo::Catalogo(BancoDados& banco, std::string_view tabela, Colunas colunas,
                   const std::set<std::string>& codigos) {
    LerLinhasCom(banco, tabela, colunas, codigos, [&](const Leitura& linha) {
        Item& item = itens_[SemCaixa(linha.Texto(colunas[0]))];
        ++item.linhas;
        item.nome = linha.Texto(colunas[1]);
    });
}

const Catalogo::Item* Catalogo::Procurar(const std::optional<std::string>& codigo) const {
    const auto item = codigo ? itens_.find(SemCaixa(*codigo)) : itens_.end();
    return item == itens_.end() ? nullptr : &item->second;
}

void CodigosLidos::Acrescentar(std::optional<std::string> codigo) {
    const auto [lugar, novo] = lugares_.try_emplace(codigo, codigos_.size());
    if (novo) {
        codigos_.push_back({std::move(codigo)});
    }
    ++codigos_[lugar->second].linhas;
}

// The letters of Western European alphabets; others count as they are.
std::string SemCaixa(std::string_view texto) {
    std::string dobrado(texto);
    for (std::size_t i = 0; i < dobrado.size(); ++i) {
        const auto letra = static_cast<unsigned char>(dobrado[i]);
        const bool latina = i > 0 && dobrado[i - 1] == '\xC3' && letra >= 0x80 && letra <= 0x9E &&
                            letra != 0x97;  // U+00D7 is no letter
        if ((letra >= 'A' && letra <= 'Z') || latina) {
            dobrado[i] = static_cast<char>(letra + 0x20);
        }
    }
    return dobrado;
}

}  // namespace tarvo::revisao
