// SPDX-License-Identifier: MIT
#include "system/settings/ConfiguracoesIni.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>

#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "system/files/Arquivos.h"
#include "system/files/Descritor.h"

namespace tarvo {

namespace {

std::string_view Aparar(std::string_view texto) {
    return SemBrancos(texto, " \t\r\n");
}

// Lines with their ends.
std::vector<std::string> Linhas(std::string_view texto) {
    std::vector<std::string> linhas;
    while (!texto.empty()) {
        const auto fim = std::min(texto.find('\n'), texto.size() - 1) + 1;
        linhas.emplace_back(texto.substr(0, fim));
        texto.remove_prefix(fim);
    }
    return linhas;
}

std::optional<std::string_view> Secao(std::string_view linha) {
    constexpr std::string_view MarcaUtf8 = "\xEF\xBB\xBF";
    if (linha.starts_with(MarcaUtf8)) {
        linha.remove_prefix(MarcaUtf8.size());
    }
    linha = Aparar(linha);
    if (linha.size() < 2 || linha.front() != '[' || linha.back() != ']') {
        return std::nullopt;
    }
    return Aparar(linha.substr(1, linha.size() - 2));
}

// Key and value; nothing for comments, section names and blank lines.
std::optional<std::pair<std::string_view, std::string_view>> Par(std::string_view linha) {
    linha = Aparar(linha);
    const auto igual = linha.find('=');
    if (igual == std::string_view::npos || linha.front() == ';' || linha.front() == '#') {
        return std::nullopt;
    }
    auto valor = Aparar(linha.substr(igual + 1));
    if (valor.size() >= 2 && valor.front() == '"' && valor.back() == '"') {
        valor = valor.substr(1, valor.size() - 2);
    }
    return std::pair(Aparar(linha.substr(0, igual)), valor);
}

// Where a key stands, or where it would be added.
struct Lugar {
    std::size_t linha = 0;
    bool achado = false;
    bool temSecao = false;
};

Lugar Procurar(const std::vector<std::string>& linhas, std::string_view secao,
               std::string_view chave) {
    Lugar lugar{.linha = linhas.size()};
    bool dentro = false;
    for (std::size_t i = 0; i < linhas.size(); ++i) {
        if (const auto nome = Secao(linhas[i])) {
            dentro = MesmoNome(*nome, secao);
            if (dentro && !lugar.temSecao) {
                lugar = {.linha = i + 1, .temSecao = true};
            }
        } else if (const auto par = Par(linhas[i]); dentro && par) {
            if (MesmoNome(par->first, chave)) {
                return {.linha = i, .achado = true, .temSecao = true};
            }
            lugar.linha = i + 1;
        }
    }
    return lugar;
}

void RecusarSeConter(std::string_view texto, std::string_view proibidos) {
    if (texto.find_first_of(proibidos) != std::string_view::npos) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "Configuração que não cabe em uma linha: \"" + std::string(texto) + "\".");
    }
}

std::string LinhaDe(std::string_view chave, std::string_view valor, std::string_view fimDeLinha) {
    const bool aspas = valor != Aparar(valor) || (!valor.empty() && valor.front() == '"');
    std::string linha(chave);
    linha += aspas ? "=\"" : "=";
    linha += valor;
    return linha.append(aspas ? "\"" : "").append(fimDeLinha);
}

void Definir(std::vector<std::string>& linhas, std::string_view secao, std::string_view chave,
             std::string_view valor) {
    const bool crlf = !linhas.empty() && linhas.front().ends_with("\r\n");
    const std::string fim = crlf ? "\r\n" : "\n";
    if (!linhas.empty() && !linhas.back().ends_with('\n')) {
        linhas.back() += fim;
    }
    const auto lugar = Procurar(linhas, secao, chave);
    const auto posicao = linhas.begin() + static_cast<std::ptrdiff_t>(lugar.linha);
    if (lugar.achado) {
        *posicao = LinhaDe(chave, valor, fim);
    } else if (lugar.temSecao) {
        linhas.insert(posicao, LinhaDe(chave, valor, fim));
    } else {
        linhas.push_back("[" + std::string(secao) + "]" + fim);
        linhas.push_back(LinhaDe(chave, valor, fim));
    }
}

}  // namespace

std::filesystem::path ConfiguracoesIni::PastaDoUsuario() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    if (xdg != nullptr && *xdg == '/') {
        return xdg;
    }
    const char* casa = std::getenv("HOME");
    if (casa == nullptr || *casa == '\0') {
        const passwd* usuario = ::getpwuid(::getuid());
        casa = usuario != nullptr ? usuario->pw_dir : "/";
    }
    return std::filesystem::path(casa) / ".config";
}

std::filesystem::path ConfiguracoesIni::Arquivo(std::string_view aplicacao) const {
    return pasta_ / (std::string(aplicacao) + ".ini");
}

std::string ConfiguracoesIni::Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const {
    const auto linhas = Linhas(LerArquivo(Arquivo(aplicacao)));
    const auto lugar = Procurar(linhas, secao, chave);
    return std::string(lugar.achado ? Par(linhas[lugar.linha])->second : padrao);
}

void ConfiguracoesIni::Gravar(std::string_view aplicacao, std::string_view secao,
                              std::string_view chave, std::string_view valor) {
    RecusarSeConter(secao, "]\r\n");
    RecusarSeConter(chave, "=\r\n");
    RecusarSeConter(valor, "\r\n");
    CriarPasta(pasta_);
    // Held until the new file stands, so that two programs do not undo each other's keys.
    const Descritor pasta(AbrirDescritor(pasta_, O_RDONLY | O_DIRECTORY));
    static_cast<void>(::flock(pasta.Valor(), LOCK_EX));
    auto destino = Arquivo(aplicacao);
    // Users keep their settings elsewhere behind a link of their own: it stays one.
    if (std::error_code erro; std::filesystem::is_symlink(destino, erro)) {
        destino = std::filesystem::weakly_canonical(destino, erro);
    }
    auto linhas = Linhas(LerArquivo(destino));
    Definir(linhas, secao, chave, valor);
    std::string texto;
    for (const auto& linha : linhas) {
        texto += linha;
    }
    GravarArquivo(destino, texto);
}

}  // namespace tarvo
