// SPDX-License-Identifier: MIT
#include "host/commands/ResultadoEmJSON.h"

#include <nlohmann/json.hpp>

namespace tarvo::host {

namespace {

using Json = nlohmann::ordered_json;

std::string EmUmaLinha(const Json& json) {
    constexpr bool SoAscii = true;
    return json.dump(-1, ' ', SoAscii, Json::error_handler_t::replace);
}

template <class Valor>
Json OuNulo(const std::optional<Valor>& valor) {
    return valor ? Json(*valor) : Json();
}

Json OuNulo(std::string_view texto) {
    return texto.empty() ? Json() : Json(texto);
}

Json JsonDe(const Achado& achado) {
    return {{"ie", OuNulo(achado.IE)},
            {"drq", OuNulo(achado.NroDRQ)},
            {"relatorio", OuNulo(achado.relatorio)},
            {"tabela", OuNulo(achado.tabela)},
            {"linhas", achado.linhas},
            {"motivo", achado.motivo}};
}

}  // namespace

std::string ResultadoEmJSON(const Achado& achado) {
    return EmUmaLinha(JsonDe(achado));
}

std::string ResultadoEmJSON(std::string_view codigo, const std::optional<std::string>& IE,
                            const std::optional<std::int32_t>& NumeroDRQ,
                            const ResultadoDaSaida& resultado, const std::vector<Achado>& achados) {
    Json arquivos = Json::array();
    for (const auto& arquivo : resultado.arquivos) {
        arquivos.push_back({{"caminho", arquivo.caminho.string()}, {"bytes", arquivo.bytes}});
    }
    Json cortados = Json::array();
    for (const auto& cortado : resultado.cortados) {
        cortados.push_back({{"pagina", cortado.pagina},
                            {"x", cortado.caixa.x},
                            {"y", cortado.caixa.y},
                            {"texto", cortado.texto}});
    }
    Json doRelatorio = Json::array();
    for (const Achado& achado : achados) {
        doRelatorio.push_back(JsonDe(achado));
    }
    return EmUmaLinha({{"relatorio", codigo},
                       {"ie", OuNulo(IE)},
                       {"drq", OuNulo(NumeroDRQ)},
                       {"arquivos", arquivos},
                       {"paginas", resultado.paginas},
                       {"cortados", cortados},
                       {"achados", doRelatorio}});
}

std::string ResultadoEmJSON(const Contribuinte* contribuinte, const Declaracao* declaracao) {
    Json json{{"ie", nullptr},   {"razaoSocial", nullptr}, {"cnpj", nullptr},
              {"drq", nullptr},  {"referencia", nullptr},  {"regime", nullptr},
              {"tipo", nullptr}, {"consistente", nullptr}};
    if (declaracao != nullptr) {
        json["ie"] = OuNulo(declaracao->IE);
        json["drq"] = declaracao->NroDRQ;
        json["referencia"] = OuNulo(declaracao->referencia);
        json["regime"] = OuNulo(declaracao->regime);
        json["tipo"] = OuNulo(declaracao->tipo);
        json["consistente"] = declaracao->consistente;
    }
    if (contribuinte != nullptr) {
        json["ie"] = contribuinte->IE;
        json["razaoSocial"] = OuNulo(contribuinte->razaoSocial);
        json["cnpj"] = OuNulo(contribuinte->CNPJ);
    }
    return EmUmaLinha(json);
}

std::string ResultadoEmJSON(const SituacaoDaParte& s) {
    Json falhas = Json::array();
    for (const auto& [chave, linha] : s.falhas) {
        falhas.push_back({{"ie", OuNulo(linha.IE)},
                          {"drq", linha.NroDRQ},
                          {"relatorio", linha.relatorio},
                          {"erro", linha.erro},
                          {"descricao", linha.descricao}});
    }
    return EmUmaLinha({{"parte", s.parte.numero},
                       {"partes", s.parte.partes},
                       {"pasta", OuNulo(s.pasta.string())},
                       {"concluida", s.concluida},
                       {"declaracoes", s.declaracoes},
                       {"terminadas", s.terminadas},
                       {"porTerminar", s.porTerminar},
                       {"arquivos", s.arquivos},
                       {"paginas", s.paginas},
                       {"bytes", s.bytes},
                       {"falhas", falhas}});
}

}  // namespace tarvo::host
