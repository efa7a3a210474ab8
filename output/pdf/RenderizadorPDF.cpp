// SPDX-License-Identifier: MIT
#include "output/pdf/RenderizadorPDF.h"

#include <algorithm>
#include <optional>

#include "data/Formatos.h"
#include "document/Momento.h"
#include "output/pdf/PropriedadesDoArquivo.h"
#include "output/pdf/file/ArvoreDePaginas.h"
#include "output/pdf/file/EscritorPDF.h"
#include "output/pdf/file/Metadados.h"
#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/file/Sumario.h"
#include "output/pdf/page/PaginaPDF.h"
#include "output/pdf/structure/ArvoreDeEstrutura.h"
#include "output/pdf/text/Face.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo {

namespace {

using namespace pdf;

class Renderizacao {
  public:
    Renderizacao(std::span<const SecaoPDF> secoes, const DestinoPDF& destino,
                 const OpcoesPDF& opcoes)
        : opcoes_(opcoes),
          escritor_(destino),
          secoes_(secoes),
          recursos_(escritor_),
          arvore_(escritor_),
          objetoRecursos_(escritor_.Reservar()),
          momento_(Momento::Agora()) {
        const Data data = Data::DeCivil(momento_.civil);
        substituicoes_.data = FormatarData(data);
        substituicoes_.hora = FormatarHora(data);
        if (!opcoes.semEstrutura && std::all_of(secoes.begin(), secoes.end(), [](const auto& s) {
                return TemEstrutura(*s.conteudo);
            })) {
            estrutura_.emplace(escritor_, secoes.size() == 1);
        }
    }

    ResultadoPDF Renderizar() {
        for (const auto& secao : secoes_) {
            Acrescentar(secao);
        }
        Propriedades propriedades = PropriedadesDe(secoes_);
        propriedades.comEstrutura = estrutura_.has_value();
        const Metadados metadados = EscreverMetadados(escritor_, propriedades, momento_);
        std::string recursos = "<</Font<<" + recursos_.fontes.Embutir();
        recursos += ">>/XObject<<" + recursos_.figuras.Recursos() + recursos_.fileiras.Recursos() +
                    recursos_.paginas.Recursos() + ">>>>";
        escritor_.Objeto(objetoRecursos_, recursos);
        const int raiz = escritor_.Reservar();
        std::string catalogo = "<</Type/Catalog/Pages " + Referencia(arvore_.Terminar());
        catalogo += "/Metadata " + Referencia(metadados.xmp);
        catalogo += "/OutputIntents[" + Referencia(metadados.intencao) + "]";
        catalogo += "/Lang(pt-BR)/ViewerPreferences<</PrintScaling/None/DisplayDocTitle true>>";
        if (estrutura_.has_value()) {
            catalogo +=
                "/MarkInfo<</Marked true>>/StructTreeRoot " + Referencia(estrutura_->Terminar());
        }
        if (secoes_.size() > 1) {
            catalogo += "/PageMode/UseOutlines/PageLabels<</Nums[" + rotulos_ + "]>>";
        }
        if (marcadores_.size() > 1) {
            catalogo += "/Outlines " + Referencia(EscreverSumario(escritor_, marcadores_));
        }
        escritor_.Objeto(raiz, catalogo + ">>");
        escritor_.Terminar(raiz, metadados.informacao);
        return std::move(resultado_);
    }

  private:
    void Acrescentar(const SecaoPDF& secao) {
        const Conteudo& conteudo = *secao.conteudo;
        rotulos_ += std::to_string(resultado_.paginas) + "<</S/D>>";
        if (estrutura_.has_value()) {
            estrutura_->IniciarDocumento(conteudo);
        }
        PaginaPDF pagina(recursos_, conteudo,
                         estrutura_.has_value() ? &estrutura_->Colocados() : nullptr, opcoes_.dpi);
        std::string formato = "/MediaBox[0 0 ";
        AnexarOperandos(formato, DeCm(conteudo.LarguraPapel()), DeCm(conteudo.AlturaPapel()));
        formato.back() = ']';
        formato += "/Resources " + Referencia(objetoRecursos_);
        substituicoes_.paginas = std::to_string(conteudo.paginas.size());
        for (std::size_t i = 0; i < conteudo.paginas.size(); ++i) {
            substituicoes_.pagina = std::to_string(i + 1);
            const int objeto = escritor_.Reservar();
            if (i == 0 && secoes_.size() > 1) {
                marcadores_.push_back(
                    {secao.marcador, objeto, DeCm(conteudo.AlturaPapel()), false});
            }
            MarcarSecoes(conteudo, i, objeto);
            AcrescentarPagina(objeto, formato, pagina, conteudo, i);
        }
        if (estrutura_.has_value()) {
            estrutura_->EncerrarDocumento();
        }
    }

    // The outline's entries for the headings on a page.
    void MarcarSecoes(const Conteudo& conteudo, std::size_t pagina, int objeto) {
        const Papel papel(conteudo);
        const auto& [elementos, donos] = conteudo.estrutura;
        std::uint32_t ultima = Estrutura::Decoracao;
        for (std::size_t i = 0; pagina < donos.size() && i < donos[pagina].size(); ++i) {
            const auto dono = donos[pagina][i];
            if (dono >= elementos.size() || elementos[dono].tipo != TipoElemento::Secao) {
                continue;
            }
            const auto* const texto = std::get_if<Texto>(&conteudo.paginas[pagina].at(i));
            if (texto == nullptr || texto->texto.empty()) {
                continue;
            }
            if (dono == ultima) {
                marcadores_.back().titulo += " " + texto->texto;
            } else {
                marcadores_.push_back(
                    {texto->texto, objeto, papel.LugarDe(*texto).topo, secoes_.size() > 1});
                ultima = dono;
            }
        }
    }

    void AcrescentarPagina(int objeto, const std::string& formato, PaginaPDF& pagina,
                           const Conteudo& conteudo, std::size_t i) {
        const auto& donos = conteudo.estrutura.donos;
        const int fluxo = escritor_.Reservar();
        const auto marcas = estrutura_.has_value() ? std::span<const std::uint32_t>(donos[i])
                                                   : std::span<const std::uint32_t>();
        // A short file as small as can be, a long one soon.
        constexpr std::size_t PoucasPaginas = 50;
        escritor_.Fluxo(fluxo, "", pagina.Desenhar(conteudo.paginas[i], marcas, substituicoes_),
                        resultado_.paginas < PoucasPaginas ? Empenho::Tamanho : Empenho::Tempo);
        ++resultado_.paginas;
        for (const auto& [onde, texto] : pagina.Cortes()) {
            resultado_.cortados.push_back({resultado_.paginas, onde, texto});
        }
        std::string corpo = "<</Type/Page/Parent " + Referencia(arvore_.Acrescentar(objeto)) +
                            formato + "/Contents " + Referencia(fluxo);
        if (estrutura_.has_value()) {
            corpo += "/Tabs/S/StructParents " +
                     std::to_string(estrutura_->AcrescentarPagina(objeto, pagina.Marcado()));
        }
        escritor_.Objeto(objeto, corpo + ">>");
    }

    OpcoesPDF opcoes_;
    EscritorPDF escritor_;
    std::span<const SecaoPDF> secoes_;
    Recursos recursos_;
    ArvoreDePaginas arvore_;
    int objetoRecursos_;
    std::optional<ArvoreDeEstrutura> estrutura_;
    Momento momento_;
    Substituicoes substituicoes_;
    std::vector<Marcador> marcadores_;
    std::string rotulos_;  // of the pages, as they are printed
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
    return Renderizacao(secoes, destino, opcoes).Renderizar();
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
