// SPDX-License-Identifier: MIT
#include <cerrno>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "system/files/Arquivos.h"

namespace tarvo {

namespace {

struct Motivo {
    int codigo;
    NumeroErro numero;
    const char* texto;
};

constexpr Motivo Motivos[] = {
    {ENOENT, NumeroErro::CaminhoNaoEncontrado, "a pasta não existe"},
    {ENOTDIR, NumeroErro::CaminhoNaoEncontrado, "uma parte do caminho não é uma pasta"},
    {ENAMETOOLONG, NumeroErro::CaminhoNaoEncontrado, "o nome é longo demais"},
    {ELOOP, NumeroErro::CaminhoNaoEncontrado, "os links do caminho formam um laço"},
    {EEXIST, NumeroErro::DestinoRecusado, "o que tem esse nome não é uma pasta"},
    {ENXIO, NumeroErro::DestinoRecusado, "o que tem esse nome não é um arquivo comum"},
    {EISDIR, NumeroErro::DestinoRecusado, "é uma pasta"},
    {EACCES, NumeroErro::PermissaoNegada, "sem permissão"},
    {EPERM, NumeroErro::PermissaoNegada, "sem permissão"},
    {ETXTBSY, NumeroErro::PermissaoNegada, "é um programa que está sendo executado"},
    {EROFS, NumeroErro::PermissaoNegada, "o sistema de arquivos é somente para leitura"},
    {EMFILE, NumeroErro::ArquivosDemais, "há arquivos demais abertos neste programa"},
    {ENFILE, NumeroErro::ArquivosDemais, "há arquivos demais abertos nesta máquina"},
    {ENOSPC, NumeroErro::DiscoCheio, "não há espaço no disco"},
    {EDQUOT, NumeroErro::DiscoCheio, "a cota de espaço deste usuário acabou"},
    {EFBIG, NumeroErro::DiscoCheio, "o arquivo passa do tamanho permitido"},
    {ENOMEM, NumeroErro::MemoriaInsuficiente, "memória insuficiente"},
    {EIO, NumeroErro::ErroDispositivo, "a leitura ou a gravação falhou"},
};

}  // namespace

void LancarErroDeArquivo(const std::filesystem::path& arquivo, int codigo) {
    const auto* const motivo = Achar(Motivos, codigo, &Motivo::codigo);
    const bool conhecido = motivo != nullptr;
    throw Erro(conhecido ? motivo->numero : NumeroErro::ErroDispositivo,
               "\"" + arquivo.string() + "\": " +
                   (conhecido ? motivo->texto : std::generic_category().message(codigo)) + ".");
}

}  // namespace tarvo
