// SPDX-License-Identifier: MIT
#include "output/json/DocumentoJSON.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "data/CodigosDeErros.h"
#include "document/Imagens.h"

namespace tarvo {

namespace {

using Json = nlohmann::json;

std::string Escrito(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// Written value by value: the destructor of a Json list allocates, which without memory would end
// the process.
template <class... Valores>
std::string Lista(const Valores&... valores) {
    std::string lista = "[";
    ((lista += Escrito(valores), lista += ','), ...);
    lista.back() = ']';
    return lista;
}

// The arguments of every operation begin with its box.
template <class... Argumentos>
std::string Lista(const char* operacao, const Caixa& c, const Argumentos&... argumentos) {
    return Lista(operacao, c.x, c.y, c.largura, c.altura, argumentos...);
}

struct Operacao {
    const Conteudo& conteudo;

    std::string operator()(const Linha& l) const {
        return Lista("DesenharLinha", l.caixa, l.reservado1, l.reservado2, l.espessura, l.estilo);
    }
    std::string operator()(const Retangulo& r) const {
        return Lista("DesenharRetangulo", r.caixa, r.preenchido, r.corBorda, r.corPreenchimento,
                     r.espessura);
    }
    std::string operator()(const RetanguloArredondado& r) const {
        return Lista("DesenharRetanguloArredondado", r.caixa, r.preenchido, r.raio, r.corBorda,
                     r.corPreenchimento, r.espessura);
    }
    std::string operator()(const Texto& t) const {
        return Lista(t.multilinha ? "EscreverTextoMultilinha" : "EscreverTexto", t.caixa, t.texto,
                     t.horizontal, t.vertical, conteudo.fontes.at(t.fonte), t.tamanho, t.negrito,
                     t.italico, t.sublinhado, t.cor);
    }
    std::string operator()(const Figura& f) const {
        return Lista("DesenharFigura", f.caixa, std::string(f.imagem->nome), f.proporcional);
    }
};

}  // namespace

void EscreverJSON(std::string_view classe, const Conteudo& c, std::ostream& saida) {
    const std::string margens =
        Lista(c.margens.esquerda, c.margens.direita, c.margens.superior, c.margens.inferior);
    saida << "{ \"classe\": " << Escrito(classe) << ",\n  \"titulo\": " << Escrito(c.titulo)
          << ",\n  \"tituloResumido\": " << Escrito(c.tituloResumido) << ",\n  \"icone\": "
          << (c.icone != nullptr ? Escrito(std::string(c.icone->nome)) : "null")
          << ",\n  \"orientacao\": " << c.orientacao << ",\n  \"margens\": " << margens
          << ",\n  \"paginas\": [";
    const char* entrePaginas = "\n    [";
    for (const Pagina& pagina : c.paginas) {
        saida << entrePaginas;
        const char* entreOperacoes = "\n      ";
        for (const Primitiva& primitiva : pagina) {
            saida << entreOperacoes << OperacaoJSON(c, primitiva);
            entreOperacoes = ",\n      ";
        }
        saida << "]";
        entrePaginas = ",\n    [";
    }
    saida << "] }\n";
    if (!saida.flush()) {
        throw Erro(NumeroErro::ErroDispositivo, "A gravação do documento em JSON falhou.");
    }
}

std::string OperacaoJSON(const Conteudo& conteudo, const Primitiva& primitiva) {
    return std::visit(Operacao{conteudo}, primitiva);
}

}  // namespace tarvo
