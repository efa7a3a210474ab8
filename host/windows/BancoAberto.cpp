// SPDX-License-Identifier: MIT
#include "host/windows/BancoAberto.h"

#include <QDateTime>
#include <QFileInfo>
#include <chrono>
#include <utility>

#include "databases/postgresql/Endereco.h"
#include "desktop/ApoioQt.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

BancoAberto::BancoAberto(std::filesystem::path endereco, Acompanhante* acompanhante)
    : endereco_(std::move(endereco)),
      origem_(endereco_.string(), {.acompanhante = acompanhante}),
      banco_(origem_.Abrir()),
      noServidor_(postgresql::EhEndereco(endereco_.string())) {
    banco_->Acompanhar(acompanhante);
}

std::unique_ptr<FonteDaLista> BancoAberto::Lista() {
    return noServidor_ ? ListarNoServidor(endereco_.string()) : ListarNaMemoria(*banco_);
}

bool BancoAberto::TemNovidade() const {
    return !origem_.LidaEm() || origem_.Mudou();
}

QString BancoAberto::Nome() const {
    const auto endereco = endereco_.string();
    return noServidor_ ? ParaQt(postgresql::Mostrado(endereco))
                       : QFileInfo(ParaQt(endereco)).fileName();
}

QString BancoAberto::Recente() const {
    const auto endereco = ParaQt(endereco_.string());
    return noServidor_ ? endereco : QFileInfo(endereco).absoluteFilePath();
}

QString BancoAberto::Situacao() const {
    const auto lidaEm = origem_.LidaEm();
    if (!lidaEm) {
        return {};
    }
    const auto quando =
        QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(*lidaEm));
    return u"dados de %1%2, F5 relê"_s.arg(quando.toString(u"HH:mm"_s),
                                           origem_.Avisos().empty() ? u""_s : u" (com aviso)"_s);
}

QStringList BancoAberto::Avisos() const {
    QStringList avisos;
    for (const std::string& aviso : origem_.Avisos()) {
        avisos << ParaQt(aviso);
    }
    return avisos;
}

}  // namespace tarvo::host
