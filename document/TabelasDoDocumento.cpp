// SPDX-License-Identifier: MIT
#include "document/TabelasDoDocumento.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"
#include "document/GradeDaTabela.h"
#include "document/TextosDosElementos.h"

namespace tarvo {

namespace {

using Linha = TabelaDoDocumento::Linha;

// For each element its children, in their order. An element that names no earlier one as its parent
// is the root's.
std::vector<std::vector<std::uint32_t>> FilhosDe(const std::vector<Elemento>& elementos) {
    std::vector<std::vector<std::uint32_t>> filhos(elementos.size());
    for (std::uint32_t i = 1; i < elementos.size(); ++i) {
        const auto pai = elementos[i].pai;
        filhos[pai < i ? pai : Estrutura::Raiz].push_back(i);
    }
    return filhos;
}

// What stands outside of tables, as a row of labels and values.
struct DeFora {
    std::uint32_t elemento = 0;
    Linha linha;
};

bool EhTitulo(const DeFora& campo) {
    return campo.linha.funcao == FuncaoDaLinha::TituloDeGrupo;
}

class Percurso {
  public:
    explicit Percurso(const Conteudo& conteudo)
        : conteudo_(conteudo),
          elementos_(conteudo.estrutura.elementos),
          filhos_(FilhosDe(elementos_)),
          textos_(TextosDosElementos(conteudo)),
          nome_(conteudo.tituloResumido) {}

    std::vector<TabelaDoDocumento> Tabelas() && {
        VisitarFilhos(Estrutura::Raiz);
        FecharCampos();
        return std::move(tabelas_);
    }

  private:
    void VisitarFilhos(std::uint32_t elemento) {
        for (const auto filho : filhos_[elemento]) {
            Visitar(filho);
        }
    }

    void Visitar(std::uint32_t e) {
        switch (elementos_[e].tipo) {
            case TipoElemento::Tabela:
                VisitarTabela(e);
                break;
            case TipoElemento::Campo:
                AcrescentarCampo(e, LinhaDoCampo(LerCelula(e)));
                break;
            case TipoElemento::Titulo:
            case TipoElemento::Secao:
                AcrescentarCampo(e, {FuncaoDaLinha::TituloDeGrupo, {{textos_[e]}, {}}});
                temTitulo_ = temTitulo_ || elementos_[e].tipo == TipoElemento::Titulo;
                VisitarFilhos(e);
                break;
            default:
                AcrescentarCampo(e, {FuncaoDaLinha::Dados, {{}, {textos_[e]}}});
                VisitarFilhos(e);
                break;
        }
    }

    // The text of an element with all that it holds.
    std::string TextoInteiro(std::uint32_t e) const {
        std::string texto = textos_[e];
        for (const auto filho : filhos_[e]) {
            const std::string outro = TextoInteiro(filho);
            texto.append(texto.empty() || outro.empty() ? "" : " ").append(outro);
        }
        return texto;
    }

    // --- labels, values and what else stands outside of tables

    // What a box says: its own text, or that of a label, and a value.
    CelulaDaPagina LerCelula(std::uint32_t e) const {
        CelulaDaPagina celula{.elemento = elementos_[e], .texto = textos_[e], .valor = ""};
        for (const auto filho : filhos_[e]) {
            const bool ehRotulo = elementos_[filho].tipo == TipoElemento::Rotulo;
            celula.rotulada = celula.rotulada || ehRotulo;
            auto& lado = ehRotulo ? celula.texto : celula.valor;
            const std::string texto = TextoInteiro(filho);
            lado.append(lado.empty() || texto.empty() ? "" : " ").append(texto);
            if (elementos_[filho].tipo == TipoElemento::ValorDeCampo) {
                celula.elemento.natureza = elementos_[filho].natureza;
            }
        }
        return celula;
    }

    static Linha LinhaDoCampo(const CelulaDaPagina& campo) {
        return {FuncaoDaLinha::Dados, {{campo.texto}, {campo.valor, campo.elemento.natureza}}};
    }

    void AcrescentarCampo(std::uint32_t e, Linha linha) {
        if (!linha.celulas[0].texto.empty() || !linha.celulas[1].texto.empty()) {
            campos_.push_back({e, std::move(linha)});
        }
    }

    // What the run of labels and values is called: by its first section, else by the document's
    // title, else by its first line.
    [[nodiscard]] std::string NomeDosCampos() const {
        const auto procurar = [this](TipoElemento tipo) {
            return std::ranges::find(campos_, tipo, [this](const DeFora& campo) {
                return elementos_[campo.elemento].tipo;
            });
        };
        auto nome = procurar(TipoElemento::Secao);
        nome = nome != campos_.end() ? nome : procurar(TipoElemento::Titulo);
        const auto& celulas = (nome != campos_.end() ? *nome : campos_.front()).linha.celulas;
        const bool ambos = !celulas[0].texto.empty() && !celulas[1].texto.empty();
        return celulas[0].texto + (ambos ? " " : "") + celulas[1].texto;
    }

    void FecharCampos() {
        if (campos_.empty()) {
            return;
        }
        TabelaDoDocumento tabela;
        tabela.nome = NomeDosCampos();
        tabela.titulos = {"Campo", "Valor"};
        nome_ = temTitulo_ ? conteudo_.tituloResumido : tabela.nome;
        for (auto& [elemento, linha] : campos_) {
            tabela.elementos.push_back(elemento);
            tabela.linhas.push_back(std::move(linha));
        }
        tabelas_.push_back(std::move(tabela));
        campos_.clear();
        temTitulo_ = false;
    }

    // --- tables

    void VisitarTabela(std::uint32_t e) {
        const auto titulos = TomarTitulosDeCima();
        FecharCampos();
        if (!titulos.empty()) {
            nome_ = titulos.back().linha.celulas[0].texto;
        }
        std::vector<LinhaDaPagina> linhas;
        linhas.reserve(titulos.size() + filhos_[e].size());
        for (const auto& titulo : titulos) {
            linhas.push_back(
                {FuncaoDaLinha::TituloDeGrupo, {{{}, titulo.linha.celulas[0].texto, "", false}}});
        }
        for (const auto filho : filhos_[e]) {
            auto& linha = linhas.emplace_back();
            linha.funcao = elementos_[filho].funcao;
            for (const auto celula : filhos_[filho]) {
                linha.celulas.push_back(LerCelula(celula));
            }
        }
        auto tabela = DisporEmGrade(linhas);
        tabela.nome = nome_;
        for (const auto& titulo : titulos) {
            tabela.elementos.push_back(titulo.elemento);
        }
        tabela.elementos.push_back(e);
        tabelas_.push_back(std::move(tabela));
    }

    // Takes away the headings at the end of the labels and values, which are the next table's.
    std::vector<DeFora> TomarTitulosDeCima() {
        const auto inicio = std::find_if_not(campos_.rbegin(), campos_.rend(), EhTitulo).base();
        std::vector<DeFora> titulos(inicio, campos_.end());
        campos_.erase(inicio, campos_.end());
        return titulos;
    }

    const Conteudo& conteudo_;
    const std::vector<Elemento>& elementos_;
    std::vector<std::vector<std::uint32_t>> filhos_;
    std::vector<std::string> textos_;

    std::vector<TabelaDoDocumento> tabelas_;
    std::vector<DeFora> campos_;  // of the run that is open
    bool temTitulo_ = false;      // the run has the document's title
    std::string nome_;            // of a table without a heading of its own
};

template <class Ler>
auto OuNada(Ler ler) -> std::optional<decltype(ler())> {
    try {
        return ler();
    } catch (const Erro&) {
        return std::nullopt;
    }
}

}  // namespace

std::optional<Moeda> TabelaDoDocumento::Celula::Quantia() const {
    if (natureza != Natureza::Quantia || texto.empty()) {
        return std::nullopt;
    }
    const auto quantia = OuNada([this] { return Moeda::DeTexto(texto); });
    return quantia && FormatarValor(*quantia) == texto ? quantia : std::nullopt;
}

std::optional<Data> TabelaDoDocumento::Celula::Dia() const {
    if (natureza != Natureza::Data || texto.empty()) {
        return std::nullopt;
    }
    const auto dia = OuNada([this] { return tarvo::Data::DeTexto(texto); });
    return dia && FormatarData(*dia) == texto ? dia : std::nullopt;
}

std::optional<double> TabelaDoDocumento::Celula::Numero() const {
    constexpr std::int64_t Maior = 1'000'000'000'000'000;  // hundredths
    static const auto Primeiro = tarvo::Data::DeCivil({.ano = 1900, .mes = 3, .dia = 1});
    if (const auto quantia = Quantia()) {
        const std::int64_t centesimos = quantia->DecimosMilesimos() / (Moeda::Escala / 100);
        return std::abs(centesimos) < Maior ? std::optional(static_cast<double>(centesimos) / 100)
                                            : std::nullopt;
    }
    const auto dia = Dia();
    return dia >= Primeiro ? std::optional(dia->Serial()) : std::nullopt;
}

bool TabelaDoDocumento::TemTitulos() const {
    return !std::ranges::all_of(titulos, &std::string::empty);
}

std::vector<TabelaDoDocumento> TabelasDoDocumento(const Conteudo& conteudo) {
    return Percurso(conteudo).Tabelas();
}

}  // namespace tarvo
