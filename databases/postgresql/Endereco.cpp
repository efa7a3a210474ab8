// SPDX-License-Identifier: MIT
#include "databases/postgresql/Endereco.h"

#include <map>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
#include "databases/postgresql/Libpq.h"

namespace tarvo::postgresql {

namespace {

using Opcoes = ObjetoDeC<Liberar<PQconninfoFree, PQconninfoOption>>;

// What the address itself says; nothing when it is not understood.
std::map<std::string, std::string> Partes(const std::string& endereco) {
    char* erro = nullptr;
    const Opcoes opcoes(PQconninfoParse(endereco.c_str(), &erro));
    PQfreemem(erro);  // it may repeat what must not be
    std::map<std::string, std::string> partes;
    for (const PQconninfoOption* o = opcoes.get(); o != nullptr && o->keyword != nullptr; ++o) {
        if (o->val != nullptr) {
            partes[o->keyword] = o->val;
        }
    }
    return partes;
}

bool Entende(const std::string& endereco) {
    return Opcoes(PQconninfoParse(endereco.c_str(), nullptr)) != nullptr;
}

}  // namespace

bool EhEndereco(std::string_view banco) {
    return banco.starts_with("postgresql://") || banco.starts_with("postgres://");
}

bool TemSenha(const std::string& endereco) {
    if (Entende(endereco)) {
        const auto partes = Partes(endereco);
        return partes.contains("password") || partes.contains("sslpassword");
    }
    return endereco.find('@') != std::string::npos ||
           endereco.find("password") != std::string::npos;
}

std::string Mostrado(const std::string& endereco) {
    if (!Entende(endereco)) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "O endereço do servidor não se entende; ele é da forma "
                   "postgresql://USUÁRIO@SERVIDOR:PORTA/BANCO?opção=valor, e o que nele tiver "
                   "outros sinais se escreve como %20.");
    }
    auto partes = Partes(endereco);
    std::string texto = "postgresql://";
    texto += partes["user"].empty() ? "" : partes["user"] + "@";
    texto += partes["host"].empty() ? partes["hostaddr"] : partes["host"];
    texto += partes["port"].empty() ? "" : ":" + partes["port"];
    texto += partes["dbname"].empty() ? "" : "/" + partes["dbname"];
    return texto;
}

}  // namespace tarvo::postgresql
