// SPDX-License-Identifier: MIT
#include "databases/postgresql/Sessao.h"

#include <poll.h>

#include <array>
#include <future>
#include <memory>
#include <thread>

#include "data/Textos.h"
#include "databases/postgresql/FalhaDoServidor.h"

namespace tarvo::postgresql {

namespace {

using namespace std::chrono_literals;

constexpr auto EntrePerguntas = 50ms;
constexpr auto EsperaPorCancelamento = 300ms;

// The same for the same text alone: other programs may have prepared others on a connection that
// several share.
std::string NomeDaPreparada(const std::string& sql) {
    return "tarvo_" + std::to_string(sql.size()) + "_" +
           std::to_string(std::hash<std::string>()(sql));
}

using Memoria = ObjetoDeC<Liberar<PQfreemem, void>>;

std::array<const char*, 4> Ponteiros(const Comando& comando) {
    std::array<const char*, 4> ponteiros{};
    for (std::size_t i = 0; i < comando.parametros.size(); ++i) {
        ponteiros.at(i) = comando.parametros[i].c_str();
    }
    return ponteiros;
}

}  // namespace

Sessao::Sessao(const std::string& endereco, Acompanhante* const& quem, Relogio::time_point desde)
    : quem_(quem) {
    conexao_ = Ligar(endereco, [&] {
        Perguntar(std::chrono::duration_cast<std::chrono::milliseconds>(Relogio::now() - desde));
    });
    if (PQsetnonblocking(conexao_.get(), 1) != 0) {
        LancarFalha(conexao_.get(), nullptr);
    }
    PQsetNoticeProcessor(
        conexao_.get(), [](void*, const char*) {}, nullptr);
}

Sessao::~Sessao() = default;

void Sessao::Perguntar(std::chrono::milliseconds aguardando) {
    const auto agora = Relogio::now();
    if (quem_ == nullptr || agora - ultimaPergunta_ < EntrePerguntas) {
        return;
    }
    ultimaPergunta_ = agora;
    if (!quem_->Continuar(aguardando)) {
        Cancelar();
        LancarCancelado();
    }
}

// Asks the server to end what it is doing for us; the request takes a connection of its own, for
// which nobody is made to wait long.
void Sessao::Cancelar() {
    std::shared_ptr<PGcancel> pedido(PQgetCancel(conexao_.get()), Liberar<PQfreeCancel, PGcancel>);
    if (!pedido) {
        return;
    }
    const auto feito = std::make_shared<std::promise<void>>();
    auto espera = feito->get_future();
    std::thread([pedido, feito] {
        std::array<char, 256> erro{};
        PQcancel(pedido.get(), erro.data(), static_cast<int>(erro.size()));
        feito->set_value();
    }).detach();
    espera.wait_for(EsperaPorCancelamento);
}

void Sessao::Esperar(short eventos) {
    Perguntar();
    pollfd soquete{.fd = PQsocket(conexao_.get()), .events = eventos, .revents = 0};
    ::poll(&soquete, 1, static_cast<int>(EntrePerguntas.count()));
}

void Sessao::EsperarResposta() {
    PGconn* const c = conexao_.get();
    while (PQisBusy(c) == 1) {
        const int falta = PQflush(c);
        if (falta < 0) {
            LancarFalha(c, nullptr);
        }
        Esperar(static_cast<short>(falta > 0 ? POLLIN | POLLOUT : POLLIN));
        if (PQconsumeInput(c) == 0) {
            LancarFalha(c, nullptr);
        }
    }
}

Resultado Sessao::Proximo() {
    EsperarResposta();
    Resultado resultado(PQgetResult(conexao_.get()));
    const auto situacao = PQresultStatus(resultado.get());
    if (resultado && (situacao == PGRES_FATAL_ERROR || situacao == PGRES_BAD_RESPONSE)) {
        LancarFalha(conexao_.get(), resultado.get());
    }
    return resultado;
}

void Sessao::Exigir(ExecStatusType situacao) {
    const Resultado resultado = Proximo();
    if (PQresultStatus(resultado.get()) != situacao) {
        LancarFalha(conexao_.get(), resultado.get());
    }
}

void Sessao::Enviado(int estado) {
    if (estado != 1) {
        LancarFalha(conexao_.get(), nullptr);
    }
}

void Sessao::Executar(const std::string& sql) {
    Enviado(PQsendQuery(conexao_.get(), sql.c_str()));
    while (Proximo()) {
    }
}

void Sessao::EnviarComando(const Comando& comando, bool preparar) {
    PGconn* const c = conexao_.get();
    const auto parametros = Ponteiros(comando);
    const int quantos = static_cast<int>(comando.parametros.size());
    if (preparar) {
        Enviado(PQsendQueryPrepared(c, NomeDaPreparada(comando.sql).c_str(), quantos,
                                    parametros.data(), nullptr, nullptr, 1));
    } else {
        Enviado(PQsendQueryParams(c, comando.sql.c_str(), quantos, nullptr, parametros.data(),
                                  nullptr, nullptr, 1));
    }
}

Resultado Sessao::Consultar(const Comando& comando) {
    EnviarComando(comando, false);
    Resultado linhas = Proximo();
    if (PQresultStatus(linhas.get()) != PGRES_TUPLES_OK) {
        LancarFalha(conexao_.get(), linhas.get());
    }
    static_cast<void>(Proximo());
    return linhas;
}

std::vector<Resultado> Sessao::Ler(std::span<const Comando> comandos, bool preparar) {
    PGconn* const c = conexao_.get();
    std::size_t novas = 0;
    Enviado(PQenterPipelineMode(c));
    EnviarComando({"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"}, false);
    for (const Comando& comando : comandos) {
        if (preparar && preparadas_.insert(comando.sql).second) {
            Enviado(PQsendPrepare(c, NomeDaPreparada(comando.sql).c_str(), comando.sql.c_str(), 0,
                                  nullptr));
            ++novas;
        }
    }
    for (const Comando& comando : comandos) {
        EnviarComando(comando, preparar);
    }
    EnviarComando({"COMMIT"}, false);
    Enviado(PQpipelineSync(c));
    const auto feito = [&] {
        Exigir(PGRES_COMMAND_OK);
        static_cast<void>(Proximo());
    };
    for (std::size_t i = 0; i < novas + 1; ++i) {
        feito();
    }
    std::vector<Resultado> resultados;
    while (resultados.size() < comandos.size()) {
        resultados.push_back(Proximo());
        if (PQresultStatus(resultados.back().get()) != PGRES_TUPLES_OK) {
            LancarFalha(c, resultados.back().get());
        }
        static_cast<void>(Proximo());
    }
    feito();
    Exigir(PGRES_PIPELINE_SYNC);
    Enviado(PQexitPipelineMode(c));
    return resultados;
}

void Sessao::CopiarDe(const std::string& consulta,
                      const std::function<void(std::string_view)>& receber) {
    PGconn* const c = conexao_.get();
    Enviado(PQsendQuery(c, ("COPY (" + consulta + ") TO STDOUT (FORMAT binary)").c_str()));
    Exigir(PGRES_COPY_OUT);
    for (;;) {
        char* bytes = nullptr;
        const int quantos = PQgetCopyData(c, &bytes, 1);
        const Memoria dono(bytes);
        if (quantos > 0) {
            receber({bytes, static_cast<std::size_t>(quantos)});
            Perguntar();
        } else if (quantos == 0) {
            Esperar(POLLIN);
            if (PQconsumeInput(c) == 0) {
                LancarFalha(c, nullptr);
            }
        } else if (quantos == -1) {
            break;
        } else {
            LancarFalha(c, nullptr);
        }
    }
    while (Proximo()) {
    }
}

void Sessao::ComecarCopia(const std::string& sql) {
    Enviado(PQsendQuery(conexao_.get(), sql.c_str()));
    Exigir(PGRES_COPY_IN);
}

void Sessao::Descarregar() {
    for (int falta = 0; (falta = PQflush(conexao_.get())) != 0;) {
        Enviado(falta < 0 ? 0 : 1);
        Esperar(POLLIN | POLLOUT);
        Enviado(PQconsumeInput(conexao_.get()));
    }
    Perguntar();
}

void Sessao::Copiar(std::string_view bytes) {
    Enviado(PQputCopyData(conexao_.get(), bytes.data(), static_cast<int>(bytes.size())));
    Descarregar();
}

void Sessao::TerminarCopia() {
    Enviado(PQputCopyEnd(conexao_.get(), nullptr));
    while (Proximo()) {
    }
}

std::string Sessao::Nome(std::string_view nome) {
    return EntreAspas(nome, '"');
}

std::string Sessao::Texto(const std::string& texto) const {
    const Memoria citado(PQescapeLiteral(conexao_.get(), texto.data(), texto.size()));
    if (!citado) {
        throw FalhaDoServidor("22021", PQerrorMessage(conexao_.get()));
    }
    return static_cast<const char*>(citado.get());
}

}  // namespace tarvo::postgresql
