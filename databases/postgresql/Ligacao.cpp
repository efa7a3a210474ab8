// SPDX-License-Identifier: MIT
#include "databases/postgresql/Ligacao.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <future>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <string_view>
#include <thread>
#include <vector>

#include "databases/postgresql/FalhaDoServidor.h"

namespace tarvo::postgresql {

namespace {

using namespace std::chrono_literals;
using Relogio = std::chrono::steady_clock;

constexpr auto EntrePerguntas = 50ms;
constexpr auto EsperaPorServidor = 15s;  // unless the address says another connect_timeout

// The servers of an address, as libpq takes them: each a list of as many texts between commas.
// Empty ones leave what the address says.
struct Servidores {
    std::string host;
    std::string hostaddr;
    std::string port;
};

Conexao Comecar(const std::string& endereco, const Servidores& servidores) {
    // What the address says holds over the first four: a server that is gone without a word is
    // noticed within a minute. Texts come as UTF-8 whatever it says.
    constexpr std::array Nomes{"keepalives_idle",
                               "keepalives_interval",
                               "keepalives_count",
                               "fallback_application_name",
                               "dbname",
                               "client_encoding",
                               "host",
                               "hostaddr",
                               "port",
                               static_cast<const char*>(nullptr)};
    const std::array Valores{"30",
                             "10",
                             "3",
                             "relatorios-tarvo",
                             endereco.c_str(),
                             "UTF8",
                             servidores.host.c_str(),
                             servidores.hostaddr.c_str(),
                             servidores.port.c_str(),
                             static_cast<const char*>(nullptr)};
    Conexao conexao(PQconnectStartParams(Nomes.data(), Valores.data(), 1));
    if (!conexao) {
        throw std::bad_alloc();
    }
    // The server's code stands in its words then, which are in its language.
    PQsetErrorVerbosity(conexao.get(), PQERRORS_VERBOSE);
    return conexao;
}

// What the address, the environment and a service file say together.
std::map<std::string, std::string> OpcoesDe(PGconn* conexao) {
    const ObjetoDeC<Liberar<PQconninfoFree, PQconninfoOption>> opcoes(PQconninfo(conexao));
    std::map<std::string, std::string> valores;
    for (const PQconninfoOption* o = opcoes.get(); o != nullptr && o->keyword != nullptr; ++o) {
        valores[o->keyword] = o->val == nullptr ? "" : o->val;
    }
    return valores;
}

std::chrono::seconds EsperaDe(const std::string& texto) {
    int segundos = 0;
    const char* const fim = texto.data() + texto.size();
    const auto lido = std::from_chars(texto.data(), fim, segundos);
    if (!texto.empty() && (lido.ec != std::errc() || lido.ptr != fim)) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "connect_timeout, no endereço do servidor ou em PGCONNECT_TIMEOUT, é um número "
                   "de segundos, não \"" +
                       texto + "\".");
    }
    return segundos > 0 ? std::chrono::seconds(segundos) : EsperaPorServidor;
}

std::string Atual(PGconn* conexao) {
    return std::string(PQhost(conexao)) + " " + PQport(conexao) + " " + PQhostaddr(conexao);
}

// The kernel's own limit for what it sends and nobody confirms; of a socket of this machine it has
// none.
void LimitarEnvio(PGconn* conexao, std::chrono::milliseconds limite) {
    const auto valor = static_cast<unsigned>(limite.count());
    ::setsockopt(PQsocket(conexao), IPPROTO_TCP, TCP_USER_TIMEOUT, &valor, sizeof valor);
}

// To its end, good or bad, or until nobody waits for it any more. False when a server took the
// connection and then said nothing: libpq would wait for ever.
bool Completar(PGconn* conexao, std::chrono::seconds espera, const std::atomic<bool>& desistiu) {
    std::string atual;
    Relogio::time_point prazo;
    for (auto situacao = PGRES_POLLING_WRITING;
         situacao != PGRES_POLLING_OK && situacao != PGRES_POLLING_FAILED && !desistiu;) {
        if (PQstatus(conexao) == CONNECTION_BAD) {
            break;
        }
        if (std::string este = Atual(conexao); este != atual) {
            atual = std::move(este);
            prazo = Relogio::now() + espera;
            // After which libpq goes on with the next of its numbers, or of the servers.
            LimitarEnvio(conexao, espera);
        }
        const auto eventos = situacao == PGRES_POLLING_READING ? POLLIN : POLLOUT;
        pollfd soquete{
            .fd = PQsocket(conexao), .events = static_cast<short>(eventos), .revents = 0};
        // It is asked to go on only when it can: it would wait itself.
        if (::poll(&soquete, 1, static_cast<int>(EntrePerguntas.count())) > 0) {
            situacao = PQconnectPoll(conexao);
        } else if (Relogio::now() > prazo && PQstatus(conexao) != CONNECTION_STARTED) {
            return false;
        }
    }
    return true;
}

std::vector<std::string> Partes(const std::string& lista) {
    std::vector<std::string> partes;
    for (std::size_t i = 0; i <= lista.size();) {
        const auto fim = std::min(lista.find(',', i), lista.size());
        partes.push_back(lista.substr(i, fim - i));
        i = fim + 1;
    }
    return partes;
}

std::string Sem(std::vector<std::string> partes, std::size_t qual) {
    std::string lista;
    for (std::size_t i = 0; i < partes.size(); ++i) {
        if (i != qual) {
            lista += (lista.empty() ? "" : ",") + partes[i];
        }
    }
    return lista;
}

// The servers without the one that is being tried; nothing when it is the only one.
std::optional<Servidores> OsOutros(PGconn* conexao, std::map<std::string, std::string> opcoes) {
    const auto hosts = Partes(opcoes["host"]);
    const auto numeros = Partes(opcoes["hostaddr"]);
    const auto portas = Partes(opcoes["port"]);
    const auto este = [&](std::size_t i) {
        const std::string& nome = i < hosts.size() && !hosts[i].empty() ? hosts[i]
                                  : i < numeros.size()                  ? numeros[i]
                                                                        : hosts[i];
        return nome == PQhost(conexao) && (portas.size() == 1 || portas[i] == PQport(conexao));
    };
    const auto quantos = std::max(hosts.size(), numeros.size());
    for (std::size_t i = 0; quantos > 1 && i < quantos; ++i) {
        if (este(i)) {
            const auto sem = [&](const auto& lista) {
                return lista.size() == 1 ? lista.front() : Sem(lista, i);
            };
            return Servidores{sem(hosts), sem(numeros), sem(portas)};
        }
    }
    return std::nullopt;
}

Conexao LigarAoPrimeiro(const std::string& endereco, const std::atomic<bool>& desistiu) {
    std::string mudos;
    Servidores servidores;
    for (;;) {
        Conexao conexao = Comecar(endereco, servidores);
        auto opcoes = OpcoesDe(conexao.get());
        const auto espera = EsperaDe(opcoes["connect_timeout"]);
        const bool completa = Completar(conexao.get(), espera, desistiu);
        if (desistiu) {
            return {};
        }
        if (completa && PQstatus(conexao.get()) == CONNECTION_OK) {
            LimitarEnvio(conexao.get(), std::chrono::milliseconds(std::strtol(
                                            opcoes["tcp_user_timeout"].c_str(), nullptr, 10)));
            PQsetErrorVerbosity(conexao.get(), PQERRORS_DEFAULT);
            return conexao;
        }
        if (completa) {
            LancarFalhaDeConexao(conexao.get(), mudos);
        }
        mudos += std::string(PQhost(conexao.get())) + ":" + PQport(conexao.get()) +
                 " não respondeu em " + std::to_string(espera.count()) + " s; ";
        const auto outros = OsOutros(conexao.get(), std::move(opcoes));
        if (!outros) {
            throw FalhaDoServidor("", mudos.substr(0, mudos.size() - 2));
        }
        servidores = *outros;
    }
}

}  // namespace

// On a thread of its own: nothing ends libpq's search for a server's name but the answer. It alone
// can outlive this call, and then keeps nothing that the end of the process would take away.
Conexao Ligar(const std::string& endereco, const std::function<void()>& aoEsperar) {
    const auto desistiu = std::make_shared<std::atomic<bool>>(false);
    std::packaged_task<Conexao()> tarefa(
        [endereco, desistiu] { return LigarAoPrimeiro(endereco, *desistiu); });
    auto resposta = tarefa.get_future();
    std::thread(std::move(tarefa)).detach();
    try {
        while (resposta.wait_for(EntrePerguntas) != std::future_status::ready) {
            aoEsperar();
        }
    } catch (...) {
        *desistiu = true;
        resposta.wait_for(3 * EntrePerguntas);
        throw;
    }
    return resposta.get();
}

}  // namespace tarvo::postgresql
