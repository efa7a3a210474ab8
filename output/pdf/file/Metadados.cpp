// SPDX-License-Identifier: MIT
#include "output/pdf/file/Metadados.h"

#include <unicode/unistr.h>

#include <array>
#include <string_view>
#include <utility>

#include "embutido/sRGB.h"
#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

constexpr std::string_view Programa = "RelatoriosTarvo";
constexpr std::string_view Produtor = "RelatoriosTarvo " TARVO_VERSAO_DO_PROGRAMA;

std::string EscaparXML(std::string_view utf8) {
    std::string saida;
    for (const char c : utf8) {
        switch (c) {
            case '&':
                saida += "&amp;";
                break;
            case '<':
                saida += "&lt;";
                break;
            case '>':
                saida += "&gt;";
                break;
            default:
                saida += c;
        }
    }
    return saida;
}

std::string EmUTF8(std::u32string_view texto) {
    std::string saida;
    const auto* const caracteres = reinterpret_cast<const UChar32*>(texto.data());
    return icu::UnicodeString::fromUTF32(caracteres, static_cast<std::int32_t>(texto.size()))
        .toUTF8String(saida);
}

std::string XML(std::string_view texto) {
    std::u32string caracteres = Decodificar(texto);
    std::erase_if(caracteres, [](char32_t c) { return c == 0xFFFE || c == 0xFFFF; });
    return EscaparXML(EmUTF8(caracteres));
}

// Namespaces that PDF/A does not know describe themselves.
constexpr std::string_view Acessibilidade =
    "<rdf:Description rdf:about=\"\" xmlns:pdfuaid=\"http://www.aiim.org/pdfua/ns/id/\""
    " xmlns:pdfaExtension=\"http://www.aiim.org/pdfa/ns/extension/\""
    " xmlns:pdfaSchema=\"http://www.aiim.org/pdfa/ns/schema#\""
    " xmlns:pdfaProperty=\"http://www.aiim.org/pdfa/ns/property#\">\n"
    "<pdfuaid:part>1</pdfuaid:part>\n"
    "<pdfaExtension:schemas><rdf:Bag><rdf:li rdf:parseType=\"Resource\">\n"
    "<pdfaSchema:schema>PDF/UA identification</pdfaSchema:schema>\n"
    "<pdfaSchema:namespaceURI>http://www.aiim.org/pdfua/ns/id/</pdfaSchema:namespaceURI>\n"
    "<pdfaSchema:prefix>pdfuaid</pdfaSchema:prefix>\n"
    "<pdfaSchema:property><rdf:Seq><rdf:li rdf:parseType=\"Resource\">\n"
    "<pdfaProperty:name>part</pdfaProperty:name>\n"
    "<pdfaProperty:valueType>Integer</pdfaProperty:valueType>\n"
    "<pdfaProperty:category>internal</pdfaProperty:category>\n"
    "<pdfaProperty:description>Part of the standard</pdfaProperty:description>\n"
    "</rdf:li></rdf:Seq></pdfaSchema:property>\n"
    "</rdf:li></rdf:Bag></pdfaExtension:schemas>\n</rdf:Description>\n";

// An element, left out where there is nothing to say; moldura: what stands around the text.
std::string Elemento(const std::string& nome, std::string_view texto,
                     std::array<std::string_view, 2> moldura = {}) {
    if (texto.empty()) {
        return "";
    }
    return "<" + nome + ">" + std::string(moldura[0]) + XML(texto) + std::string(moldura[1]) +
           "</" + nome + ">\n";
}

std::string PacoteXMP(const Propriedades& p, const Momento& momento) {
    constexpr std::array<std::string_view, 2> Alternativa{
        "<rdf:Alt><rdf:li xml:lang=\"x-default\">", "</rdf:li></rdf:Alt>"};
    constexpr std::array<std::string_view, 2> Lista{"<rdf:Seq><rdf:li>", "</rdf:li></rdf:Seq>"};
    constexpr std::array<std::string_view, 2> Conjunto{"<rdf:Bag><rdf:li>", "</rdf:li></rdf:Bag>"};
    const std::string data = momento.FormatoXMP();
    std::string xmp =
        "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
        "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
        "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
        "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
        " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\""
        " xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\""
        " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\">\n";
    xmp += Elemento("pdfaid:part", "2") +
           Elemento("pdfaid:conformance", p.comEstrutura ? "A" : "U") +
           Elemento("dc:format", "application/pdf") + Elemento("dc:title", p.titulo, Alternativa) +
           Elemento("dc:creator", p.autor, Lista) +
           Elemento("dc:description", p.assunto, Alternativa) +
           Elemento("dc:language", "pt-BR", Conjunto) + Elemento("pdf:Keywords", p.palavras) +
           Elemento("xmp:CreateDate", data) + Elemento("xmp:ModifyDate", data) +
           Elemento("xmp:CreatorTool", Programa) + Elemento("pdf:Producer", Produtor) +
           "</rdf:Description>\n";
    if (p.comEstrutura) {
        xmp += Acessibilidade;
    }
    return xmp + "</rdf:RDF>\n</x:xmpmeta>\n<?xpacket end=\"r\"?>";
}

std::string DicionarioDeInformacao(const Propriedades& p, const Momento& momento) {
    const std::string data = momento.FormatoPDF();
    const std::pair<const char*, std::string_view> entradas[] = {
        {"/Title", p.titulo},      {"/Author", p.autor},   {"/Subject", p.assunto},
        {"/Keywords", p.palavras}, {"/Creator", Programa}, {"/Producer", Produtor},
        {"/CreationDate", data},   {"/ModDate", data}};
    std::string dicionario = "<<";
    for (const auto& [nome, texto] : entradas) {
        if (!texto.empty()) {
            dicionario += nome;
            AnexarTexto(dicionario, texto);
        }
    }
    return dicionario + ">>";
}

}  // namespace

Metadados EscreverMetadados(EscritorPDF& escritor, const Propriedades& propriedades,
                            const Momento& momento) {
    const Metadados m{escritor.Reservar(), escritor.Reservar(), escritor.Reservar()};
    escritor.Objeto(m.informacao, DicionarioDeInformacao(propriedades, momento));
    // Left uncompressed, so that programs that know nothing of PDF find it.
    escritor.FluxoAberto(m.xmp, "/Type/Metadata/Subtype/XML", PacoteXMP(propriedades, momento));
    const int perfil = escritor.Reservar();
    // An ICC profile (version 4) of sRGB: its primaries adapted to D50 and its transfer curve.
    static const std::string srgb(Compressor::DoFio().Comprimir(
        {reinterpret_cast<const char*>(embutido::sRGB), sizeof embutido::sRGB}));
    escritor.FluxoComprimido(perfil, "/N 3", srgb);
    escritor.Objeto(m.intencao,
                    "<</Type/OutputIntent/S/GTS_PDFA1/OutputConditionIdentifier(sRGB)"
                    "/Info(sRGB)/DestOutputProfile " +
                        Referencia(perfil) + ">>");
    return m;
}

}  // namespace tarvo::pdf
