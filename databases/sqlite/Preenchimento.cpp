#include "databases/sqlite/Preenchimento.h"

#include <sqlite3.h>

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
#include "data/Utf8.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Tabelas.h"

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

}  // namespace

Preenchimento::Preenchimento(std::shared_ptr<Conexao> conexao) : conexao_(std::move(conexao)) {}

Preenchimento::~Preenchimento() = default;

void Preenchimento::Tabela(std::string_view nome, std::span<const std::string> colunas) {
    const DefinicaoTabela* definicao = Procurar(nome);
    if (definicao == nullptr) {
        throw Erro(NumeroErro::TabelaInexistente,
                   "Um banco de declarações não tem a tabela \"" + std::string(nome) + "\".");
    }
    const auto doEsquema = ColunasDe(*definicao);
    std::vector<Destino> destinos;
    std::string criacao;
    std::string nomes;
    std::string parametros;
    for (const std::string& coluna : colunas) {
        const auto achada = std::ranges::find_if(doEsquema, [&](const DefinicaoColuna& uma) {
            return SemCaixa(uma.nome) == SemCaixa(coluna);
        });
        if (achada == doEsquema.end()) {
            throw Erro(NumeroErro::ColunaDesconhecida,
                       "A tabela \"" + std::string(definicao->nome) + "\" não tem a coluna \"" +
                           coluna + "\".");
        }
        const char* const virgula = destinos.empty() ? "" : ", ";
        criacao += virgula + NomeSql(achada->nome) + " " + achada->tipo +
                   (achada->semCaixa ? " COLLATE NOCASE" : "");
        nomes += virgula + NomeSql(achada->nome);
        parametros += std::string(virgula) + "?";
        destinos.push_back({achada->nome, TipoDeclarado(achada->tipo)});
    }
    const std::string tabela = NomeSql(definicao->nome);
    if (destinos.empty() || Existe(*conexao_, definicao->nome, destinos.front().coluna)) {
        throw Erro(NumeroErro::OperacaoInvalida, "A tabela \"" + std::string(definicao->nome) +
                                                     "\" já foi informada, ou vem sem colunas.");
    }
    conexao_->Executar("CREATE TABLE " + tabela + " (" + criacao + ")");
    insercao_ = std::make_unique<Instrucao>(
        conexao_, "INSERT INTO " + tabela + " (" + nomes + ") VALUES (" + parametros + ")");
    tabela_ = definicao->nome;
    colunas_ = std::move(destinos);
}

void Preenchimento::Linha(std::span<const Valor> valores) {
    if (!insercao_ || valores.size() != colunas_.size()) {
        throw Erro(NumeroErro::OperacaoInvalida, "A linha tem " + std::to_string(valores.size()) +
                                                     " valores; a tabela \"" + tabela_ + "\", " +
                                                     std::to_string(colunas_.size()) + " colunas.");
    }
    for (std::size_t c = 0; c < valores.size(); ++c) {
        conexao_->Conferir(VincularConvertido(insercao_->Ponteiro(), static_cast<int>(c) + 1,
                                              valores[c], colunas_[c].tipo));
    }
    insercao_->Executar();
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
