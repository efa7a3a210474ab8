// SPDX-License-Identifier: MIT
#include "tests/support/MarcasDoPDF.h"

#include <algorithm>
#include <map>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <set>

namespace tarvo::apoio {

namespace {

using Objeto = QPDFObjectHandle;
using Faltas = std::vector<std::string>;
using Marca = std::pair<QPDFObjGen, int>;  // page and number

// Reads a page's content: what it draws, and within which marks.
class LeitorDePagina : public Objeto::ParserCallbacks {
  public:
    LeitorDePagina(QPDFObjGen pagina, std::set<Marca>& marcas, Faltas& faltas)
        : pagina_(pagina), marcas_(marcas), faltas_(faltas) {}

    void handleObject(Objeto objeto) override {
        if (!objeto.isOperator()) {
            operandos_.push_back(objeto);
            return;
        }
        static const std::set<std::string> Pintam{"Tj", "TJ", "'", "\"", "Do", "f", "F",  "f*",
                                                  "B",  "B*", "b", "b*", "S",  "s", "sh", "BI"};
        const std::string operador = objeto.getOperatorValue();
        if (operador == "BMC" || operador == "BDC") {
            Abrir();
        } else if (operador == "EMC") {
            Conferir(!abertas_.empty(), "a mark is closed that is not open");
            if (!abertas_.empty()) {
                abertas_.pop_back();
            }
        } else if (operador == "BT" || operador == "ET") {
            Conferir(operador == "BT" ? abertas_.empty() : abertas_ == antesDoTexto_,
                     "marks and text objects overlap");
            antesDoTexto_ = abertas_;
        } else if (Pintam.contains(operador)) {
            Conferir(Donos() == 1, operador + " within " + std::to_string(Donos()) + " marks");
        }
        operandos_.clear();
    }
    void handleEOF() override { Conferir(abertas_.empty(), "a mark stays open"); }

  private:
    void Abrir() {
        const std::string nome = operandos_.at(0).getName();
        const bool numerada =
            operandos_.size() > 1 && operandos_[1].isDictionary() && operandos_[1].hasKey("/MCID");
        if (numerada) {
            const Marca marca{pagina_, operandos_[1].getKey("/MCID").getIntValueAsInt()};
            Conferir(marcas_.insert(marca).second, "a number stands twice");
        }
        abertas_.push_back(numerada || nome == "/Artifact");
    }
    [[nodiscard]] std::ptrdiff_t Donos() const {
        return std::count(abertas_.begin(), abertas_.end(), true);
    }
    void Conferir(bool certo, const std::string& falta) {
        if (!certo) {
            faltas_.push_back("page " + pagina_.unparse() + ": " + falta);
        }
    }

    QPDFObjGen pagina_;
    std::set<Marca>& marcas_;
    Faltas& faltas_;
    std::vector<Objeto> operandos_;
    std::vector<bool> abertas_;  // whether each open mark says whose the content is
    std::vector<bool> antesDoTexto_;
};

// Walks the structure tree.
class LeitorDaArvore {
  public:
    LeitorDaArvore(Objeto raiz, Faltas& faltas)
        : classes_(raiz.getKey("/ClassMap")), faltas_(faltas) {
        Visitar(raiz.getKey("/K"), raiz, "");
    }
    // The element that claims a marked part.
    [[nodiscard]] const std::map<Marca, QPDFObjGen>& Donos() const { return donos_; }

  private:
    // What may stand directly below what.
    static bool Cabe(const std::string& pai, const std::string& tipo) {
        static const std::set<std::string> Blocos{"/H1", "/H2", "/P", "/L", "/Table", "/Figure"};
        static const std::map<std::string, std::set<std::string>> Filhos{
            {"", {"/Document"}},
            {"/Document", {"/Part", "/H1", "/H2", "/P", "/L", "/Table", "/Figure"}},
            {"/Part", Blocos},
            {"/L", {"/LI"}},
            {"/LI", {"/Lbl", "/LBody"}},
            {"/LBody", {"/P", "/L", "/Table", "/Figure"}},
            {"/Table", {"/TR"}},
            {"/TR", {"/TH", "/TD"}},
            {"/TH", {"/P", "/L", "/Table", "/Figure"}},
            {"/TD", {"/P", "/L", "/Table", "/Figure"}}};
        const auto filhos = Filhos.find(pai);
        return filhos != Filhos.end() && filhos->second.contains(tipo);
    }

    void Visitar(Objeto elemento, const Objeto& pai, const std::string& tipoDoPai) {
        const std::string nome = elemento.getObjGen().unparse();
        const auto conferir = [&](bool certo, const std::string& falta) {
            if (!certo) {
                faltas_.push_back("element " + nome + ": " + falta);
            }
        };
        if (!elemento.isDictionary() || !visitados_.insert(elemento.getObjGen()).second) {
            conferir(false, "is none, or stands twice");
            return;
        }
        const std::string tipo = elemento.getKey("/S").getName();
        conferir(elemento.getKey("/P").getObjGen() == pai.getObjGen(), "has another parent");
        conferir(Cabe(tipoDoPai, tipo), tipo + " in " + tipoDoPai);
        if (tipo == "/Part" || tipo == "/Document") {
            nivel_ = 0;
        } else if (tipo == "/H1" || tipo == "/H2") {
            conferir(tipo[2] - '0' <= nivel_ + 1, "skips a level");
            nivel_ = tipo[2] - '0';
        } else if (tipo == "/TH") {
            conferir(Atributo(elemento, "/Scope").isName(), "has no scope");
        } else if (tipo == "/Figure") {
            conferir(elemento.getKey("/Alt").isString() &&
                         !elemento.getKey("/Alt").getUTF8Value().empty() &&
                         elemento.getKey("/A").getKey("/BBox").isRectangle(),
                     "a figure without text or place");
        } else if (tipo == "/Table") {
            MedirTabela(elemento);
        }
        for (auto filho : Lista(elemento.getKey("/K"))) {
            if (filho.isInteger()) {
                Possuir(elemento, elemento.getKey("/Pg"), filho);
            } else if (filho.isDictionary() && filho.hasKey("/MCID")) {
                Possuir(elemento, filho.getKey("/Pg"), filho.getKey("/MCID"));
            } else {
                Visitar(filho, elemento, tipo);
            }
        }
    }

    void Possuir(const Objeto& elemento, const Objeto& pagina, Objeto numero) {
        const Marca marca{pagina.getObjGen(), numero.getIntValueAsInt()};
        if (!donos_.emplace(marca, elemento.getObjGen()).second) {
            faltas_.push_back("element " + elemento.getObjGen().unparse() +
                              ": claims what another one has");
        }
    }

    // All rows cover the same columns, cells of several rows included.
    void MedirTabela(Objeto tabela) {
        std::set<std::size_t> larguras;
        std::vector<int> ocupadas;  // rows still covered from above, by column
        for (auto linha : Lista(tabela.getKey("/K"))) {
            std::size_t coluna = 0;
            const auto pular = [&] {
                while (coluna < ocupadas.size() && ocupadas[coluna] > 0) {
                    ++coluna;
                }
            };
            for (auto& resto : ocupadas) {
                --resto;
            }
            for (const auto& celula : Lista(linha.getKey("/K"))) {
                pular();
                for (int n = 0; n < Numero(celula, "/ColSpan"); ++n, ++coluna) {
                    ocupadas.resize(std::max(ocupadas.size(), coluna + 1));
                    ocupadas[coluna] = Numero(celula, "/RowSpan");
                }
            }
            pular();
            larguras.insert(coluna);
        }
        const bool sobra = std::ranges::any_of(ocupadas, [](int resto) { return resto > 1; });
        if (larguras.size() != 1 || sobra) {
            faltas_.push_back("table " + tabela.getObjGen().unparse() + ": uneven rows");
        }
    }

    int Numero(const Objeto& celula, const std::string& nome) {
        auto valor = Atributo(celula, nome);
        return valor.isInteger() ? valor.getIntValueAsInt() : 1;
    }
    // Of the element itself or of its class.
    Objeto Atributo(Objeto elemento, const std::string& nome) {
        auto proprio = elemento.getKey("/A");
        auto de = proprio.isDictionary()  ? proprio
                  : elemento.hasKey("/C") ? classes_.getKey(elemento.getKey("/C").getName())
                                          : Objeto::newDictionary();
        return de.isDictionary() ? de.getKey(nome) : Objeto::newNull();
    }
    static std::vector<Objeto> Lista(Objeto k) {
        return k.isNull()    ? std::vector<Objeto>()
               : k.isArray() ? k.getArrayAsVector()
                             : std::vector<Objeto>{k};
    }

    Objeto classes_;
    Faltas& faltas_;
    std::set<QPDFObjGen> visitados_;
    std::map<Marca, QPDFObjGen> donos_;
    int nivel_ = 0;
};

// The parent tree, the elements and the pages say the same of each marked part.
void ConferirDonos(QPDF& pdf, Objeto paisDasPaginas, const LeitorDaArvore& arvore,
                   const std::set<Marca>& marcas, Faltas& faltas) {
    std::map<int, Objeto> pais;
    const auto numeros = paisDasPaginas.getKey("/Nums").getArrayAsVector();
    for (std::size_t i = 0; i + 1 < numeros.size(); i += 2) {
        pais.emplace(Objeto(numeros[i]).getIntValueAsInt(), numeros[i + 1]);
    }
    std::size_t quantas = 0;
    for (auto pagina : QPDFPageDocumentHelper(pdf).getAllPages()) {
        Objeto objeto = pagina.getObjectHandle();
        const auto dela =
            pais.at(objeto.getKey("/StructParents").getIntValueAsInt()).getArrayAsVector();
        for (int n = 0; n < static_cast<int>(dela.size()); ++n, ++quantas) {
            const Marca marca{objeto.getObjGen(), n};
            const auto dono = arvore.Donos().find(marca);
            if (!marcas.contains(marca) || dono == arvore.Donos().end() ||
                dono->second != dela[static_cast<std::size_t>(n)].getObjGen()) {
                faltas.push_back("page " + objeto.getObjGen().unparse() + ", part " +
                                 std::to_string(n) + ": of another element, or not there");
            }
        }
        if (objeto.getKey("/Tabs").getName() != "/S") {
            faltas.push_back("page " + objeto.getObjGen().unparse() + ": another order of tabs");
        }
    }
    if (quantas != marcas.size() || quantas != arvore.Donos().size()) {
        faltas.push_back("parts without an element, or elements without theirs");
    }
}

}  // namespace

std::vector<std::string> FaltasDasMarcas(const std::filesystem::path& arquivo) {
    Faltas faltas;
    QPDF pdf;
    pdf.processFile(arquivo.c_str());
    auto catalogo = pdf.getRoot();
    auto raiz = catalogo.getKey("/StructTreeRoot");
    auto info = catalogo.getKey("/MarkInfo");
    if (!raiz.isDictionary() || !info.isDictionary() || !info.getKey("/Marked").getBoolValue()) {
        return {"no tags"};
    }
    std::set<Marca> marcas;
    for (auto pagina : QPDFPageDocumentHelper(pdf).getAllPages()) {
        LeitorDePagina leitor(pagina.getObjectHandle().getObjGen(), marcas, faltas);
        pagina.parseContents(&leitor);
    }
    const LeitorDaArvore arvore(raiz, faltas);
    ConferirDonos(pdf, raiz.getKey("/ParentTree"), arvore, marcas, faltas);
    return faltas;
}

}  // namespace tarvo::apoio
