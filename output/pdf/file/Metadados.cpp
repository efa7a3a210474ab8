#include "output/pdf/file/Metadados.h"

#include <unicode/unistr.h>

#include "output/pdf/file/PerfilCor.h"
#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

constexpr std::string_view Programa = "RelatoriosTarvo";

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

std::string PacoteXMP(std::string_view titulo, const Momento& momento) {
    const std::string data = momento.FormatoXMP();
    const std::string programa(Programa);
    return "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
           "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
           "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
           "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
           " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\""
           " xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\""
           " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\">\n"
           "<pdfaid:part>2</pdfaid:part>\n<pdfaid:conformance>U</pdfaid:conformance>\n"
           "<dc:format>application/pdf</dc:format>\n"
           "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">" +
           EscaparXML(EmUTF8(Decodificar(titulo))) +
           "</rdf:li></rdf:Alt></dc:title>\n"
           "<dc:language><rdf:Bag><rdf:li>pt-BR</rdf:li></rdf:Bag></dc:language>\n"
           "<xmp:CreateDate>" +
           data + "</xmp:CreateDate>\n<xmp:ModifyDate>" + data +
           "</xmp:ModifyDate>\n<xmp:CreatorTool>" + programa +
           "</xmp:CreatorTool>\n<pdf:Producer>" + programa +
           "</pdf:Producer>\n</rdf:Description>\n</rdf:RDF>\n</x:xmpmeta>\n"
           "<?xpacket end=\"r\"?>";
}

}  // namespace

std::string TextoDeObjeto(std::string_view texto) {
    std::string hex = "<FEFF";
    for (const char32_t c : Decodificar(texto)) {
        AnexarUTF16Hex(hex, c);
    }
    return hex + ">";
}

Metadados EscreverMetadados(EscritorPDF& escritor, std::string_view titulo,
                            const Momento& momento) {
    const Metadados m{escritor.Reservar(), escritor.Reservar(), escritor.Reservar()};
    const std::string programa(Programa);
    const std::string data = momento.FormatoPDF();
    escritor.Objeto(m.informacao, "<</Title" + TextoDeObjeto(titulo) + "/Creator(" + programa +
                                      ")/Producer(" + programa + ")/CreationDate(" + data +
                                      ")/ModDate(" + data + ")>>");
    // Left uncompressed, so that programs that know nothing of PDF find it.
    escritor.FluxoAberto(m.xmp, "/Type/Metadata/Subtype/XML", PacoteXMP(titulo, momento));
    const int perfil = escritor.Reservar();
    static const std::string srgb(Compressor::DoFio().Comprimir(PerfilSRGB()));
    escritor.FluxoComprimido(perfil, "/N 3", srgb);
    escritor.Objeto(m.intencao,
                    "<</Type/OutputIntent/S/GTS_PDFA1/OutputConditionIdentifier(sRGB)"
                    "/Info(sRGB)/DestOutputProfile " +
                        Referencia(perfil) + ">>");
    return m;
}

}  // namespace tarvo::pdf
