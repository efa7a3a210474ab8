#include "output/pdf/RenderizadorPDF.h"

#include "data/Formatos.h"
#include "output/pdf/file/EscritorPDF.h"
#include "output/pdf/file/Metadados.h"
#include "output/pdf/file/Momento.h"
#include "output/pdf/page/PaginaPDF.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo {

namespace {

using namespace pdf;

// The page tree: pages in leaves of a fixed number under one root, so that no node grows with the
// document beyond the list of leaves.
class ArvoreDePaginas {
  public:
    explicit ArvoreDePaginas(EscritorPDF& escritor)
        : escritor_(escritor), raiz_(escritor.Reservar()) {}

    // The node under which the next page, with that object number, stands.
    int Acrescentar(int pagina) {
        if (quantas_ % PaginasPorFolha == 0) {
            FecharFolha();
            folha_ = escritor_.Reservar();
            folhas_ += Referencia(folha_) + " ";
        }
        filhas_ += Referencia(pagina) + " ";
        ++quantas_;
        return folha_;
    }

    int Terminar() {
        FecharFolha();
        escritor_.Objeto(
            raiz_, "<</Type/Pages/Count " + std::to_string(quantas_) + "/Kids[" + folhas_ + "]>>");
        return raiz_;
    }

  private:
    static constexpr std::size_t PaginasPorFolha = 64;

    void FecharFolha() {
        if (filhas_.empty()) {
            return;
        }
        const auto nesta = (quantas_ - 1) % PaginasPorFolha + 1;
        escritor_.Objeto(folha_, "<</Type/Pages/Parent " + Referencia(raiz_) + "/Count " +
                                     std::to_string(nesta) + "/Kids[" + filhas_ + "]>>");
        filhas_.clear();
    }

    EscritorPDF& escritor_;
    int raiz_;
    int folha_ = 0;
    std::size_t quantas_ = 0;
    std::string filhas_;
    std::string folhas_;
};

struct Marcador {
    std::string titulo;
    int pagina = 0;  // object number
};

int EscreverSumario(EscritorPDF& escritor, const std::vector<Marcador>& marcadores) {
    const int raiz = escritor.Reservar();
    std::vector<int> itens(marcadores.size());
    for (auto& item : itens) {
        item = escritor.Reservar();
    }
    for (std::size_t i = 0; i < itens.size(); ++i) {
        std::string item = "<</Title" + TextoDeObjeto(marcadores[i].titulo) + "/Parent " +
                           Referencia(raiz) + "/Dest[" + Referencia(marcadores[i].pagina) +
                           "/XYZ null null null]";
        if (i > 0) {
            item += "/Prev " + Referencia(itens[i - 1]);
        }
        if (i + 1 < itens.size()) {
            item += "/Next " + Referencia(itens[i + 1]);
        }
        escritor.Objeto(itens[i], item + ">>");
    }
    escritor.Objeto(raiz, "<</Type/Outlines/First " + Referencia(itens.front()) + "/Last " +
                              Referencia(itens.back()) + "/Count " + std::to_string(itens.size()) +
                              ">>");
    return raiz;
}

class Renderizacao {
  public:
    explicit Renderizacao(const DestinoPDF& destino)
        : escritor_(destino),
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
        PaginaPDF pagina(recursos_, conteudo);
        std::string caixa = "/MediaBox[0 0 ";
        AnexarOperandos(caixa, DeCm(conteudo.LarguraPapel()), DeCm(conteudo.AlturaPapel()));
        caixa.back() = ']';
        substituicoes_.paginas = std::to_string(conteudo.paginas.size());
        for (std::size_t i = 0; i < conteudo.paginas.size(); ++i) {
            substituicoes_.pagina = std::to_string(i + 1);
            const int objeto = escritor_.Reservar();
            if (i == 0) {
                marcadores_.push_back({secao.marcador, objeto});
            }
            AcrescentarPagina(objeto, caixa, pagina, conteudo.paginas[i]);
        }
    }

    ResultadoPDF Terminar(std::string_view titulo) {
        const Metadados metadados = EscreverMetadados(escritor_, titulo, momento_);
        std::string recursos = "<</Font<<" + recursos_.fontes.Embutir();
        recursos += ">>/XObject<<" + recursos_.figuras.Recursos() + recursos_.linhas.Recursos() +
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
    void AcrescentarPagina(int objeto, const std::string& caixa, PaginaPDF& pagina,
                           const Pagina& primitivas) {
        auto& cortados = resultado_.cortados;
        const auto antes = cortados.size();
        const int fluxo = escritor_.Reservar();
        escritor_.Fluxo(fluxo, "", pagina.Desenhar(primitivas, substituicoes_, cortados));
        ++resultado_.paginas;
        for (std::size_t i = antes; i < cortados.size(); ++i) {
            cortados[i].pagina = resultado_.paginas;
        }
        const int pai = arvore_.Acrescentar(objeto);
        escritor_.Objeto(objeto, "<</Type/Page/Parent " + Referencia(pai) + caixa + "/Resources " +
                                     Referencia(objetoRecursos_) + "/Contents " +
                                     Referencia(fluxo) + ">>");
    }

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

ResultadoPDF RenderizarPDF(std::span<const SecaoPDF> secoes, const DestinoPDF& destino) {
    Renderizacao renderizacao(destino);
    for (const auto& secao : secoes) {
        renderizacao.Acrescentar(secao);
    }
    return renderizacao.Terminar(secoes.empty() ? std::string_view()
                                                : secoes.front().conteudo->titulo);
}

ResultadoPDF RenderizarPDF(const Conteudo& conteudo, std::string& bytes) {
    bytes.clear();
    const SecaoPDF secao = SecaoUnica(conteudo);
    return RenderizarPDF({&secao, 1}, [&bytes](std::string_view b) { bytes += b; });
}

ResultadoPDF GravarPDF(const Conteudo& conteudo, const std::filesystem::path& arquivo) {
    const SecaoPDF secao = SecaoUnica(conteudo);
    return GravarPDF({&secao, 1}, arquivo);
}

ResultadoPDF GravarPDF(std::span<const SecaoPDF> secoes, const std::filesystem::path& arquivo) {
    GravacaoSegura gravacao(arquivo);
    ResultadoPDF resultado =
        RenderizarPDF(secoes, [&gravacao](std::string_view bytes) { gravacao.Escrever(bytes); });
    gravacao.Confirmar();
    return resultado;
}

}  // namespace tarvo
