#include "output/pdf/RenderizadorPDF.h"

#include "data/Formatos.h"
#include "document/Momento.h"
#include "output/pdf/file/ArvoreDePaginas.h"
#include "output/pdf/file/EscritorPDF.h"
#include "output/pdf/file/Metadados.h"
#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/file/Sumario.h"
#include "output/pdf/page/PaginaPDF.h"
#include "output/pdf/text/Face.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo {

namespace {

using namespace pdf;

class Renderizacao {
  public:
    Renderizacao(const DestinoPDF& destino, const OpcoesPDF& opcoes)
        : opcoes_(opcoes),
          escritor_(destino),
          recursos_(escritor_),
          arvore_(escritor_),
          objetoRecursos_(escritor_.Reservar()),
          momento_(Momento::Agora()) {
        const Data data = Data::DeCivil(momento_.civil);
        substituicoes_.data = FormatarData(data);
        substituicoes_.hora = FormatarHora(data);
    }

    void Acrescentar(const SecaoPDF& secao) {
        const Conteudo& conteudo = *secao.conteudo;
        PaginaPDF pagina(recursos_, conteudo, opcoes_.dpi);
        std::string mediaBox = "/MediaBox[0 0 ";
        AnexarOperandos(mediaBox, DeCm(conteudo.LarguraPapel()), DeCm(conteudo.AlturaPapel()));
        mediaBox.back() = ']';
        substituicoes_.paginas = std::to_string(conteudo.paginas.size());
        for (std::size_t i = 0; i < conteudo.paginas.size(); ++i) {
            substituicoes_.pagina = std::to_string(i + 1);
            const int objeto = escritor_.Reservar();
            if (i == 0) {
                marcadores_.push_back({secao.marcador, objeto});
            }
            AcrescentarPagina(objeto, mediaBox, pagina, conteudo.paginas[i]);
        }
    }

    ResultadoPDF Terminar(std::string_view titulo) {
        const Metadados metadados = EscreverMetadados(escritor_, titulo, momento_);
        std::string recursos = "<</Font<<" + recursos_.fontes.Embutir();
        recursos += ">>/XObject<<" + recursos_.figuras.Recursos() + recursos_.fileiras.Recursos() +
                    recursos_.paginas.Recursos() + ">>>>";
        escritor_.Objeto(objetoRecursos_, recursos);
        const int raiz = escritor_.Reservar();
        std::string catalogo = "<</Type/Catalog/Pages " + Referencia(arvore_.Terminar());
        catalogo += "/Metadata " + Referencia(metadados.xmp);
        catalogo += "/OutputIntents[" + Referencia(metadados.intencao) + "]";
        catalogo += "/Lang(pt-BR)/ViewerPreferences<</PrintScaling/None/DisplayDocTitle true>>";
        if (marcadores_.size() > 1) {
            catalogo += "/PageMode/UseOutlines/Outlines " +
                        Referencia(EscreverSumario(escritor_, marcadores_));
        }
        escritor_.Objeto(raiz, catalogo + ">>");
        escritor_.Terminar(raiz, metadados.informacao);
        return std::move(resultado_);
    }

  private:
    void AcrescentarPagina(int objeto, const std::string& mediaBox, PaginaPDF& pagina,
                           const Pagina& primitivas) {
        const int fluxo = escritor_.Reservar();
        escritor_.Fluxo(fluxo, "", pagina.Desenhar(primitivas, substituicoes_));
        ++resultado_.paginas;
        for (const auto& [onde, texto] : pagina.Cortes()) {
            resultado_.cortados.push_back({resultado_.paginas, onde, texto});
        }
        const int pai = arvore_.Acrescentar(objeto);
        escritor_.Objeto(objeto, "<</Type/Page/Parent " + Referencia(pai) + mediaBox +
                                     "/Resources " + Referencia(objetoRecursos_) + "/Contents " +
                                     Referencia(fluxo) + ">>");
    }

    OpcoesPDF opcoes_;
    EscritorPDF escritor_;
    Recursos recursos_;
    ArvoreDePaginas arvore_;
    int objetoRecursos_;
    Momento momento_;
    Substituicoes substituicoes_;
    std::vector<Marcador> marcadores_;
    ResultadoPDF resultado_;
};

SecaoPDF SecaoUnica(const Conteudo& conteudo) {
    return {.conteudo = &conteudo, .marcador = conteudo.titulo};
}

}  // namespace

void PrepararFontes() {
    Face::ObterHabituais();
}

ResultadoPDF RenderizarPDF(std::span<const SecaoPDF> secoes, const DestinoPDF& destino,
                           const OpcoesPDF& opcoes) {
    Renderizacao renderizacao(destino, opcoes);
    for (const auto& secao : secoes) {
        renderizacao.Acrescentar(secao);
    }
    return renderizacao.Terminar(secoes.empty() ? std::string_view()
                                                : secoes.front().conteudo->titulo);
}

ResultadoPDF RenderizarPDF(const Conteudo& conteudo, std::string& bytes, const OpcoesPDF& opcoes) {
    bytes.clear();
    const SecaoPDF secao = SecaoUnica(conteudo);
    return RenderizarPDF(
        {&secao, 1}, [&bytes](std::string_view b) { bytes += b; }, opcoes);
}

ResultadoPDF GravarPDF(const Conteudo& conteudo, const std::filesystem::path& arquivo,
                       const OpcoesPDF& opcoes) {
    const SecaoPDF secao = SecaoUnica(conteudo);
    return GravarPDF({&secao, 1}, arquivo, opcoes);
}

ResultadoPDF GravarPDF(std::span<const SecaoPDF> secoes, const std::filesystem::path& arquivo,
                       const OpcoesPDF& opcoes) {
    GravacaoSegura gravacao(arquivo);
    ResultadoPDF resultado = RenderizarPDF(
        secoes, [&gravacao](std::string_view bytes) { gravacao.Escrever(bytes); }, opcoes);
    gravacao.Confirmar();
    return resultado;
}

}  // namespace tarvo
