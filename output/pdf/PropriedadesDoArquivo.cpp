// SPDX-License-Identifier: MIT
#include "output/pdf/PropriedadesDoArquivo.h"

#include <string>
#include <string_view>

namespace tarvo::pdf {

namespace {

void Juntar(std::string& lista, std::string_view separador, std::string_view rotulo,
            std::string_view valor) {
    if (!valor.empty()) {
        lista.append(lista.empty() ? "" : separador).append(rotulo).append(valor);
    }
}

// The taxpayer and the declaration that all documents have in common; a document that is of no
// declaration is of the taxpayer's all the same.
Identificacao EmComum(std::span<const SecaoPDF> secoes) {
    Identificacao comum = secoes.front().conteudo->identificacao;
    for (const auto& secao : secoes) {
        const Identificacao& esta = secao.conteudo->identificacao;
        if (esta.IE != comum.IE || esta.contribuinte != comum.contribuinte) {
            return {};
        }
        if (comum.declaracao.empty()) {
            comum = esta;
        } else if (!esta.declaracao.empty() && esta != comum) {
            return {comum.contribuinte, comum.IE, "", ""};
        }
    }
    return comum;
}

}  // namespace

Propriedades PropriedadesDe(std::span<const SecaoPDF> secoes) {
    Propriedades p;
    if (secoes.empty()) {
        return p;
    }
    const Identificacao de = EmComum(secoes);
    p.titulo = secoes.front().conteudo->titulo;
    if (secoes.size() > 1 && !de.declaracao.empty()) {
        p.titulo.clear();
        Juntar(p.titulo, " – ", "DRQ ", de.declaracao);
        Juntar(p.titulo, " – ", "", de.referencia);
        Juntar(p.titulo, " – ", "", de.contribuinte);
    }
    p.autor = de.contribuinte;
    Juntar(p.assunto, ", ", "DRQ ", de.declaracao);
    Juntar(p.assunto, ", ", "inscrição estadual ", de.IE);
    Juntar(p.assunto, ", ", "referência ", de.referencia);
    p.palavras = "ICMS";
    Juntar(p.palavras, ", ", "DRQ ", de.declaracao);
    Juntar(p.palavras, ", ", "", de.IE);
    Juntar(p.palavras, ", ", "", de.referencia);
    return p;
}

}  // namespace tarvo::pdf
