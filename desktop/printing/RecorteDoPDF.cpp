// SPDX-License-Identifier: MIT
#include "desktop/printing/RecorteDoPDF.h"

#include <map>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFNumberTreeObjectHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <set>

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

using Objeto = QPDFObjectHandle;

// More go to paper only, and their elements would take a gigabyte and half a minute.
constexpr std::size_t MaisComEtiquetas = 500;

std::vector<Objeto> Lista(Objeto filhos) {
    return filhos.isNull()    ? std::vector<Objeto>()
           : filhos.isArray() ? filhos.getArrayAsVector()
                              : std::vector<Objeto>{filhos};
}

// The structure tree, reduced to what stands on some pages. Only the elements that stay are looked
// at, from the pages upwards: of a long file they are few.
class Etiquetas {
  public:
    Etiquetas(QPDF& pdf, const std::set<QPDFObjGen>& paginas)
        : pdf_(pdf), raiz_(pdf.getRoot().getKey("/StructTreeRoot")), paginas_(paginas) {}

    void Reduzir() {
        if (!raiz_.isDictionary()) {
            return;
        }
        ReduzirPais();
        for (auto& [identidade, elemento] : mantidos_) {
            if (!temTitulo_ && elemento.getKey("/S").isNameAndEquals("/H2")) {
                elemento.replaceKey("/S", Objeto::newName("/H1"));  // no level is skipped
            }
            ReduzirFilhos(elemento);
        }
    }

  private:
    // For each page the elements of its parts, which stay.
    void ReduzirPais() {
        Objeto arvore = raiz_.getKey("/ParentTree");
        QPDFNumberTreeObjectHelper antes(arvore, pdf_);
        Objeto depois = Objeto::newArray();
        for (const auto& identidade : paginas_) {
            const auto chave = pdf_.getObject(identidade).getKey("/StructParents");
            Objeto donos;
            if (antes.findObject(Objeto(chave).getIntValue(), donos)) {
                for (const auto& dono : donos.getArrayAsVector()) {
                    Manter(dono);
                }
                depois.appendItem(chave);
                depois.appendItem(donos);
            }
        }
        arvore.replaceKey("/Nums", depois);
    }

    // The element and those above it; of a row all cells, or those beside an empty one would move.
    void Manter(Objeto elemento) {
        while (elemento.getObjGen() != raiz_.getObjGen() &&
               mantidos_.emplace(elemento.getObjGen(), elemento).second) {
            const auto tipo = elemento.getKey("/S").getName();
            temTitulo_ = temTitulo_ || tipo == "/H1";
            if (tipo == "/TR") {
                for (const auto& celula : Lista(elemento.getKey("/K"))) {
                    mantidos_.emplace(celula.getObjGen(), celula);
                }
            }
            elemento = elemento.getKey("/P");
        }
    }

    void ReduzirFilhos(Objeto& elemento) {
        Objeto pagina = elemento.getKey("/Pg");
        Objeto filhos = Objeto::newArray();
        for (Objeto filho : Lista(elemento.getKey("/K"))) {
            const bool fica = filho.isIndirect() ? mantidos_.contains(filho.getObjGen())
                              : filho.isInteger()
                                  ? paginas_.contains(pagina.getObjGen())
                                  : paginas_.contains(filho.getKey("/Pg").getObjGen());
            if (fica) {
                filhos.appendItem(filho);
            }
        }
        elemento.replaceKey("/K", filhos);
    }

    QPDF& pdf_;
    Objeto raiz_;
    const std::set<QPDFObjGen>& paginas_;
    std::map<QPDFObjGen, Objeto> mantidos_;
    bool temTitulo_ = false;
};

// The outline, which has one level.
void ReduzirSumario(Objeto catalogo, const std::set<QPDFObjGen>& paginas) {
    Objeto sumario = catalogo.getKey("/Outlines");
    if (!sumario.isDictionary()) {
        return;
    }
    std::vector<Objeto> itens;
    for (Objeto item = sumario.getKey("/First"); item.isDictionary(); item = item.getKey("/Next")) {
        if (paginas.contains(item.getKey("/Dest").getArrayItem(0).getObjGen())) {
            itens.push_back(item);
        }
    }
    if (itens.empty()) {
        catalogo.removeKey("/Outlines");
        return;
    }
    for (std::size_t i = 0; i < itens.size(); ++i) {
        itens[i].replaceKey("/Prev", i > 0 ? itens[i - 1] : Objeto::newNull());
        itens[i].replaceKey("/Next", i + 1 < itens.size() ? itens[i + 1] : Objeto::newNull());
    }
    sumario.replaceKey("/First", itens.front());
    sumario.replaceKey("/Last", itens.back());
    sumario.replaceKey("/Count", Objeto::newInteger(std::ssize(itens)));
}

// Tells the elements of a page that their parts stand on a copy of it, too.
void EtiquetarCopia(QPDF& pdf, Objeto copia) {
    Objeto raiz = pdf.getRoot().getKey("/StructTreeRoot");
    Objeto donos;
    if (!raiz.isDictionary()) {
        return;
    }
    QPDFNumberTreeObjectHelper arvore(raiz.getKey("/ParentTree"), pdf);
    if (!arvore.findObject(copia.getKey("/StructParents").getIntValue(), donos)) {
        return;
    }
    for (int i = 0; i < donos.getArrayNItems(); ++i) {
        Objeto parte = Objeto::parse("<</Type/MCR/MCID " + std::to_string(i) + ">>");
        parte.replaceKey("/Pg", copia);
        donos.getArrayItem(i).getKey("/K").appendItem(parte);
    }
    const auto chave = raiz.getKey("/ParentTreeNextKey").getIntValue();
    arvore.insert(chave, donos);
    copia.replaceKey("/StructParents", Objeto::newInteger(chave));
    raiz.replaceKey("/ParentTreeNextKey", Objeto::newInteger(chave + 1));
}

void Copiar(QPDF& inteiro, QPDF& escolhido, const std::vector<Objeto>& paginas) {
    QPDFPageDocumentHelper destino(escolhido);
    for (const auto& pagina : paginas) {
        destino.addPage(pagina, false);
    }
    Objeto catalogo = escolhido.copyForeignObject(inteiro.getRoot());
    for (const auto& chave : catalogo.getKeys()) {
        if (chave != "/Pages") {
            escolhido.getRoot().replaceKey(chave, catalogo.getKey(chave));
        }
    }
    escolhido.getTrailer().replaceKey(
        "/Info", escolhido.copyForeignObject(inteiro.getTrailer().getKey("/Info")));
    std::set<QPDFObjGen> vistas;
    const auto copiadas = escolhido.getAllPages();
    for (std::size_t i = 0; i < copiadas.size(); ++i) {
        if (!vistas.insert(paginas[i].getObjGen()).second) {
            EtiquetarCopia(escolhido, copiadas[i]);
        }
    }
}

}  // namespace

std::string EscolherPaginas(std::string_view pdf, const std::vector<int>& paginas) {
    try {
        QPDF inteiro;
        inteiro.processMemoryFile("", pdf.data(), pdf.size());
        std::vector<Objeto> escolhidas;
        std::set<QPDFObjGen> ficam;
        for (const int pagina : paginas) {
            escolhidas.push_back(inteiro.getAllPages().at(static_cast<std::size_t>(pagina - 1)));
            ficam.insert(escolhidas.back().getObjGen());
        }
        Objeto catalogo = inteiro.getRoot();
        if (paginas.size() <= MaisComEtiquetas) {
            Etiquetas(inteiro, ficam).Reduzir();
        } else {
            // What the file says of itself with its metadata would not be true any more.
            for (const char* chave : {"/StructTreeRoot", "/MarkInfo", "/Metadata"}) {
                catalogo.removeKey(chave);
            }
        }
        ReduzirSumario(catalogo, ficam);
        QPDF escolhido;
        escolhido.emptyPDF();
        Copiar(inteiro, escolhido, escolhidas);
        QPDFWriter escrita(escolhido);
        escrita.setMinimumPDFVersion(inteiro.getPDFVersion());
        escrita.setObjectStreamMode(qpdf_o_generate);
        escrita.setOutputMemory();
        escrita.write();
        const auto bytes = escrita.getBufferSharedPointer();
        return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
    } catch (const std::exception& excecao) {
        throw Erro(NumeroErro::ErroInterno,
                   std::string("As páginas não puderam ser separadas: ") + excecao.what());
    }
}

}  // namespace tarvo
