// SPDX-License-Identifier: MIT
#include "system/files/GravacaoSegura.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "system/files/Arquivos.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

// The way to an open file that has no name.
std::string CaminhoDoDescritor(int descritor) {
    return "/proc/self/fd/" + std::to_string(descritor);
}

}  // namespace

GravacaoSegura::GravacaoSegura(fs::path arquivo, fs::path pastaDeEspera)
    : arquivo_(std::move(arquivo)), pastaDeEspera_(std::move(pastaDeEspera)) {
    if (pastaDeEspera_.empty()) {
        pastaDeEspera_ = arquivo_.has_parent_path() ? arquivo_.parent_path() : fs::path(".");
    }
    ConferirSubstituicao(arquivo_);
    Abrir();
}

void GravacaoSegura::Abrir() {
    descritor_ = ::open(pastaDeEspera_.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666);
    if (descritor_ >= 0 && ::access(CaminhoDoDescritor(descritor_).c_str(), F_OK) == 0) {
        return;
    }
    Fechar();
    fs::path nome = NomeDeEspera();
    descritor_ = ::open(nome.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descritor_ < 0) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    temporario_ = std::move(nome);
}

fs::path GravacaoSegura::NomeDeEspera() {
    espera_ = PastaDeEspera::Nova(pastaDeEspera_);
    return espera_->Caminho() / "novo";
}

GravacaoSegura::~GravacaoSegura() {
    Fechar();
}

void GravacaoSegura::Fechar() {
    if (descritor_ >= 0) {
        ::close(std::exchange(descritor_, -1));
    }
}

void GravacaoSegura::Escrever(std::string_view bytes) {
    if (const int erro = EscreverTudo(descritor_, bytes); erro != 0) {
        LancarErroDeArquivo(arquivo_, erro);
    }
}

void GravacaoSegura::Confirmar() {
    if (::fsync(descritor_) != 0) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    ConfirmarSemEsperar();
}

void GravacaoSegura::ConfirmarSemEsperar() {
    if (temporario_.empty() && Nomear()) {
        Fechar();
        return;
    }
    if (::close(std::exchange(descritor_, -1)) != 0) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    Renomear(temporario_, arquivo_);
    espera_.reset();
}

bool GravacaoSegura::Nomear() {
    const std::string origem = CaminhoDoDescritor(descritor_);
    const auto ligar = [&](const fs::path& nome) {
        return ::linkat(AT_FDCWD, origem.c_str(), AT_FDCWD, nome.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    if (ligar(arquivo_)) {
        return true;
    }
    if (errno == EEXIST) {
        temporario_ = NomeDeEspera();
        if (ligar(temporario_)) {
            return false;
        }
    }
    LancarErroDeArquivo(arquivo_, errno);
}

}  // namespace tarvo
