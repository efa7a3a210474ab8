// SPDX-License-Identifier: MIT
#include "output/pdf/page/MarcasDaPagina.h"

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

void MarcasDaPagina::Reiniciar() {
    marcado_.donos.clear();
    marcado_.retratos.clear();
    ha_ = false;
}

void MarcasDaPagina::Pertencer(std::uint32_t dono) {
    const bool doPai = colocados_ != nullptr && dono != Estrutura::Decoracao &&
                       (*colocados_)[dono].etiqueta == Etiqueta::Nenhuma;
    dono_ = doPai ? (*colocados_)[dono].pai : dono;
}

void MarcasDaPagina::Abrir(std::string& operadores) {
    if (colocados_ == nullptr || (ha_ && aberto_ == dono_)) {
        return;
    }
    Fechar(operadores);
    if (dono_ == Estrutura::Decoracao) {
        AbrirDecoracao(operadores);
    } else {
        operadores += '/';
        operadores += NomeDe((*colocados_)[dono_].etiqueta);
        operadores += "<</MCID ";
        AnexarInteiro(operadores, static_cast<std::int64_t>(marcado_.donos.size()));
        operadores += ">>BDC\n";
        marcado_.donos.push_back(dono_);
    }
    aberto_ = dono_;
    ha_ = true;
}

void MarcasDaPagina::Fechar(std::string& operadores) {
    if (ha_) {
        operadores += "EMC\n";
        ha_ = false;
    }
}

void MarcasDaPagina::AbrirDecoracao(std::string& operadores) const {
    if (colocados_ != nullptr) {
        operadores += "/Artifact BMC\n";
    }
}

void MarcasDaPagina::FecharDecoracao(std::string& operadores) const {
    if (colocados_ != nullptr) {
        operadores += "EMC\n";
    }
}

void MarcasDaPagina::Retratar(const std::array<Centesimos, 4>& caixa, std::string_view descricao) {
    if (dono_ != Estrutura::Decoracao) {
        marcado_.retratos.push_back({dono_, caixa, descricao});
    }
}

}  // namespace tarvo::pdf
