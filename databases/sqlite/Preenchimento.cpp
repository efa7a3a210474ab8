// SPDX-License-Identifier: MIT
#include "databases/sqlite/Preenchimento.h"

#include <sqlite3.h>

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
#include "data/Procura.h"
#include "data/Utf8.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Tabelas.h"

namespace tarvo::sqlite {

namespace {

template <class Tabelas>
auto* Procurar(const Tabelas& tabelas, std::string_view nome) {
    return Achar(tabelas, SemCaixa(nome), [](const auto& uma) { return SemCaixa(uma.nome); });
}

bool Existe(Conexao& conexao, std::string_view tabela, std::string_view coluna) {
    return sqlite3_table_column_metadata(conexao.Db(), "main", std::string(tabela).c_str(),
                                         std::string(coluna).c_str(), nullptr, nullptr, nullptr,
                                         nullptr, nullptr) == SQLITE_OK;
}

// As bytes, which no column's affinity changes and no reader takes for a value.
int VincularComoEsta(sqlite3_stmt* instrucao, int parametro, std::string_view bytes) {
    return sqlite3_bind_blob64(instrucao, parametro, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
}

// SQLite's result.
int VincularConvertido(sqlite3_stmt* instrucao, int parametro, const Valor& valor,
                       TipoColuna tipo) {
    if (const auto* texto = std::get_if<std::string>(&valor)) {
        if (!EhUtf8(*texto)) {
            return VincularComoEsta(instrucao, parametro, *texto);
        }
        if (tipo == TipoColuna::Texto) {
            return Vincular(instrucao, parametro, valor);
        }
    }
    try {
        return Vincular(instrucao, parametro, ConverterParaColuna(valor, tipo, {}));
    } catch (const Erro&) {
        return VincularComoEsta(instrucao, parametro, TextoCampo(valor));
    }
}

}  // namespace

Insercao::Insercao(const std::shared_ptr<Conexao>& conexao, const TabelaDoBanco& tabela,
                   std::span<const ColunaDoBanco> colunas)
    : conexao_(conexao), tabela_(tabela.nome), insercao_(conexao, InsercaoSql(tabela, colunas)) {
    std::ranges::transform(colunas, std::back_inserter(tipos_), TipoDe);
}

void Insercao::Linha(std::span<const Valor> valores) {
    if (valores.size() != tipos_.size()) {
        throw Erro(NumeroErro::OperacaoInvalida,
                   "A linha tem " + std::to_string(valores.size()) + " valores; a tabela \"" +
                       std::string(tabela_) + "\", " + std::to_string(tipos_.size()) + " colunas.");
    }
    for (std::size_t c = 0; c < valores.size(); ++c) {
        conexao_->Conferir(VincularConvertido(insercao_.Ponteiro(), static_cast<int>(c) + 1,
                                              valores[c], tipos_[c]));
    }
    insercao_.Executar();
}

void Preenchimento::Tabela(std::string_view nome, std::span<const std::string> colunas) {
    const auto* const definicao = Procurar(TabelasDoBanco(), nome);
    if (definicao == nullptr) {
        throw Erro(NumeroErro::TabelaInexistente,
                   "Um banco de declarações não tem a tabela \"" + std::string(nome) + "\".");
    }
    const auto doEsquema = definicao->Colunas();
    std::vector<ColunaDoBanco> escolhidas;
    for (const std::string& coluna : colunas) {
        const auto* const achada = Procurar(doEsquema, coluna);
        if (achada == nullptr) {
            throw Erro(NumeroErro::ColunaDesconhecida,
                       "A tabela \"" + std::string(definicao->nome) + "\" não tem a coluna \"" +
                           coluna + "\".");
        }
        escolhidas.push_back({achada->nome, achada->tipo});
    }
    if (escolhidas.empty() || Existe(*conexao_, definicao->nome, escolhidas.front().nome)) {
        throw Erro(NumeroErro::OperacaoInvalida, "A tabela \"" + std::string(definicao->nome) +
                                                     "\" já foi informada, ou vem sem colunas.");
    }
    conexao_->Executar(CriacaoSql(*definicao, escolhidas));
    insercao_.emplace(conexao_, *definicao, escolhidas);
}

void Preenchimento::Linha(std::span<const Valor> valores) {
    if (!insercao_) {
        throw Erro(NumeroErro::OperacaoInvalida, "Uma linha vem depois da sua tabela.");
    }
    insercao_->Linha(valores);
}

void CriarIndices(Conexao& conexao, Indices quais) {
    for (const TabelaDoBanco& tabela : TabelasDoBanco()) {
        for (const ColunaDoBanco& coluna : tabela.Colunas()) {
            // True or False would find half of the rows. CFOP finds, of all declarations, those
            // with one: see the queries on tblZFM_ALC.
            const bool procurada = (coluna.chave && coluna.tipo != TipoDaColuna::Booleano &&
                                    quais == Indices::ComChaves) ||
                                   coluna.nome == tabela.Indice() ||
                                   (tabela.nome == "tblDetalhesCFOPs" && coluna.nome == "CFOP");
            if (procurada && Existe(conexao, tabela.nome, coluna.nome)) {
                conexao.Executar("CREATE INDEX IF NOT EXISTS " +
                                 NomeSql("idx" + std::string(tabela.nome).append(coluna.nome)) +
                                 " ON " + NomeSql(tabela.nome) + " (" + NomeSql(coluna.nome) + ")");
            }
        }
    }
}

}  // namespace tarvo::sqlite
