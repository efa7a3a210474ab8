// SPDX-License-Identifier: MIT
#include "databases/sqlite/RecordsetSQLite.h"

#include <new>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "databases/sqlite/Alfabeto.h"

namespace tarvo::sqlite {

namespace {

[[noreturn]] void LancarItemNaoEncontrado(std::string_view nome) {
    throw Erro(NumeroErro::ItemNaoEncontrado,
               "A consulta não tem a coluna \"" + std::string(nome) + "\".");
}

}  // namespace

RecordsetSQLite::RecordsetSQLite(std::shared_ptr<Conexao> conexao, ConsultaAberta consulta,
                                 TipoRecordset tipo)
    : conexao_(std::move(conexao)),
      pronta_(std::move(consulta.pronta)),
      tipo_(tipo),
      leitura_(std::move(consulta.leitura)) {
    if (tipo_ == TipoRecordset::Dynaset) {
        LerTodas();
        FecharLeitura();
        fim_ = registros_.empty();
    } else {
        fim_ = !leitura_->Passo();
    }
}

RecordsetSQLite::~RecordsetSQLite() {
    Close();
}

void RecordsetSQLite::FecharLeitura() {
    if (leitura_) {
        leitura_->Soltar();
        pronta_->leitura = std::move(leitura_);
    }
}

void RecordsetSQLite::LerTodas() {
    while (leitura_->Passo()) {
        Registro registro;
        registro.reserve(Consulta().colunas.size());
        for (std::size_t c = 0; c < Consulta().colunas.size(); ++c) {
            registro.emplace_back(
                sqlite3_value_dup(sqlite3_column_value(leitura_->Ponteiro(), static_cast<int>(c))));
            if (!registro.back()) {
                throw std::bad_alloc();
            }
        }
        registros_.push_back(std::move(registro));
    }
}

void RecordsetSQLite::ExigirAberto() const {
    if (!conexao_) {
        throw Erro(NumeroErro::ObjetoInvalido, "O conjunto de registros já foi fechado.");
    }
}

bool RecordsetSQLite::BOF() const {
    ExigirAberto();
    return fim_ && atual_ == 0;
}

bool RecordsetSQLite::EOF_() const {
    ExigirAberto();
    return fim_;
}

void RecordsetSQLite::MoveNext() {
    ExigirAberto();
    nova_.reset();
    if (fim_) {
        throw Erro(NumeroErro::RegistroAtualAusente, "Não há registro atual.");
    }
    ++atual_;
    fim_ = true;  // stays so when the next row cannot be read
    fim_ = leitura_ ? !leitura_->Passo() : atual_ == registros_.size();
}

std::size_t RecordsetSQLite::Coluna(std::string_view nome) const {
    ExigirAberto();
    auto& procurados = pronta_->procurados;
    const auto* const lembrado =
        Achar(procurados, nome, &std::pair<std::string, std::size_t>::first);
    if (lembrado != nullptr) {
        return lembrado->second;
    }
    const std::size_t coluna = Procurar(nome);
    procurados.emplace_back(nome, coluna);
    return coluna;
}

std::size_t RecordsetSQLite::Procurar(std::string_view nome) const {
    const std::string procurado = SemCaixa(nome);
    const auto& colunas = Consulta().colunas;
    std::size_t achada = colunas.size();
    for (std::size_t c = 0; c < colunas.size(); ++c) {
        const std::string& tabela = colunas[c].tabelaQualificadora;
        if (!tabela.empty() && procurado == tabela + "." + colunas[c].nome) {
            return c;
        }
        if (procurado == colunas[c].nome) {
            if (achada != colunas.size()) {
                LancarItemNaoEncontrado(nome);  // two have it
            }
            achada = c;
        }
    }
    if (achada == colunas.size()) {
        LancarItemNaoEncontrado(nome);
    }
    return achada;
}

std::size_t RecordsetSQLite::Coluna(int posicao) const {
    ExigirAberto();
    if (posicao < 0 || static_cast<std::size_t>(posicao) >= Consulta().colunas.size()) {
        LancarItemNaoEncontrado(std::to_string(posicao));
    }
    return static_cast<std::size_t>(posicao);
}

Valor RecordsetSQLite::Ler(std::size_t coluna) const {
    ExigirAberto();
    if (fim_) {
        throw Erro(NumeroErro::RegistroAtualAusente, "Não há registro atual.");
    }
    const ColunaSaida& saida = Consulta().colunas[coluna];
    const Celula celula = leitura_ ? LerCelula(leitura_->Ponteiro(), static_cast<int>(coluna))
                                   : LerCelula(registros_[atual_][coluna].get());
    return Converter(celula, saida.tipo, {saida.tabela, saida.coluna});
}

void RecordsetSQLite::AddNew() {
    ExigirAberto();
    if (tipo_ != TipoRecordset::Dynaset || !Consulta().gravavel) {
        throw Erro(NumeroErro::OperacaoInvalida,
                   "Só se acrescentam registros a uma tabela inteira aberta como dynaset.");
    }
    conexao_->ExigirEscrita(Consulta().gravavel->esquema);
    if (!insercao_) {
        PrepararInsercao();
    }
    nova_.emplace(Consulta().colunas.size());
}

void RecordsetSQLite::PrepararInsercao() {
    if (pronta_->insercao) {
        insercao_ = std::move(pronta_->insercao);
        return;
    }
    std::string colunas;
    std::string valores;
    for (const auto& coluna : Consulta().gravavel->colunas) {
        if (!coluna.gerada) {
            colunas += (colunas.empty() ? "" : ", ") + NomeSql(coluna.nome);
            valores += valores.empty() ? "?" : ", ?";
        }
    }
    insercao_ =
        std::make_unique<Instrucao>(conexao_, "INSERT INTO " + Consulta().gravavel->Sql() + " (" +
                                                  colunas + ") VALUES (" + valores + ")");
}

void RecordsetSQLite::Escrever(std::size_t coluna, const Valor& valor) {
    ExigirAberto();
    if (!nova_) {
        throw Erro(NumeroErro::AtualizacaoSemAddNew, "Escrita num campo sem AddNew.");
    }
    const ColunaSaida& saida = Consulta().colunas[coluna];
    if (Consulta().gravavel->colunas[coluna].gerada) {
        throw Erro(NumeroErro::OperacaoInvalida,
                   "A coluna \"" + saida.coluna + "\" é calculada pelo banco; não se escreve.");
    }
    (*nova_)[coluna] = ConverterParaColuna(valor, saida.tipo, {saida.tabela, saida.coluna});
}

void RecordsetSQLite::Update() {
    ExigirAberto();
    if (!nova_) {
        throw Erro(NumeroErro::AtualizacaoSemAddNew, "Update sem AddNew.");
    }
    int parametro = 0;
    for (std::size_t c = 0; c < nova_->size(); ++c) {
        if (!Consulta().gravavel->colunas[c].gerada) {
            conexao_->Conferir(Vincular(insercao_->Ponteiro(), ++parametro, (*nova_)[c]));
        }
    }
    insercao_->Executar();
    nova_.reset();
}

void RecordsetSQLite::Close() {
    FecharLeitura();
    if (insercao_) {
        insercao_->Soltar();
        pronta_->insercao = std::move(insercao_);
    }
    registros_.clear();
    nova_.reset();
    pronta_.reset();
    conexao_.reset();
}

}  // namespace tarvo::sqlite
