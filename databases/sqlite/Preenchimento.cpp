// SPDX-License-Identifier: MIT
#include "databases/sqlite/Preenchimento.h"

#include <sqlite3.h>

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
#include "data/Utf8.h"
#include "databases/sqlite/Alfabeto.h"

namespace tarvo::sqlite {

namespace {

const DefinicaoTabela* Procurar(std::string_view nome) {
    const std::string procurado = SemCaixa(nome);
    for (const DefinicaoTabela& tabela : TabelasDoBanco()) {
        if (SemCaixa(tabela.nome) == procurado) {
            return &tabela;
        }
    }
    return nullptr;
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

std::string InsercaoSql(std::string_view tabela, std::span<const DefinicaoColuna> colunas) {
    std::string nomes;
    std::string parametros;
    for (const DefinicaoColuna& coluna : colunas) {
        const char* const virgula = nomes.empty() ? "" : ", ";
        nomes += virgula + NomeSql(coluna.nome);
        parametros += std::string(virgula) + "?";
    }
    return "INSERT INTO " + NomeSql(tabela) + " (" + nomes + ") VALUES (" + parametros + ")";
}

}  // namespace

Insercao::Insercao(const std::shared_ptr<Conexao>& conexao, std::string_view tabela,
                   std::span<const DefinicaoColuna> colunas)
    : conexao_(conexao), tabela_(tabela), insercao_(conexao, InsercaoSql(tabela, colunas)) {
    for (const DefinicaoColuna& coluna : colunas) {
        tipos_.push_back(TipoDeclarado(coluna.tipo));
    }
}

void Insercao::Linha(std::span<const Valor> valores) {
    if (valores.size() != tipos_.size()) {
        throw Erro(NumeroErro::OperacaoInvalida, "A linha tem " + std::to_string(valores.size()) +
                                                     " valores; a tabela \"" + tabela_ + "\", " +
                                                     std::to_string(tipos_.size()) + " colunas.");
    }
    for (std::size_t c = 0; c < valores.size(); ++c) {
        conexao_->Conferir(VincularConvertido(insercao_.Ponteiro(), static_cast<int>(c) + 1,
                                              valores[c], tipos_[c]));
    }
    insercao_.Executar();
}

Preenchimento::Preenchimento(std::shared_ptr<Conexao> conexao) : conexao_(std::move(conexao)) {}

Preenchimento::~Preenchimento() = default;

void Preenchimento::Tabela(std::string_view nome, std::span<const std::string> colunas) {
    const DefinicaoTabela* definicao = Procurar(nome);
    if (definicao == nullptr) {
        throw Erro(NumeroErro::TabelaInexistente,
                   "Um banco de declarações não tem a tabela \"" + std::string(nome) + "\".");
    }
    const auto doEsquema = ColunasDe(*definicao);
    std::vector<DefinicaoColuna> escolhidas;
    std::string criacao;
    for (const std::string& coluna : colunas) {
        const auto achada = std::ranges::find_if(doEsquema, [&](const DefinicaoColuna& uma) {
            return SemCaixa(uma.nome) == SemCaixa(coluna);
        });
        if (achada == doEsquema.end()) {
            throw Erro(NumeroErro::ColunaDesconhecida,
                       "A tabela \"" + std::string(definicao->nome) + "\" não tem a coluna \"" +
                           coluna + "\".");
        }
        criacao += (escolhidas.empty() ? "" : ", ") + NomeSql(achada->nome) + " " + achada->tipo +
                   (achada->semCaixa ? " COLLATE NOCASE" : "");
        escolhidas.push_back(*achada);
    }
    if (escolhidas.empty() || Existe(*conexao_, definicao->nome, escolhidas.front().nome)) {
        throw Erro(NumeroErro::OperacaoInvalida, "A tabela \"" + std::string(definicao->nome) +
                                                     "\" já foi informada, ou vem sem colunas.");
    }
    conexao_->Executar("CREATE TABLE " + NomeSql(definicao->nome) + " (" + criacao + ")");
    insercao_.emplace(conexao_, definicao->nome, escolhidas);
}

void Preenchimento::Linha(std::span<const Valor> valores) {
    if (!insercao_) {
        throw Erro(NumeroErro::OperacaoInvalida, "Uma linha vem depois da sua tabela.");
    }
    insercao_->Linha(valores);
}

void CriarIndices(Conexao& conexao, Indices quais) {
    for (const DefinicaoTabela& tabela : TabelasDoBanco()) {
        for (const DefinicaoColuna& coluna : ColunasDe(tabela)) {
            // CFOP finds, of all declarations, those with one: see the queries on tblZFM_ALC.
            const bool procurada = (coluna.chave && quais == Indices::ComChaves) ||
                                   coluna.nome == tabela.indice ||
                                   (tabela.nome == "tblDetalhesCFOPs" && coluna.nome == "CFOP");
            if (procurada && Existe(conexao, tabela.nome, coluna.nome)) {
                conexao.Executar("CREATE INDEX IF NOT EXISTS " +
                                 NomeSql("idx" + std::string(tabela.nome) + coluna.nome) + " ON " +
                                 NomeSql(tabela.nome) + " (" + NomeSql(coluna.nome) + ")");
            }
        }
    }
}

}  // namespace tarvo::sqlite
