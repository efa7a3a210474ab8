#include "host/batch/ResumoLote.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <fstream>
#include <optional>
#include <string_view>
#include <vector>

#include "data/CodigosDeErros.h"
#include "system/files/Arquivos.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo::host {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view Cabecalho =
    "\xEF\xBB\xBFinscrição;declaração;referência;relatório;arquivo;bytes;páginas;cortados;erro;"
    "descrição\r\n";
constexpr std::size_t Colunas = 10;

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

std::string Escrita(const LinhaResumo& l) {
    return Citado(l.IE) + ';' + std::to_string(l.NroDRQ) + ';' + l.referencia + ';' + l.relatorio +
           ';' + Citado(l.arquivo) + ';' + std::to_string(l.bytes) + ';' +
           std::to_string(l.paginas) + ';' + std::to_string(l.cortados) + ';' +
           std::to_string(l.erro) + ';' + Citado(l.descricao) + "\r\n";
}

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

template <class Inteiro>
bool LerNumero(const std::string& texto, Inteiro& numero) {
    const char* const fim = texto.data() + texto.size();
    const auto lido = std::from_chars(texto.data(), fim, numero);
    return lido.ec == std::errc() && lido.ptr == fim;
}

std::optional<LinhaResumo> Lida(std::string_view texto) {
    const auto c = Separar(texto);
    LinhaResumo l;
    if (c.size() != Colunas || !LerNumero(c[1], l.NroDRQ) || !LerNumero(c[5], l.bytes) ||
        !LerNumero(c[6], l.paginas) || !LerNumero(c[7], l.cortados) || !LerNumero(c[8], l.erro)) {
        return std::nullopt;
    }
    l.IE = c[0];
    l.referencia = c[2];
    l.relatorio = c[3];
    l.arquivo = c[4];
    l.descricao = c[9];
    return l;
}

fs::path ArquivoDoResumo(const fs::path& pasta) {
    return pasta / "resumo.csv";
}

bool Existe(const fs::path& arquivo) {
    std::error_code ignorado;
    return fs::exists(fs::symlink_status(arquivo, ignorado));
}

// The file to write to, with its header.
int Abrir(const fs::path& arquivo, bool continuar) {
    if (!Existe(arquivo)) {
        GravarArquivo(arquivo, Cabecalho);
    } else if (!continuar) {
        throw Erro(NumeroErro::ArquivoJaExiste,
                   "\"" + arquivo.string() + "\" já existe: a pasta tem o resumo de um lote.");
    }
    const int descritor = ::open(arquivo.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    if (descritor < 0) {
        LancarErroDeArquivo(arquivo, errno);
    }
    return descritor;
}

}  // namespace

void FiltrarResumo(const fs::path& pasta,
                   const std::function<bool(const LinhaResumo& linha)>& manter) {
    const fs::path arquivo = ArquivoDoResumo(pasta);
    if (!Existe(arquivo)) {
        return;
    }
    std::ifstream anterior(arquivo, std::ios::binary);
    std::string linha;
    std::getline(anterior, linha);
    if (linha + "\n" != Cabecalho) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "\"" + arquivo.string() + "\" não é o resumo de um lote; use outra pasta.");
    }
    GravacaoSegura nova(arquivo);
    nova.Escrever(Cabecalho);
    // A line without its end was cut short.
    while (std::getline(anterior, linha) && !anterior.eof()) {
        if (!linha.ends_with('\r')) {
            continue;
        }
        linha.pop_back();
        const auto lida = Lida(linha);
        if (lida && manter(*lida)) {
            nova.Escrever(linha + "\r\n");
        }
    }
    if (anterior.bad()) {
        LancarErroDeArquivo(arquivo, EIO);
    }
    nova.Confirmar();
}

ResumoLote::ResumoLote(const fs::path& pasta, bool continuar)
    : arquivo_(ArquivoDoResumo(pasta)), saida_(Abrir(arquivo_, continuar)) {}

void ResumoLote::Acrescentar(const LinhaResumo& l) {
    const std::string linha = Escrita(l);
    std::string_view resto = linha;
    const std::lock_guard trava(mutex_);
    while (!resto.empty()) {
        const ssize_t escritos = ::write(saida_.Valor(), resto.data(), resto.size());
        if (escritos >= 0) {
            resto.remove_prefix(static_cast<std::size_t>(escritos));
        } else if (errno != EINTR) {
            LancarErroDeArquivo(arquivo_, errno);
        }
    }
}

}  // namespace tarvo::host
