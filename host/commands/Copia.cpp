// SPDX-License-Identifier: MIT
#include "host/commands/ComandosDoBanco.h"

#include "databases/CopiarBanco.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Mensagens.h"

namespace tarvo::host {

int Copiar(const Argumentos& a, Console& console) {
    AberturaInterrompivel abertura(a, console);
    const auto origem = abertura.Localizar({.modo = ModoAbertura::SomenteLeitura});
    const auto resumo = CopiarBanco(origem, a.destino, {.IE = a.IE, .NroDRQ = a.NumeroDRQ});
    for (const std::string& aviso : resumo.avisos) {
        console.Avisar(aviso);
    }
    console.Dizer(std::to_string(resumo.tabelas) + " tabelas, " + std::to_string(resumo.linhas) +
                  " linhas");
    return Feito;
}

}  // namespace tarvo::host
