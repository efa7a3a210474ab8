// SPDX-License-Identifier: MIT
#include "output/pdf/structure/ArvoreDeEstrutura.h"

#include <algorithm>
#include <utility>

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

namespace {

void AnexarReferencia(std::string& saida, int objeto) {
    AnexarInteiro(saida, objeto);
    saida += " 0 R";
}

}  // namespace

void ArvoreDeEstrutura::IniciarDocumento(const Conteudo& conteudo) {
    conteudo_ = &conteudo;
    colocados_ = Colocar(conteudo.estrutura);
    nos_.assign(colocados_.size(), {});
    std::size_t partes = 0;  // at most
    for (const auto& donos : conteudo.estrutura.donos) {
        partes += donos.size() - static_cast<std::size_t>(std::ranges::count(donos, Nada));
    }
    partes_.reserve(partes);
    temTitulo_ = false;
}

std::size_t ArvoreDeEstrutura::AcrescentarPagina(int objeto, const ConteudoMarcado& marcado) {
    const auto pagina = static_cast<std::uint32_t>(paginas_.size());
    paginas_.push_back({objeto, partes_.size()});
    for (const std::uint32_t dono : marcado.donos) {
        partes_.push_back({.dono = dono});
    }
    for (const auto& retrato : marcado.retratos) {
        retratos_.try_emplace(retrato.dono, retrato);
    }
    return paginasAnteriores_ + pagina;
}

void ArvoreDeEstrutura::EncerrarDocumento() {
    Ligar();
    No& raiz = nos_.front();
    raiz.numero = sozinho_ ? documento_ : escritor_.Reservar();
    if (!sozinho_) {
        AnexarReferencia(filhosDaRaiz_, raiz.numero);
        filhosDaRaiz_ += ' ';
    }
    for (std::uint32_t i = 0; i < nos_.size(); ++i) {
        if (nos_[i].numero != 0) {
            Escrever(i);
        }
    }
    EscreverPais();
    paginasAnteriores_ += paginas_.size();
    // Its memory is given back before the file's ending takes its own.
    colocados_ = std::vector<Colocacao>();
    nos_ = std::vector<No>();
    paginas_ = std::vector<PaginaMarcada>();
    ultima_ = 0;
    partes_ = std::vector<Parte>();
    retratos_.clear();
    vaos_.clear();
}

int ArvoreDeEstrutura::Terminar() {
    if (!sozinho_) {
        escritor_.Objeto(documento_,
                         "<</S/Document/P " + Referencia(raiz_) + "/K[" + filhosDaRaiz_ + "]>>");
    }
    const int arvore = escritor_.Reservar();
    escritor_.Objeto(arvore, "<</Nums[" + pais_ + "]>>");
    escritor_.Objeto(raiz_, "<</Type/StructTreeRoot/K " + Referencia(documento_) + "/ParentTree " +
                                Referencia(arvore) + "/ParentTreeNextKey " +
                                std::to_string(paginasAnteriores_) + "/ClassMap<<" + atributos_ +
                                ">>>>");
    return raiz_;
}

// Finds what is written: elements with content and those above them.
void ArvoreDeEstrutura::Ligar() {
    for (auto i = static_cast<std::uint32_t>(partes_.size()); i-- > 0;) {
        auto& conteudo = nos_[partes_[i].dono].conteudo;
        partes_[i].seguinte = std::exchange(conteudo, i);
    }
    for (auto i = static_cast<std::uint32_t>(nos_.size()); i-- > 1;) {
        No& no = nos_[i];
        const auto& [etiqueta, pai] = colocados_[i];
        // An empty cell is a cell all the same, or those beside it would move.
        if (no.conteudo != Nada || no.filho != Nada || EhCelula(etiqueta)) {
            no.irmao = std::exchange(nos_[pai].filho, i);
            no.numero = -1;
        }
    }
    Numerar();
}

// Elements of one kind in a row, as their objects travel: then the file's table of places is
// regular, too.
void ArvoreDeEstrutura::Numerar() {
    std::array<int, Etiquetas> proximos{};
    for (std::size_t i = 0; i < nos_.size(); ++i) {
        proximos[Tipo(i)] += nos_[i].numero != 0 ? 1 : 0;
    }
    for (int& proximo : proximos) {
        proximo = escritor_.Reservar(proximo);
    }
    for (std::size_t i = 0; i < nos_.size(); ++i) {
        if (nos_[i].numero != 0) {
            nos_[i].numero = proximos[Tipo(i)]++;
        }
    }
}

void ArvoreDeEstrutura::Escrever(std::uint32_t i) {
    const No& no = nos_[i];
    Etiqueta etiqueta = colocados_[i].etiqueta;
    if (etiqueta == Etiqueta::H1) {
        temTitulo_ = true;
    } else if (etiqueta == Etiqueta::H2 && !temTitulo_) {
        etiqueta = Etiqueta::H1;  // no level is skipped
    }
    if (etiqueta == Etiqueta::Table) {
        IgualarTabela(i);
    } else if (etiqueta == Etiqueta::Figure && !retratos_.contains(i)) {
        etiqueta = Etiqueta::P;
    }
    // What neighbours share stands first, and next to each other what tells them apart.
    corpo_ = "<</P ";
    AnexarReferencia(corpo_, NumeroDoPai(i));
    if (no.conteudo != Nada) {
        corpo_ += "/Pg ";
        AnexarReferencia(corpo_, paginas_[PaginaDe(no.conteudo)].objeto);
    }
    corpo_ += "/S/";
    corpo_ += i == Estrutura::Raiz && !sozinho_ ? "Part" : NomeDe(etiqueta);
    AnexarAtributos(i, etiqueta);
    AnexarFilhos(i);
    corpo_ += ">>";
    escritor_.ObjetoEmFileira(no.numero, corpo_);
}

int ArvoreDeEstrutura::NumeroDoPai(std::uint32_t i) const {
    if (i == Estrutura::Raiz) {
        return sozinho_ ? raiz_ : documento_;
    }
    const auto& [etiqueta, pai] = colocados_[i];
    return etiqueta == Etiqueta::LI ? static_cast<int>(nos_[i].irmao) : nos_[pai].numero;
}

void ArvoreDeEstrutura::IgualarTabela(std::uint32_t tabela) {
    std::vector<Fileira> fileiras;
    std::vector<std::uint32_t> celulas;
    for (auto linha = nos_[tabela].filho; linha != Nada; linha = nos_[linha].irmao) {
        auto& fileira = fileiras.emplace_back();
        for (auto celula = nos_[linha].filho; celula != Nada; celula = nos_[celula].irmao) {
            const Elemento& elemento = conteudo_->estrutura.elementos[celula];
            fileira.push_back({elemento.colunas, elemento.linhas});
            celulas.push_back(celula);
        }
    }
    const auto recordadas = fileiras;
    Igualar(fileiras);
    auto celula = celulas.begin();
    for (std::size_t i = 0; i < fileiras.size(); ++i) {
        for (std::size_t n = 0; n < fileiras[i].size(); ++n, ++celula) {
            if (fileiras[i][n] != recordadas[i][n]) {
                vaos_[*celula] = fileiras[i][n];
            }
        }
    }
}

void ArvoreDeEstrutura::AnexarFilhos(std::uint32_t i) {
    const No& no = nos_[i];
    filhos_.clear();
    int quantos = 0;
    const auto acrescentar = [&](int objeto) {
        AnexarReferencia(filhos_, objeto);
        filhos_ += ' ';
        ++quantos;
    };
    for (auto p = no.conteudo; p != Nada; p = partes_[p].seguinte) {
        AnexarParte(no.conteudo, p);
        ++quantos;
    }
    for (auto f = no.filho; f != Nada;) {
        if (colocados_[f].etiqueta == Etiqueta::LI) {
            acrescentar(EscreverLista(f, no.numero));
        } else {
            acrescentar(nos_[f].numero);
            f = nos_[f].irmao;
        }
    }
    if (quantos == 0) {
        return;
    }
    filhos_.pop_back();
    corpo_ += quantos == 1 ? "/K " : "/K[";
    corpo_ += filhos_;
    corpo_ += quantos == 1 ? "" : "]";
}

// Mostly the one that was asked for before.
std::size_t ArvoreDeEstrutura::PaginaDe(std::uint32_t parte) {
    const auto contem = [&](std::size_t pagina) {
        return paginas_[pagina].primeira <= parte &&
               (pagina + 1 == paginas_.size() || parte < paginas_[pagina + 1].primeira);
    };
    if (!contem(ultima_)) {
        const auto depois = std::ranges::upper_bound(paginas_, parte, {}, &PaginaMarcada::primeira);
        ultima_ = static_cast<std::size_t>(depois - paginas_.begin()) - 1;
    }
    return ultima_;
}

// primeira: the element's first part, whose page the element names.
void ArvoreDeEstrutura::AnexarParte(std::uint32_t primeira, std::uint32_t parte) {
    const std::size_t daPrimeira = PaginaDe(primeira);
    const std::size_t pagina = PaginaDe(parte);
    const auto numero = static_cast<std::int64_t>(parte - paginas_[pagina].primeira);
    if (pagina == daPrimeira) {
        AnexarInteiro(filhos_, numero);
    } else {
        filhos_ += "<</Type/MCR/Pg ";
        AnexarReferencia(filhos_, paginas_[pagina].objeto);
        filhos_ += "/MCID ";
        AnexarInteiro(filhos_, numero);
        filhos_ += ">>";
    }
    filhos_ += ' ';
}

// Fields one after the other are one list. item moves behind the last of them.
int ArvoreDeEstrutura::EscreverLista(std::uint32_t& item, int pai) {
    const int numero = escritor_.Reservar();
    std::string lista = "<</S/L/P " + Referencia(pai) + "/K[";
    while (item != Nada && colocados_[item].etiqueta == Etiqueta::LI) {
        No& no = nos_[item];
        item = std::exchange(no.irmao, static_cast<std::uint32_t>(numero));
        AnexarReferencia(lista, no.numero);
        lista += ' ';
    }
    lista.back() = ']';
    escritor_.ObjetoEmFileira(numero, lista + ">>");
    return numero;
}

void ArvoreDeEstrutura::AnexarAtributos(std::uint32_t i, Etiqueta etiqueta) {
    if (EhCelula(etiqueta)) {
        if (const auto& classe = Classe(etiqueta, i); !classe.empty()) {
            corpo_.append("/C/").append(classe);
        }
    } else if (etiqueta == Etiqueta::Figure) {
        const auto& retrato = retratos_.at(i);
        corpo_ += "/Alt";
        AnexarTexto(corpo_, retrato.descricao);
        corpo_ += "/A<</O/Layout/Placement/Block/BBox[";
        for (const Centesimos lado : retrato.caixa) {
            AnexarOperandos(corpo_, lado);
        }
        corpo_.back() = ']';
        corpo_ += ">>";
    }
}

// The name of what the cell says of itself; empty for a plain one.
const std::string& ArvoreDeEstrutura::Classe(Etiqueta etiqueta, std::uint32_t i) {
    const Elemento& celula = conteudo_->estrutura.elementos[i];
    const auto corrigido = vaos_.find(i);
    const auto [colunas, linhas] =
        corrigido != vaos_.end() ? corrigido->second : Vao{celula.colunas, celula.linhas};
    const bool titulo = etiqueta == Etiqueta::TH;
    const bool daLinha = titulo && celula.escopo == Escopo::Linha;
    const auto [achada, nova] = classes_.try_emplace({daLinha  ? 2
                                                      : titulo ? 1
                                                               : 0,
                                                      colunas, linhas});
    std::string& nome = achada->second;
    if (nova && (titulo || colunas > 1 || linhas > 1)) {
        nome = "C" + std::to_string(classes_.size());
        atributos_ += "/" + nome + "<</O/Table";
        if (titulo) {
            atributos_ += daLinha ? "/Scope/Row" : "/Scope/Column";
        }
        if (colunas > 1) {
            atributos_ += "/ColSpan " + std::to_string(colunas);
        }
        if (linhas > 1) {
            atributos_ += "/RowSpan " + std::to_string(linhas);
        }
        atributos_ += ">>";
    }
    return nome;
}

// For each page the elements of its parts.
void ArvoreDeEstrutura::EscreverPais() {
    for (std::size_t p = 0; p < paginas_.size(); ++p) {
        const auto fim = p + 1 < paginas_.size() ? paginas_[p + 1].primeira : partes_.size();
        corpo_ = "[";
        for (auto i = paginas_[p].primeira; i < fim; ++i) {
            AnexarReferencia(corpo_, nos_[partes_[i].dono].numero);
            corpo_ += ' ';
        }
        corpo_ += ']';
        const int objeto = escritor_.Reservar();
        escritor_.ObjetoEmFileira(objeto, corpo_);
        AnexarInteiro(pais_, static_cast<std::int64_t>(paginasAnteriores_ + p));
        pais_ += ' ';
        AnexarReferencia(pais_, objeto);
        pais_ += ' ';
    }
}

}  // namespace tarvo::pdf
