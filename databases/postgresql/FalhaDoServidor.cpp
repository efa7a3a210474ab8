// SPDX-License-Identifier: MIT
#include "databases/postgresql/FalhaDoServidor.h"

#include <algorithm>
#include <array>

#include "data/Procura.h"
#include "databases/postgresql/Libpq.h"

namespace tarvo::postgresql {

namespace {

struct Traducao {
    std::string_view estado;  // or its class, the first two characters
    NumeroErro numero;
    const char* descricao;
};

// Of several that fit, the first.
constexpr Traducao Traducoes[] = {
    {"28", NumeroErro::SenhaRecusada, "O servidor não aceita este usuário com esta senha"},
    {"3D000", NumeroErro::BancoNaoEncontrado, "O servidor não tem esse banco de dados"},
    {"42501", NumeroErro::SemPermissaoDeLeitura, "O servidor não dá permissão a este usuário"},
    {"42P01", NumeroErro::TabelaInexistente, "O servidor não tem a tabela"},
    {"42703", NumeroErro::ColunaDesconhecida, "O servidor não tem a coluna"},
    {"42P07", NumeroErro::BancoJaExiste, "O servidor já tem a tabela"},
    {"57014", NumeroErro::FalhaDoServidor, "O servidor interrompeu a consulta"},
    {"57P", NumeroErro::ServidorInacessivel, "O servidor está parando ou começando"},
    {"08", NumeroErro::ServidorInacessivel, "A conexão com o servidor caiu"},
    {"25P03", NumeroErro::FalhaDoServidor,
     "O servidor encerrou a ligação por um limite de tempo seu"},
    {"25006", NumeroErro::BancoSomenteLeitura, "O servidor é somente para leitura"},
    {"40001", NumeroErro::FalhaDoServidor,
     "O servidor desistiu da leitura, porque o que ela lia mudou; tente de novo"},
    {"53100", NumeroErro::DiscoCheio, "Disco cheio no servidor"},
    {"53300", NumeroErro::ServidorInacessivel, "O servidor tem ligações demais"},
    {"23", NumeroErro::OperacaoInvalida, "Chave repetida ou ausente"},
    {"22", NumeroErro::ConversaoDeDado, "O servidor não guarda o valor"},
    {"", NumeroErro::FalhaDoServidor, "O servidor não fez o que foi pedido"},
};

const Traducao& Traduzir(std::string_view estado) {
    static constexpr Traducao SemResposta{"", NumeroErro::ServidorInacessivel,
                                          "Não há conexão com o servidor"};
    if (estado.empty()) {
        return SemResposta;
    }
    return *std::ranges::find_if(
        Traducoes, [&](const Traducao& uma) { return estado.starts_with(uma.estado); });
}

// In one line.
std::string Descrever(std::string_view estado, const std::string& detalhe) {
    std::string linha;
    for (const char c : detalhe) {
        const bool branco = c == '\n' || c == '\t' || c == ' ';
        if (!branco || (!linha.empty() && linha.back() != ' ')) {
            linha += branco ? ' ' : c;
        }
    }
    while (linha.ends_with(' ')) {
        linha.pop_back();
    }
    return std::string(Traduzir(estado).descricao) + (linha.empty() ? "." : " (" + linha + ").");
}

bool EhEstado(std::string_view texto) {
    return texto.size() == 5 && std::ranges::all_of(texto, [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
           });
}

// libpq keeps no SQLSTATE of a connection that was refused, but for its most detailed words:
// "FATAL:  28P01: ...", in whatever language, and where in the server's source that was. Of several
// servers the last one's. Takes both out.
std::string TirarEstado(std::string& detalhe) {
    constexpr std::size_t Tamanho = 5;
    std::string estado;
    for (auto i = detalhe.find(":  "); i != std::string::npos; i = detalhe.find(":  ", i + 3)) {
        const auto codigo = std::string_view(detalhe).substr(i + 3, Tamanho);
        if (EhEstado(codigo) && detalhe.compare(i + 3 + Tamanho, 2, ": ") == 0) {
            estado = codigo;
            detalhe.erase(i + 3, Tamanho + 2);
        }
    }
    std::string linhas;
    for (std::size_t i = 0; i < detalhe.size();) {
        const auto fim = std::min(detalhe.find('\n', i), detalhe.size() - 1) + 1;
        const std::string linha = detalhe.substr(i, fim - i);
        linhas += !estado.empty() && linha.find(".c:") != std::string::npos ? "" : linha;
        i = fim;
    }
    detalhe = linhas;
    return estado;
}

}  // namespace

FalhaDoServidor::FalhaDoServidor(std::string estado, const std::string& detalhe)
    : Erro(Traduzir(estado).numero, Descrever(estado, detalhe)), estado_(std::move(estado)) {}

bool FalhaDoServidor::Passageira() const {
    // 40001: on a replica, what it reads changed too soon.
    return Numero() == NumeroErro::ServidorInacessivel || estado_ == "40001";
}

bool FalhaDoServidor::SemPreparadas() const {
    return estado_ == "26000" || estado_ == "42P05";
}

bool FalhaDoServidor::EsquemaMudou() const {
    constexpr std::array Estados{"0A000", "42P01", "42703", "42804", "42883"};
    return Contem(Estados, estado_);
}

void LancarFalhaDeConexao(pg_conn* conexao, const std::string& antes) {
    std::string detalhe = PQerrorMessage(conexao);
    const std::string estado = TirarEstado(detalhe);
    throw FalhaDoServidor(
        estado.empty() && PQconnectionNeedsPassword(conexao) == 1 ? "28P01" : estado,
        antes + detalhe);
}

void LancarFalha(pg_conn* conexao, const pg_result* resultado) {
    const char* const estado =
        resultado == nullptr ? nullptr : PQresultErrorField(resultado, PG_DIAG_SQLSTATE);
    const char* const texto =
        resultado == nullptr ? nullptr : PQresultErrorField(resultado, PG_DIAG_MESSAGE_PRIMARY);
    if (estado == nullptr || texto == nullptr) {
        throw FalhaDoServidor("", PQerrorMessage(conexao));
    }
    const char* const mais = PQresultErrorField(resultado, PG_DIAG_MESSAGE_DETAIL);
    const char* const onde = PQresultErrorField(resultado, PG_DIAG_CONTEXT);
    throw FalhaDoServidor(estado, std::string(texto) +
                                      (mais == nullptr ? "" : std::string("; ") + mais) +
                                      (onde == nullptr ? "" : std::string("; ") + onde));
}

}  // namespace tarvo::postgresql
