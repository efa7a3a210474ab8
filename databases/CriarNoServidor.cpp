// SPDX-License-Identifier: MIT
#include "databases/CriarNoServidor.h"

#include "databases/Copia.h"
#include "databases/DestinoServidor.h"
#include "databases/sqlite/Abertura.h"
#include "databases/sqlite/CriarArquivo.h"

namespace tarvo {

void CriarNoServidor(const std::string& endereco, std::string_view script) {
    DestinoServidor servidor(endereco, DestinoServidor::Tabelas::Novas);
    const auto modelo = sqlite::AbrirEmMemoria();
    sqlite::CriarTabelas(*modelo);
    modelo->Executar(std::string(script));
    Copiar(modelo, servidor, {});
    servidor.Confirmar();
}

}  // namespace tarvo
