#include "host/ResumoLote.h"

#include <sstream>
#include <vector>

#include "data/CodigosDeErros.h"
#include "platform/arquivo/Arquivos.h"

namespace tarvo::host {

namespace {

constexpr std::string_view Cabecalho =
    "\xEF\xBB\xBFinscrição;declaração;referência;relatório;arquivo;páginas;cortados;erro;"
    "descrição\r\n";
constexpr std::size_t ColunaArquivo = 4;
constexpr std::size_t ColunaErro = 7;
constexpr std::size_t Colunas = 9;

std::string Citado(std::string_view texto) {
    if (texto.find_first_of(";\"\r\n") == std::string_view::npos) {
        return std::string(texto);
    }
    std::string citado = "\"";
    for (const char c : texto) {
        if (c == '"') {
            citado += '"';
        }
        citado += c == '\r' || c == '\n' ? ' ' : c;
    }
    return citado + "\"";
}

// The columns of one line of the summary.
std::vector<std::string> Separar(std::string_view linha) {
    std::vector<std::string> colunas(1);
    bool citado = false;
    for (std::size_t i = 0; i < linha.size(); ++i) {
        const char c = linha[i];
        if (c == '"' && citado && i + 1 < linha.size() && linha[i + 1] == '"') {
            colunas.back() += c;
            ++i;
        } else if (c == '"') {
            citado = !citado;
        } else if (c == ';' && !citado) {
            colunas.emplace_back();
        } else {
            colunas.back() += c;
        }
    }
    return colunas;
}

}  // namespace

ResumoLote::ResumoLote(const std::filesystem::path& pasta, bool retomar)
    : arquivo_(pasta / "resumo.csv") {
    std::string conteudo(Cabecalho);
    if (std::filesystem::exists(arquivo_)) {
        if (!retomar) {
            throw Erro(NumeroErro::ArquivoJaExiste,
                       "A pasta \"" + pasta.string() +
                           "\" já tem o resumo de um lote; use --retomar ou outra pasta.");
        }
        std::ifstream anterior(arquivo_, std::ios::binary);
        std::string linha;
        std::getline(anterior, linha);
        // A line that a kill cut short has no end and is not believed.
        while (std::getline(anterior, linha) && !anterior.eof()) {
            if (linha.ends_with('\r')) {
                linha.pop_back();
            }
            const auto colunas = Separar(linha);
            if (colunas.size() == Colunas && colunas[ColunaErro] == "0" &&
                std::filesystem::exists(pasta / colunas[ColunaArquivo])) {
                produzidos_.insert(colunas[ColunaArquivo]);
                conteudo += linha + "\r\n";
            }
        }
    }
    GravarArquivo(arquivo_, conteudo);
    saida_.open(arquivo_, std::ios::binary | std::ios::app);
}

void ResumoLote::Acrescentar(const LinhaResumo& l) {
    std::ostringstream linha;
    linha.imbue(std::locale::classic());
    linha << Citado(l.IE) << ';' << l.NroDRQ << ';' << l.referencia << ';' << l.relatorio << ';'
          << Citado(l.arquivo) << ';' << l.paginas << ';' << l.cortados << ';' << l.erro << ';'
          << Citado(l.descricao) << "\r\n";
    const std::lock_guard trava(mutex_);
    saida_ << linha.str();
    if (!saida_.flush()) {
        throw Erro(NumeroErro::DiscoCheio,
                   "O resumo \"" + arquivo_.string() + "\" não pôde ser gravado.");
    }
}

}  // namespace tarvo::host
