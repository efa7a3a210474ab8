#include "host/commands/Copia.h"

#include "databases/CopiarBanco.h"
#include "host/commands/AberturaDoBanco.h"
#include "host/commands/Mensagens.h"

namespace tarvo::host {

int CopiarParaArquivo(const Argumentos& a, Console& console) {
    if (a.destino.string().find("://") != std::string::npos) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   "A cópia para um servidor não faz parte desta versão.");
    }
    const auto origem = LocalizarBanco(a, console, {.modo = ModoAbertura::SomenteLeitura});
    const auto resumo = CopiarBanco(origem, a.destino, {.IE = a.IE, .NroDRQ = a.NumeroDRQ});
    console.Dizer(std::to_string(resumo.tabelas) + " tabelas, " + std::to_string(resumo.linhas) +
                  " linhas");
    return Feito;
}

}  // namespace tarvo::host
