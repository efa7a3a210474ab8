// SPDX-License-Identifier: MIT
#include "tests/support/OperacoesCurtas.h"

#include <cstdio>

#include "document/Imagens.h"

namespace tarvo::apoio {

namespace {

std::string Numero(double valor) {
    char texto[32];
    std::snprintf(texto, sizeof texto, "%.4f", valor);
    std::string numero = texto;
    numero.erase(numero.find_last_not_of('0') + 1);
    if (numero.back() == '.') {
        numero.pop_back();
    }
    return numero == "-0" ? "0" : numero;
}

std::string Area(const Caixa& c) {
    return " " + Numero(c.x) + " " + Numero(c.y) + " " + Numero(c.largura) + " " + Numero(c.altura);
}

std::string Cor(std::int32_t cor) {
    char texto[16];
    std::snprintf(texto, sizeof texto, " #%06x", static_cast<unsigned>(cor));
    return texto;
}

std::string Espessura(std::int32_t espessura) {
    return espessura == 1 ? "" : " e" + std::to_string(espessura);
}

std::string Forma(const Conteudo& /*conteudo*/, const Linha& l) {
    const bool reservados = l.reservado1 != 0 || l.reservado2 != 0;
    return "L" + Area(l.caixa) + (l.estilo == 2 ? " .." : "") + (reservados ? " !" : "") +
           Espessura(l.espessura);
}

std::string Forma(const Conteudo& /*conteudo*/, const Retangulo& r) {
    return "R" + Area(r.caixa) + Cor(r.corBorda) + (r.preenchido ? Cor(r.corPreenchimento) : "") +
           Espessura(r.espessura);
}

std::string Forma(const Conteudo& /*conteudo*/, const RetanguloArredondado& r) {
    const bool moldura = !r.preenchido && r.raio == 0.1 && r.corBorda == 0 &&
                         r.corPreenchimento == 0xFFFFFF && r.espessura == 1;
    return "Q" + Area(r.caixa) +
           (moldura ? ""
                    : " r" + Numero(r.raio) + Cor(r.corBorda) + (r.preenchido ? " cheio" : "") +
                          Cor(r.corPreenchimento) + Espessura(r.espessura));
}

std::string Forma(const Conteudo& conteudo, const Texto& t) {
    const char alinhamento[] = {' ', "ECD"[t.horizontal], "TMB"[t.vertical], ' ', '\0'};
    return (t.multilinha ? "M" : "T") + Area(t.caixa) + alinhamento + conteudo.fontes.at(t.fonte) +
           " " + Numero(t.tamanho) + (t.negrito ? "b" : "") + (t.italico ? "i" : "") +
           (t.sublinhado ? "s" : "") + (t.cor == 0 ? "" : Cor(t.cor)) + " |" + t.texto;
}

std::string Forma(const Conteudo& /*conteudo*/, const Figura& f) {
    return "F" + Area(f.caixa) + " " + std::string(f.imagem->nome) + (f.proporcional ? " =" : "");
}

}  // namespace

Lista Curtas(const Conteudo& conteudo, std::size_t pagina) {
    Lista curtas;
    for (const Primitiva& primitiva : conteudo.paginas.at(pagina)) {
        curtas.push_back(
            std::visit([&](const auto& operacao) { return Forma(conteudo, operacao); }, primitiva));
    }
    return curtas;
}

}  // namespace tarvo::apoio
