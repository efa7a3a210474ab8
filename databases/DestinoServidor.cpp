// SPDX-License-Identifier: MIT
#include "databases/DestinoServidor.h"

#include <sqlite3.h>

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
#include "data/Procura.h"
#include "databases/postgresql/CriacaoDeTabelas.h"
#include "databases/sqlite/Celula.h"
#include "databases/sqlite/Tabelas.h"

namespace tarvo {

namespace {

using namespace sqlite;
using postgresql::Sessao;

constexpr std::size_t BytesPorVez = std::size_t{64} * 1024;

// As COPY reads a column's value in its text form.
std::string TextoDoCampo(const Celula& celula, TipoColuna tipo, const Origem& origem) {
    const Valor valor = Converter(celula, tipo, origem);
    if (std::holds_alternative<Moeda>(valor) || std::holds_alternative<std::int32_t>(valor)) {
        std::string numero = TextoCampo(valor);
        std::ranges::replace(numero, ',', '.');
        return numero;
    }
    if (const auto* booleano = std::get_if<bool>(&valor)) {
        return *booleano ? "t" : "f";
    }
    if (std::holds_alternative<Data>(valor)) {
        return std::string(celula.texto);  // its form is the server's too
    }
    const auto& texto = std::get<std::string>(valor);
    if (texto.find('\0') != std::string::npos) {
        throw Erro(NumeroErro::ConversaoDeDado,
                   "o texto da coluna \"" + std::string(origem.coluna) +
                       "\" tem um byte nulo, que o servidor não guarda.");
    }
    constexpr std::string_view Especiais = "\\\n\r\t";
    constexpr std::string_view Letras = "\\nrt";
    std::string escrito;
    for (const char c : texto) {
        const auto qual = Especiais.find(c);
        const bool especial = qual != std::string_view::npos;
        escrito.append(especial ? 1 : 0, '\\') += especial ? Letras[qual] : c;
    }
    return escrito;
}

}  // namespace

DestinoServidor::DestinoServidor(const std::string& endereco, Tabelas tabelas, Acompanhante* quem)
    : quem_(quem), sessao_(endereco, quem_) {
    sessao_.Executar("BEGIN");
    if (tabelas == Tabelas::Novas) {
        sessao_.Executar(postgresql::CriacaoDeTabelas());
    }
    esquema_.emplace(sessao_);
    if (tabelas == Tabelas::Vazias) {
        ExigirVazias();
    }
}

void DestinoServidor::ExigirVazias() {
    std::string comLinhas;
    for (const auto& tabela : esquema_->Tabelas()) {
        const std::string nome = Sessao::Nome(tabela.definicao->nome);
        const auto linha = sessao_.Consultar({"SELECT 1 FROM " + nome + " LIMIT 1"});
        if (postgresql::PQntuples(linha.get()) > 0) {
            comLinhas += (comLinhas.empty() ? "" : ", ") + nome;
        }
    }
    if (!comLinhas.empty()) {
        throw Erro(NumeroErro::BancoJaExiste,
                   "Só se copia para tabelas vazias; têm linhas: " + comLinhas + ".");
    }
}

void DestinoServidor::Tabela(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas) {
    const auto* const noServidor = esquema_->Procurar(tabela.nome);
    if (noServidor == nullptr) {
        throw Erro(NumeroErro::TabelaInexistente,
                   "o servidor não a tem; relatorios-tarvo criar faz todas.");
    }
    tabela_ = &tabela;
    colunas_.assign(colunas.begin(), colunas.end());
    linhas_ = 0;
    std::string nomes;
    for (const ColunaDoBanco& coluna : colunas_) {
        if (noServidor->Coluna(coluna.nome) == nullptr) {
            throw Erro(NumeroErro::ColunaDesconhecida,
                       "o servidor não tem a coluna \"" + std::string(coluna.nome) + "\".");
        }
        nomes += (nomes.empty() ? "" : ", ") + Sessao::Nome(coluna.nome);
    }
    for (const auto& coluna : noServidor->colunas) {
        if (!Contem(colunas_, coluna.nome, &ColunaDoBanco::nome)) {
            avisos_.push_back("a origem não tem a coluna " + std::string(coluna.nome) + " de " +
                              std::string(tabela.nome) + ", que no servidor fica sem valor");
        }
    }
    sessao_.ComecarCopia("COPY " + Sessao::Nome(tabela.nome) + " (" + nomes + ") FROM STDIN");
}

void DestinoServidor::Linha(sqlite3_stmt* linha) {
    ++linhas_;
    std::string chave;
    try {
        for (std::size_t c = 0; c < colunas_.size(); ++c) {
            const Celula celula = LerCelula(linha, static_cast<int>(c));
            bytes_ += c == 0 ? "" : "\t";
            if (celula.classe == SQLITE_NULL) {
                bytes_ += "\\N";
                continue;
            }
            const std::string texto =
                TextoDoCampo(celula, TipoDe(colunas_[c]), {tabela_->nome, colunas_[c].nome});
            if (c == 0) {
                chave = ", " + std::string(colunas_[c].nome) + " " + texto;
            }
            bytes_ += texto;
        }
    } catch (const Erro& erro) {
        throw Erro(erro.Numero(),
                   "linha " + std::to_string(linhas_) + chave + ": " + erro.Descricao());
    }
    bytes_ += '\n';
    if (bytes_.size() >= BytesPorVez) {
        sessao_.Copiar(bytes_);
        bytes_.clear();
    }
}

void DestinoServidor::TerminarTabela() {
    sessao_.Copiar(bytes_);
    bytes_.clear();
    sessao_.TerminarCopia();
}

void DestinoServidor::Confirmar() {
    sessao_.Executar("COMMIT");
}

}  // namespace tarvo
