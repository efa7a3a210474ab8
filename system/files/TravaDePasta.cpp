// SPDX-License-Identifier: MIT
#include "system/files/TravaDePasta.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "data/CodigosDeErros.h"
#include "system/files/Arquivos.h"

namespace tarvo {

void Travar(const Descritor& aberto, Trava trava, const std::filesystem::path& caminho,
            const char* seOcupada) {
    const int modo = trava == Trava::Exclusiva ? LOCK_EX : LOCK_SH;
    if (::flock(aberto.Valor(), modo | LOCK_NB) == 0) {
        return;
    }
    if (errno == EWOULDBLOCK) {
        throw Erro(NumeroErro::EmUso, "\"" + caminho.string() + "\": " + seOcupada + ".");
    }
    LancarErroDeArquivo(caminho, errno);
}

TravaDePasta::TravaDePasta(const std::filesystem::path& pasta, Trava trava, const char* seOcupada)
    : pasta_(AbrirDescritor(pasta, O_RDONLY | O_DIRECTORY)) {
    Travar(pasta_, trava, pasta, seOcupada);
}

}  // namespace tarvo
