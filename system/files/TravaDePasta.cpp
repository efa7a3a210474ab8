#include "system/files/TravaDePasta.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "data/CodigosDeErros.h"
#include "system/files/Arquivos.h"

namespace tarvo {

TravaDePasta::TravaDePasta(const std::filesystem::path& pasta, const char* seOcupada)
    : pasta_(::open(pasta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (pasta_.Valor() >= 0 && ::flock(pasta_.Valor(), LOCK_EX | LOCK_NB) == 0) {
        return;
    }
    if (errno == EWOULDBLOCK) {
        throw Erro(NumeroErro::EmUso, "\"" + pasta.string() + "\": " + seOcupada + ".");
    }
    LancarErroDeArquivo(pasta, errno);
}

}  // namespace tarvo
