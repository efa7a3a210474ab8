// SPDX-License-Identifier: MIT
#include "databases/sqlite/ConsultasProntas.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <variant>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "data/Textos.h"
#include "databases/sqlite/Gramatica.h"
#include "databases/sqlite/Letras.h"

namespace tarvo::sqlite {

namespace {

// Stands in a format for a literal; a query that holds it is translated each time.
constexpr char Lugar = '\x01';
// More digits than these may not fit where a parameter's value goes.
constexpr std::size_t MaisDigitos = 9;

// Reads a query as the lexer does, as far as telling its literals apart needs it.
class LeitorDeFormato {
  public:
    explicit LeitorDeFormato(std::string_view consulta)
        : consulta_(consulta), agrupa_(Agrupa(consulta)) {
        formato_.texto.reserve(consulta.size());
    }

    FormatoDeConsulta Ler() {
        while (i_ < consulta_.size()) {
            switch (consulta_[i_]) {
                case '\'':
                    LerTexto(false);
                    break;
                case '[':
                    Copiar(std::min(consulta_.find(']', i_), consulta_.size() - 1) + 1);
                    break;
                case '=':
                    LerComparado();
                    break;
                default:
                    CopiarAte([](char c) { return c == '\'' || c == '[' || c == '='; });
            }
        }
        return std::move(formato_);
    }

  private:
    void Copiar(std::size_t fim) {
        formato_.texto += consulta_.substr(i_, fim - i_);
        i_ = fim;
    }

    template <class Condicao>
    void CopiarAte(Condicao&& condicao) {
        const auto* const fim = std::find_if(consulta_.begin() + i_, consulta_.end(), condicao);
        Copiar(static_cast<std::size_t>(fim - consulta_.begin()));
    }

    // What follows the sign of a comparison.
    void LerComparado() {
        CopiarAte([](char c) { return c != '=' && c != ' ' && (c < '\t' || c > '\r'); });
        const char c = i_ < consulta_.size() ? consulta_[i_] : '\0';
        if (c == '\'') {
            LerTexto(true);
        } else if (EhDigito(c)) {
            LerNumero();
        }
    }

    void LerTexto(bool comparado) {
        std::size_t fim = i_ + 1;
        while (fim < consulta_.size() && (consulta_[fim] != '\'' || Dobrada(fim))) {
            fim += consulta_[fim] == '\'' ? 2 : 1;
        }
        if (fim >= consulta_.size() || !comparado) {
            return Copiar(std::min(fim + 1, consulta_.size()));
        }
        Juntar(consulta_.substr(i_ + 1, fim - i_ - 1), false);
        i_ = fim + 1;
    }

    [[nodiscard]] bool Dobrada(std::size_t aspas) const {
        return aspas + 1 < consulta_.size() && consulta_[aspas + 1] == '\'';
    }

    void LerNumero() {
        std::size_t fim = i_;
        while (fim < consulta_.size() && EhDigito(consulta_[fim])) {
            ++fim;
        }
        if (fim - i_ > MaisDigitos) {
            return Copiar(fim);
        }
        Juntar(consulta_.substr(i_, fim - i_), true);
        i_ = fim;
    }

    void Juntar(std::string_view texto, bool numero) {
        auto& literais = formato_.literais;
        int parametro = static_cast<int>(literais.size()) + 1;
        if (agrupa_) {
            const auto igual = std::ranges::find_if(literais, [&](const LiteralComparado& l) {
                return l.numero == numero && l.texto == texto;
            });
            parametro = igual != literais.end() ? igual->parametro : parametro;
        }
        formato_.texto += Lugar;
        formato_.texto += numero ? 'n' : static_cast<char>('0' + static_cast<int>(LetrasDe(texto)));
        formato_.texto += std::to_string(parametro);
        formato_.texto += Lugar;
        literais.push_back({i_, texto, numero, parametro});
    }

    // Whether it may have a GROUP BY, in which equal expressions must stay equal.
    static bool Agrupa(std::string_view consulta) {
        constexpr std::string_view Group = "GROUP";
        return std::search(consulta.begin(), consulta.end(), Group.begin(), Group.end(),
                           [](char c, char letra) {
                               return c == letra || c == letra + ('a' - 'A');
                           }) != consulta.end();
    }

    std::string_view consulta_;
    bool agrupa_;
    std::size_t i_ = 0;
    FormatoDeConsulta formato_;
};

void PorParametros(Expressao& expressao, const std::vector<LiteralComparado>& literais) {
    if (expressao.operacao == Operacao::Texto || expressao.operacao == Operacao::Numero) {
        const auto* const literal = Achar(literais, expressao.posicao, &LiteralComparado::posicao);
        expressao.parametro = literal != nullptr ? literal->parametro : 0;
    }
    for (Expressao& parte : expressao.partes) {
        PorParametros(parte, literais);
    }
}

void PorParametros(Selecao& selecao, const std::vector<LiteralComparado>& literais) {
    for (ItemSelecao& item : selecao.itens) {
        if (item.expressao) {
            PorParametros(*item.expressao, literais);
        }
    }
    for (auto* lista : {&selecao.juncoes, &selecao.condicoes, &selecao.grupos,
                        &selecao.condicoesDosGrupos, &selecao.ordem}) {
        for (Expressao& expressao : *lista) {
            PorParametros(expressao, literais);
        }
    }
}

Selecao LerSelecao(std::string_view consulta) {
    Consulta lida = Analisar(consulta);
    auto* const selecao = std::get_if<Selecao>(&lida);
    if (selecao == nullptr) {
        throw Erro(NumeroErro::OperacaoInvalida,
                   "Uma consulta que exclui registros não se abre, executa-se.");
    }
    return std::move(*selecao);
}

void Vincular(Conexao& conexao, sqlite3_stmt* instrucao,
              const std::vector<LiteralComparado>& literais) {
    for (const LiteralComparado& literal : literais) {
        if (literal.numero) {
            std::int64_t numero = 0;
            std::from_chars(literal.texto.data(), literal.texto.data() + literal.texto.size(),
                            numero);
            conexao.Conferir(sqlite3_bind_int64(instrucao, literal.parametro, numero));
            continue;
        }
        std::string texto;
        for (std::size_t i = 0; i < literal.texto.size(); ++i) {
            texto += literal.texto[i];
            i += literal.texto[i] == '\'' ? 1 : 0;
        }
        conexao.Conferir(sqlite3_bind_text64(instrucao, literal.parametro, texto.data(),
                                             texto.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
    }
}

}  // namespace

FormatoDeConsulta LerFormato(std::string_view consulta) {
    return LeitorDeFormato(consulta).Ler();
}

ConsultaAberta ConsultasProntas::Abrir(std::string_view consulta) {
    constexpr std::size_t MaisProntas = 256;
    if (esquema_->Versao() != versao_ || prontas_.size() >= MaisProntas) {
        prontas_.clear();
        versao_ = esquema_->Versao();
    }
    const FormatoDeConsulta formato = LerFormato(consulta);
    std::shared_ptr<ConsultaPronta> pronta;
    if (consulta.find(Lugar) != std::string_view::npos) {
        pronta = Traduzida(consulta, formato);
    } else if (const auto lembrada = prontas_.find(formato.texto); lembrada != prontas_.end()) {
        pronta = lembrada->second;
    } else {
        pronta = Traduzida(consulta, formato);
        prontas_.emplace(formato.texto, pronta);
    }
    auto leitura = pronta->leitura ? std::move(pronta->leitura)
                                   : std::make_unique<Instrucao>(conexao_, pronta->selecao.sql);
    Vincular(*conexao_, leitura->Ponteiro(), formato.literais);
    return {std::move(pronta), std::move(leitura)};
}

std::shared_ptr<ConsultaPronta> ConsultasProntas::Traduzida(std::string_view consulta,
                                                            const FormatoDeConsulta& formato) {
    auto pronta = std::make_shared<ConsultaPronta>();
    Selecao selecao = LerSelecao(consulta);
    Selecao comParametros = selecao;
    PorParametros(comParametros, formato.literais);
    try {
        pronta->selecao = Traduzir(comParametros, *esquema_, consulta);
    } catch (const Erro&) {
        // The message shall name the literals.
        pronta->selecao = Traduzir(selecao, *esquema_, consulta);
    }
    return pronta;
}

}  // namespace tarvo::sqlite
