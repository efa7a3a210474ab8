// SPDX-License-Identifier: MIT
#include <deque>
#include <sstream>

#include "interface/ArgumentosDaChamada.h"
#include "interface/ErroDaChamada.h"
#include "interface/Objetos.h"
#include "interface/relatoriostarvo.h"
#include "output/json/DocumentoJSON.h"
#include "output/tables/PlanilhaXLSX.h"
#include "output/tables/TabelasCSV.h"
#include "system/files/GravacaoSegura.h"

// The calls about the documents that objects hold, as pages, files and bytes.

using namespace tarvo;
using namespace tarvo::c;

namespace {

// What is written to a stream.
template <class Escrever>
std::string NaMemoria(Escrever escrever) {
    std::ostringstream saida;
    saida.exceptions(std::ios::badbit);  // passes on what happens inside, such as lack of memory
    escrever(saida);
    return std::move(saida).str();
}

std::string ComoJSON(const Relatorio& relatorio) {
    return NaMemoria([&](std::ostream& saida) {
        EscreverJSON(relatorio.Identidade().classe, relatorio.Documento(), saida);
    });
}

std::string ComoCSV(const Relatorio& relatorio) {
    return NaMemoria([&](std::ostream& saida) {
        EscreverCSV(TabelasDoDocumento(relatorio.Documento()), saida);
    });
}

std::string ComoXLSX(const std::vector<SecaoPDF>& documentos) {
    std::vector<SecaoDaPlanilha> secoes;
    secoes.reserve(documentos.size());
    for (const auto& [conteudo, marcador] : documentos) {
        secoes.push_back({.nome = documentos.size() > 1 ? marcador : "",
                          .tabelas = TabelasDoDocumento(*conteudo)});
    }
    return NaMemoria([&](std::ostream& saida) { EscreverXLSX(secoes, saida); });
}

// The objects whose documents go into one output, in use until it is written.
class Reunidos {
  public:
    Reunidos(const tarvo_objeto* objetos, std::size_t quantos) {
        ExigirPonteiro(objetos != nullptr, "objetos");
        if (quantos == 0) {
            Recusar("não há objetos");
        }
        for (std::size_t i = 0; i < quantos; ++i) {
            const Conteudo& conteudo =
                usos_.emplace_back(Registro::DoProcesso(), objetos[i])->DeRelatorio().Documento();
            secoes_.push_back({&conteudo, conteudo.titulo});
        }
    }

    [[nodiscard]] const std::vector<SecaoPDF>& Secoes() const { return secoes_; }
    [[nodiscard]] const Relatorio& Unico(const char* formato) const {
        if (usos_.size() != 1) {
            Recusar(std::string(formato) + " leva um objeto só");
        }
        return usos_.front()->DeRelatorio();
    }

    // Hands each object the texts that were cut in its own pages.
    void Distribuir(const std::vector<TextoCortado>& cortados) const {
        auto cortado = cortados.begin();
        std::size_t anteriores = 0;  // pages
        for (const auto& uso : usos_) {
            const std::size_t paginas = uso->DeRelatorio().Documento().paginas.size();
            uso->cortados.clear();
            for (; cortado != cortados.end() && cortado->pagina <= anteriores + paginas;
                 ++cortado) {
                uso->cortados.push_back(*cortado);
                uso->cortados.back().pagina -= anteriores;
            }
            anteriores += paginas;
        }
    }

  private:
    std::deque<Registro::Uso<Objeto>> usos_;
    std::vector<SecaoPDF> secoes_;
};

void Escrever(const Reunidos& reunidos, std::int32_t formato, const DestinoPDF& destino) {
    switch (formato) {
        case TARVO_PDF:
        case TARVO_PDF_SEM_ESTRUTURA:
            reunidos.Distribuir(RenderizarPDF(reunidos.Secoes(), destino,
                                              {.semEstrutura = formato == TARVO_PDF_SEM_ESTRUTURA})
                                    .cortados);
            return;
        case TARVO_JSON:
            destino(ComoJSON(reunidos.Unico("JSON")));
            return;
        case TARVO_CSV:
            destino(ComoCSV(reunidos.Unico("CSV")));
            return;
        case TARVO_XLSX:
            destino(ComoXLSX(reunidos.Secoes()));
            return;
        default:
            Recusar("formato desconhecido: " + std::to_string(formato));
    }
}

void Gravar(const Reunidos& reunidos, std::int32_t formato, const std::filesystem::path& arquivo) {
    GravacaoSegura gravacao(arquivo);
    Escrever(reunidos, formato, [&](std::string_view bytes) { gravacao.Escrever(bytes); });
    gravacao.Confirmar();
}

}  // namespace

int32_t tarvo_paginas(tarvo_objeto objeto, size_t* paginas) {
    return Proteger([&] {
        auto& saida = Saida(paginas, "paginas");
        saida = Usar<Objeto>(objeto)->DeRelatorio().Documento().paginas.size();
    });
}

int32_t tarvo_exportar_arquivo(tarvo_objeto objeto, int32_t formato, const char* arquivo) {
    return tarvo_exportar_reunidos(&objeto, 1, formato, arquivo);
}

int32_t tarvo_exportar_reunidos(const tarvo_objeto* objetos, size_t quantos, int32_t formato,
                                const char* arquivo) {
    return Proteger([&] { Gravar(Reunidos(objetos, quantos), formato, Caminho(arquivo)); });
}

int32_t tarvo_exportar_memoria(tarvo_objeto objeto, int32_t formato, tarvo_memoria* memoria) {
    return Proteger([&] {
        auto& saida = Saida(memoria, "memoria");
        std::string bytes;
        Escrever(Reunidos(&objeto, 1), formato, [&](std::string_view parte) { bytes += parte; });
        saida = Registrar<Memoria>(std::move(bytes));
    });
}

int32_t tarvo_transmitir(const tarvo_objeto* objetos, size_t quantos, int32_t formato,
                         tarvo_receber receber, void* contexto) {
    return Proteger([&] {
        ExigirPonteiro(receber != nullptr, "receber");
        Escrever(Reunidos(objetos, quantos), formato, [&](std::string_view bytes) {
            if (receber(contexto, bytes.data(), bytes.size()) != 0) {
                throw Erro(NumeroErro::Cancelado, "O programa não quis mais bytes do documento.");
            }
        });
    });
}

int32_t tarvo_memoria_bytes(tarvo_memoria memoria, const char** bytes, size_t* tamanho) {
    return Proteger([&] {
        auto& inicio = Saida(bytes, "bytes");
        auto& quantos = Saida(tamanho, "tamanho");
        const std::string& conteudo = Usar<Memoria>(memoria)->Bytes();
        inicio = conteudo.c_str();
        quantos = conteudo.size();
    });
}

int32_t tarvo_textos_cortados(tarvo_objeto objeto, size_t* quantidade) {
    return Proteger([&] {
        auto& saida = Saida(quantidade, "quantidade");
        saida = Usar<Objeto>(objeto)->cortados.size();
    });
}

int32_t tarvo_texto_cortado(tarvo_objeto objeto, size_t indice, size_t* pagina,
                            tarvo_memoria* texto) {
    return Proteger([&] {
        auto& numero = Saida(pagina, "pagina");
        auto& saida = Saida(texto, "texto");
        const auto uso = Usar<Objeto>(objeto);
        if (indice < 1 || indice > uso->cortados.size()) {
            Recusar("não há texto cortado de número " + std::to_string(indice));
        }
        const TextoCortado& cortado = uso->cortados[indice - 1];
        saida = Registrar<Memoria>(cortado.texto);
        numero = cortado.pagina;
    });
}
