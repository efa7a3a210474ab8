// SPDX-License-Identifier: MIT
// Reads a file of the desktop engine for another process: see Protocolo.h.
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "databases/mdb/reader/Isolamento.h"
#include "databases/mdb/reader/LeituraDoArquivo.h"

namespace tarvo::mdb {

namespace {

// The library's own conversions, loaded while files can still be opened, for as long as the process
// lasts.
void CarregarConversoes(const char* codificacao) {
    static_cast<void>(iconv_open("UTF-8", "UCS-2LE"));
    static_cast<void>(iconv_open("UCS-2LE", "UTF-8"));
    static_cast<void>(iconv_open(codificacao, "UTF-8"));
}

Pedido LerPedido(std::string_view argumento) {
    Pedido pedido;
    for (bool tabela = true; !argumento.empty(); tabela = false) {
        const std::size_t fim = std::min(argumento.find(Separador), argumento.size());
        const std::string nome(argumento.substr(0, fim));
        argumento.remove_prefix(std::min(fim + 1, argumento.size()));
        if (tabela) {
            pedido.tabela = nome;
        } else {
            pedido.colunas.push_back(nome);
        }
    }
    return pedido;
}

std::span<unsigned char> Mapear(int descritor) {
    struct stat estado {};
    if (fstat(descritor, &estado) != 0 || estado.st_size <= 0) {
        throw Recusado{Motivo::Danificado};
    }
    const auto tamanho = static_cast<std::size_t>(estado.st_size);
    void* const mapa = mmap(nullptr, tamanho, PROT_READ, MAP_PRIVATE, descritor, 0);
    close(descritor);
    if (mapa == MAP_FAILED) {
        throw std::bad_alloc();
    }
    return {static_cast<unsigned char*>(mapa), tamanho};
}

void Ler(std::span<char*> argumentos, Emissor& emissor) {
    const std::string codificacao = argumentos[0];
    std::vector<Pedido> pedidos;
    for (const char* argumento : argumentos.subspan(1)) {
        pedidos.push_back(LerPedido(argumento));
    }
    // The library takes its code page from here alone.
    setenv("MDB_JET3_CHARSET", codificacao.c_str(), 1);
    const Decodificador decodificador(codificacao);
    if (!decodificador.Valido()) {
        throw Recusado{Motivo::CodificacaoDesconhecida};
    }
    CarregarConversoes(codificacao.c_str());
    const auto bytes = Mapear(DescritorDoArquivo);
    if (!Isolar(bytes.size())) {
        _exit(1);
    }
    LeituraDoArquivo(bytes, decodificador).Enviar(pedidos, emissor);
}

}  // namespace

}  // namespace tarvo::mdb

int main(int argc, char** argv) {
    using namespace tarvo::mdb;
    if (argc < 2) {
        return 2;
    }
    Emissor emissor;
    const auto recusar = [&emissor](Motivo motivo, std::uint16_t tabela) {
        // Possibly in the middle of a row: what is not written yet is not needed any more.
        emissor = {};
        emissor.Abrir(Quadro::Recusa);
        emissor.Escrever(motivo);
        emissor.Escrever(tabela);
        emissor.Fechar();
    };
    try {
        Ler({argv + 1, static_cast<std::size_t>(argc - 1)}, emissor);
    } catch (const Recusado& recusado) {
        recusar(recusado.motivo, recusado.tabela);
    } catch (const std::bad_alloc&) {
        recusar(Motivo::SemMemoria, 0);
    }
    emissor.Descarregar();
    // Nothing that runs at the end of a program is needed, and little of it would be allowed.
    _exit(0);
}
