// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/Acompanhante.h"
#include "data/ObjetoDeC.h"
#include "databases/postgresql/Libpq.h"
#include "databases/postgresql/Ligacao.h"

namespace tarvo::postgresql {

using Resultado = ObjetoDeC<Liberar<PQclear, PGresult>>;

// A value as it came.
inline std::string_view BytesEm(const Resultado& linhas, int linha, int coluna) {
    return {PQgetvalue(linhas.get(), linha, coluna),
            static_cast<std::size_t>(PQgetlength(linhas.get(), linha, coluna))};
}

// A statement with its parameters as texts.
struct Comando {
    std::string sql;
    std::vector<std::string> parametros = {};
};

// One connection with a server. While it waits, the one who accompanies is asked; whom he ends is
// ended on the server too. After any error the connection is of no more use. Errors:
// FalhaDoServidor, and 18.
class Sessao {
  public:
    using Relogio = std::chrono::steady_clock;

    // Connects. quem: a pointer of the caller's, which may change while this object lives. desde:
    // since when the server is waited for, which quem is told.
    Sessao(const std::string& endereco, Acompanhante* const& quem,
           Relogio::time_point desde = Relogio::now());
    ~Sessao();
    Sessao(const Sessao&) = delete;
    Sessao& operator=(const Sessao&) = delete;

    // One statement without parameters.
    void Executar(const std::string& sql);
    // The rows of one statement, values in binary.
    Resultado Consultar(const Comando& comando);
    // The rows of all these statements, values in binary, in one round trip and one transaction
    // that reads alone and sees one moment. preparar: each is parsed once per connection.
    std::vector<Resultado> Ler(std::span<const Comando> comandos, bool preparar);

    // The rows of a query by COPY, in its binary form, as they come: a piece has whole rows.
    void CopiarDe(const std::string& consulta,
                  const std::function<void(std::string_view pedaco)>& receber);
    // Rows into a table by COPY, in its text form.
    void ComecarCopia(const std::string& sql);
    void Copiar(std::string_view bytes);
    void TerminarCopia();

    // A name and a text as the server quotes them.
    [[nodiscard]] static std::string Nome(std::string_view nome);
    [[nodiscard]] std::string Texto(const std::string& texto) const;

  private:
    void Enviado(int estado);
    void EnviarComando(const Comando& comando, bool preparar);
    // The next result; nullptr at the end of a statement's.
    Resultado Proximo();
    void Exigir(ExecStatusType situacao);
    void Descarregar();
    void EsperarResposta();
    void Esperar(short eventos);
    void Perguntar(std::chrono::milliseconds aguardando = {});
    void Cancelar();

    Acompanhante* const& quem_;
    Relogio::time_point ultimaPergunta_;
    Conexao conexao_;
    std::set<std::string> preparadas_;
};

}  // namespace tarvo::postgresql
