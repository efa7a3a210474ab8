#include "databases/sqlite/Expressoes.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/Data.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Lexico.h"

namespace tarvo::sqlite {

namespace {

Traduzida Condicional(std::string sql) {
    return {"(" + std::move(sql) + ")", TipoColuna::Booleano, {}};
}

const char* SinalDe(Operacao operacao) {
    switch (operacao) {
        case Operacao::Igual:
            return " = ";
        case Operacao::Diferente:
            return " <> ";
        case Operacao::Menor:
            return " < ";
        case Operacao::MenorIgual:
            return " <= ";
        case Operacao::Maior:
            return " > ";
        default:
            return " >= ";
    }
}

bool TemTipo(const Traduzida& valor) {
    return valor.tipo != TipoColuna::Livre;
}

bool EhTexto(const Traduzida& valor) {
    return valor.tipo == TipoColuna::Texto;
}

[[noreturn]] void LancarTipos(std::string_view a, std::string_view b) {
    throw Erro(NumeroErro::TipoIncompativelNaConsulta,
               "Tipos incompatíveis na consulta: " + std::string(a) + " e " + std::string(b) + ".");
}

// A number's digits times 10,000, exactly.
std::string DigitosEmMoeda(const std::string& digitos) {
    if (digitos.find_first_of("eE") != std::string::npos) {
        return "(" + digitos + " * 10000.0)";
    }
    const auto ponto = std::min(digitos.find('.'), digitos.size());
    std::string decimais = ponto < digitos.size() ? digitos.substr(ponto + 1) : "";
    decimais.resize(std::max<std::size_t>(decimais.size(), 4), '0');
    const std::string inteiros = digitos.substr(0, ponto) + decimais.substr(0, 4);
    return decimais.size() > 4 ? inteiros + "." + decimais.substr(4) : inteiros;
}

// How case matters in comparing with a text literal: Nenhuma when it has no letters.
enum class Caixa { Nenhuma, Ascii, Qualquer };

Caixa CaixaDe(std::string_view texto) {
    Caixa caixa = Caixa::Nenhuma;
    for (const char c : texto) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            return Caixa::Qualquer;
        }
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            caixa = Caixa::Ascii;
        }
    }
    return caixa;
}

}  // namespace

Traduzida Expressoes::Traduzir(const Expressao& expressao) const {
    switch (expressao.operacao) {
        case Operacao::Coluna: {
            const ColunaAchada achada = escopo_.Exigir(expressao);
            return {escopo_.Sql(achada), escopo_.Da(achada).tipo, achada};
        }
        case Operacao::Texto:
            return {TextoSql(expressao.nome), TipoColuna::Texto, {}};
        case Operacao::Numero:
            return {expressao.nome,
                    expressao.nome.find_first_of(".eE") == std::string::npos ? TipoColuna::Longo
                                                                             : TipoColuna::Duplo,
                    {}};
        case Operacao::LiteralData:
            return DataLiteral(expressao);
        case Operacao::Verdadeiro:
            return {"-1", TipoColuna::Booleano, {}};
        case Operacao::Falso:
            return {"0", TipoColuna::Booleano, {}};
        case Operacao::ValorNulo:
            return {"NULL", TipoColuna::Livre, {}};
        case Operacao::E:
            return Condicional(Encadear(expressao, " AND "));
        case Operacao::Ou:
            return Condicional(Encadear(expressao, " OR "));
        case Operacao::Nao:
            return Condicional("NOT " + Condicao(expressao.partes[0]));
        case Operacao::EhNulo:
            return Condicional(Traduzir(expressao.partes[0]).sql + " IS NULL");
        case Operacao::Como:
            return Condicional("tarvo_como(" + ComoTexto(expressao.partes[1]) + ", " +
                               ComoTexto(expressao.partes[0]) + ")");
        case Operacao::Entre:
            return Entre(expressao);
        case Operacao::Em:
            return Em(expressao);
        case Operacao::Concatenar:
            return Concatenar(expressao);
        case Operacao::Funcao:
            return Funcao(expressao);
        case Operacao::Todas:
            LancarErroDeSintaxe(consulta_, expressao.posicao, "só Count aceita \"*\"");
        default:
            return Comparar(expressao.partes[0], expressao.operacao, expressao.partes[1]);
    }
}

std::string Expressoes::Condicao(const Expressao& expressao) const {
    const Traduzida valor = Traduzir(expressao);
    if (EhTexto(valor) || valor.tipo == TipoColuna::Data) {
        LancarTipos("texto ou data", "condição");
    }
    return valor.coluna ? Comparavel(valor) : valor.sql;
}

std::string Expressoes::Encadear(const Expressao& expressao, std::string_view ligacao) const {
    std::string sql;
    for (const Expressao& parte : expressao.partes) {
        sql += (sql.empty() ? std::string_view() : ligacao);
        sql += Condicao(parte);
    }
    return sql;
}

Traduzida Expressoes::Comparar(const Expressao& a, Operacao operacao, const Expressao& b) const {
    const Traduzida va = Traduzir(a);
    const Traduzida vb = Traduzir(b);
    if (TemTipo(va) && TemTipo(vb) && EhTexto(va) != EhTexto(vb)) {
        LancarTipos(va.sql, vb.sql);
    }
    if (EhTexto(va) || EhTexto(vb)) {
        return Condicional(CompararTextos(a, operacao, b));
    }
    const bool emMoeda = va.tipo == TipoColuna::Moeda || vb.tipo == TipoColuna::Moeda;
    return Condicional(Parcela(a, emMoeda) + SinalDe(operacao) + Parcela(b, emMoeda));
}

// Equality with a literal goes, where its letters allow, through comparisons that SQLite has
// itself, so that indexes serve it. They find the same rows: see SemCaixa.
std::string Expressoes::CompararTextos(const Expressao& a, Operacao operacao,
                                       const Expressao& b) const {
    std::string ordem = " COLLATE tarvo_pt";
    const bool literalA = a.operacao == Operacao::Texto;
    if ((literalA || b.operacao == Operacao::Texto) &&
        (operacao == Operacao::Igual || operacao == Operacao::Diferente)) {
        const Expressao& outra = literalA ? b : a;
        const Caixa caixa = CaixaDe(literalA ? a.nome : b.nome);
        const bool simples = outra.operacao != Operacao::Coluna ||
                             escopo_.Da(escopo_.Exigir(outra)).comparacaoSimples;
        if (caixa == Caixa::Nenhuma && simples) {
            ordem.clear();
        } else if (caixa != Caixa::Qualquer) {
            ordem = " COLLATE NOCASE";
        }
    }
    return Traduzir(a).sql + ordem + SinalDe(operacao) + Traduzir(b).sql + ordem;
}

// One side of a comparison between numbers; emMoeda: in ten-thousandths.
std::string Expressoes::Parcela(const Expressao& expressao, bool emMoeda) const {
    const Traduzida valor = Traduzir(expressao);
    if (!emMoeda || valor.tipo == TipoColuna::Moeda || valor.sql == "NULL") {
        return Comparavel(valor);
    }
    return expressao.operacao == Operacao::Numero ? DigitosEmMoeda(expressao.nome)
                                                  : "(" + Comparavel(valor) + " * 10000)";
}

std::string Expressoes::Comparavel(const Traduzida& valor) const {
    const bool convertido = valor.tipo == TipoColuna::Booleano || valor.tipo == TipoColuna::Data;
    if (convertido && valor.coluna) {
        return Chamada("tarvo_valor", valor);
    }
    return valor.tipo == TipoColuna::Booleano ? "(-(" + valor.sql + " <> 0))" : valor.sql;
}

std::string Expressoes::Chave(const Traduzida& valor) const {
    const bool texto = EhTexto(valor) || !TemTipo(valor);
    return Comparavel(valor) + (texto ? " COLLATE tarvo_pt" : "");
}

// The function over the value, its type and where it is stored.
std::string Expressoes::Chamada(const char* funcao, const Traduzida& valor) const {
    std::string sql = std::string(funcao) + "(" + valor.sql + ", " +
                      std::to_string(static_cast<int>(valor.tipo)) + ", ";
    if (valor.coluna) {
        return sql + TextoSql(escopo_.Da(valor.coluna->tabela).nome) + ", " +
               TextoSql(escopo_.Da(*valor.coluna).nome) + ")";
    }
    return sql + "'', '')";
}

std::string Expressoes::ComoTexto(const Expressao& expressao) const {
    const Traduzida valor = Traduzir(expressao);
    return EhTexto(valor) ? valor.sql : Chamada("tarvo_texto", valor);
}

// Null only when every part is Null.
Traduzida Expressoes::Concatenar(const Expressao& expressao) const {
    std::string todas;
    std::string juntas;
    for (const Expressao& parte : expressao.partes) {
        const std::string texto = ComoTexto(parte);
        todas += (todas.empty() ? "" : ", ") + texto;
        juntas += (juntas.empty() ? "" : " || ") + ("coalesce(" + texto + ", '')");
    }
    return {"(CASE WHEN coalesce(" + todas + ") IS NOT NULL THEN " + juntas + " END)",
            TipoColuna::Texto,
            {}};
}

Traduzida Expressoes::Entre(const Expressao& expressao) const {
    const auto& [valor, primeiro, ultimo] =
        std::tie(expressao.partes[0], expressao.partes[1], expressao.partes[2]);
    return Condicional(Comparar(valor, Operacao::MaiorIgual, primeiro).sql + " AND " +
                       Comparar(valor, Operacao::MenorIgual, ultimo).sql);
}

Traduzida Expressoes::Em(const Expressao& expressao) const {
    std::string sql;
    for (std::size_t i = 1; i < expressao.partes.size(); ++i) {
        sql += (i == 1 ? "" : " OR ") +
               Comparar(expressao.partes[0], Operacao::Igual, expressao.partes[i]).sql;
    }
    return Condicional(std::move(sql));
}

Traduzida Expressoes::Funcao(const Expressao& expressao) const {
    const std::string nome = SemCaixa(expressao.nome);
    if (EhAgregacao(expressao)) {
        return Agregar(expressao, nome);
    }
    if (nome != "left") {
        LancarErroDeSintaxe(consulta_, expressao.posicao, "função desconhecida");
    }
    if (expressao.partes.size() != 2 || expressao.partes[1].operacao != Operacao::Numero ||
        expressao.partes[1].nome.find_first_of("-.eE") != std::string::npos) {
        LancarErroDeSintaxe(consulta_, expressao.posicao,
                            "Left espera um texto e um número de caracteres");
    }
    return {"substr(" + ComoTexto(expressao.partes[0]) + ", 1, " + expressao.partes[1].nome + ")",
            TipoColuna::Texto,
            {}};
}

Traduzida Expressoes::Agregar(const Expressao& expressao, std::string_view funcao) const {
    if (expressao.partes.size() != 1 || ContemAgregacao(expressao.partes[0])) {
        LancarErroDeSintaxe(consulta_, expressao.posicao, "argumento inválido de agregação");
    }
    const Expressao& parte = expressao.partes[0];
    if (funcao == "count") {
        const std::string valor = parte.operacao == Operacao::Todas ? "*" : Traduzir(parte).sql;
        return {"count(" + valor + ")", TipoColuna::Longo, {}};
    }
    const Traduzida valor = Traduzir(parte);
    if (funcao != "sum") {
        const std::string chave =
            valor.coluna && !EhTexto(valor) ? Chamada("tarvo_valor", valor) : Chave(valor);
        return {std::string(funcao) + "(" + chave + ")", valor.tipo, {}};
    }
    if (EhTexto(valor) || valor.tipo == TipoColuna::Data) {
        LancarTipos("Sum", valor.sql);
    }
    return {Chamada("tarvo_soma", valor),
            valor.tipo == TipoColuna::Moeda ? TipoColuna::Moeda : TipoColuna::Duplo,
            {}};
}

// #month/day/year#
Traduzida Expressoes::DataLiteral(const Expressao& expressao) const {
    std::array<int, 3> campos{};
    const char* p = expressao.nome.data();
    const char* const fim = p + expressao.nome.size();
    for (std::size_t i = 0; i < campos.size(); ++i) {
        const auto lido = std::from_chars(p, fim, campos.at(i));
        const bool separado = i == 2 ? lido.ptr == fim : lido.ptr != fim && *lido.ptr == '/';
        if (lido.ec != std::errc() || !separado) {
            LancarErroDeSintaxe(consulta_, expressao.posicao, "esperava #mês/dia/ano#");
        }
        p = lido.ptr + 1;
    }
    try {
        const Data data = Data::DeCivil({.ano = campos[2], .mes = campos[0], .dia = campos[1]});
        return {std::to_string(static_cast<long>(data.Serial())), TipoColuna::Data, {}};
    } catch (const Erro&) {
        LancarErroDeSintaxe(consulta_, expressao.posicao, "data que o calendário não tem");
    }
}

bool Expressoes::EhAgregacao(const Expressao& expressao) {
    constexpr std::array<std::string_view, 4> Agregacoes{"sum", "count", "min", "max"};
    return expressao.operacao == Operacao::Funcao &&
           std::ranges::find(Agregacoes, SemCaixa(expressao.nome)) != Agregacoes.end();
}

bool Expressoes::ContemAgregacao(const Expressao& expressao) {
    return EhAgregacao(expressao) || std::ranges::any_of(expressao.partes, ContemAgregacao);
}

void Expressoes::MarcarTabelas(const Expressao& expressao, std::vector<bool>& tabelas) const {
    if (expressao.operacao == Operacao::Coluna) {
        tabelas[escopo_.Exigir(expressao).tabela] = true;
    }
    for (const Expressao& parte : expressao.partes) {
        MarcarTabelas(parte, tabelas);
    }
}

}  // namespace tarvo::sqlite
