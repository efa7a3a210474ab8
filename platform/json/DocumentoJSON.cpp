#include "platform/json/DocumentoJSON.h"

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

// The arguments of every operation begin with its box.
Json ComCaixa(const char* operacao, const Caixa& c) {
    return Json::array({operacao, c.x, c.y, c.largura, c.altura});
}

void Juntar(Json& lista, std::initializer_list<Json> argumentos) {
    lista.insert(lista.end(), argumentos.begin(), argumentos.end());
}

struct Operacao {
    const Conteudo& conteudo;

    Json operator()(const Linha& l) const {
        Json lista = ComCaixa("DesenharLinha", l.caixa);
        Juntar(lista, {l.reservado1, l.reservado2, l.espessura, l.estilo});
        return lista;
    }
    Json operator()(const Retangulo& r) const {
        Json lista = ComCaixa("DesenharRetangulo", r.caixa);
        Juntar(lista, {r.preenchido, r.corBorda, r.corPreenchimento, r.espessura});
        return lista;
    }
    Json operator()(const RetanguloArredondado& r) const {
        Json lista = ComCaixa("DesenharRetanguloArredondado", r.caixa);
        Juntar(lista, {r.preenchido, r.raio, r.corBorda, r.corPreenchimento, r.espessura});
        return lista;
    }
    Json operator()(const Texto& t) const {
        Json lista = ComCaixa(t.multilinha ? "EscreverTextoMultilinha" : "EscreverTexto", t.caixa);
        Juntar(lista, {t.texto, t.horizontal, t.vertical, conteudo.fontes.at(t.fonte), t.tamanho,
                       t.negrito, t.italico, t.sublinhado, t.cor});
        return lista;
    }
    Json operator()(const Figura& f) const {
        Json lista = ComCaixa("DesenharFigura", f.caixa);
        Juntar(lista, {std::string(f.imagem->nome), f.proporcional});
        return lista;
    }
};

}  // namespace

void EscreverJSON(std::string_view classe, const Conteudo& c, std::ostream& saida) {
    const Json margens{c.margens.esquerda, c.margens.direita, c.margens.superior,
                       c.margens.inferior};
    saida << "{ \"classe\": " << Escrito(classe) << ",\n  \"titulo\": " << Escrito(c.titulo)
          << ",\n  \"tituloResumido\": " << Escrito(c.tituloResumido) << ",\n  \"icone\": "
          << (c.icone != nullptr ? Escrito(std::string(c.icone->nome)) : "null")
          << ",\n  \"orientacao\": " << c.orientacao << ",\n  \"margens\": " << Escrito(margens)
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
    return Escrito(std::visit(Operacao{conteudo}, primitiva));
}

}  // namespace tarvo
