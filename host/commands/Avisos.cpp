// SPDX-License-Identifier: MIT
#include "host/commands/Avisos.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"
#include "data/Legivel.h"
#include "dispatch/Catalogo.h"

namespace tarvo::host {

namespace {

constexpr std::size_t LetrasDeUmTexto = 60;

// The pages of a text, in whose order they come: "página 2", "páginas 1 a 4", "páginas 1, 3 a 5".
std::string Paginas(const std::vector<std::size_t>& paginas) {
    std::string texto = paginas.size() == 1 ? "página " : "páginas ";
    for (std::size_t i = 0; i < paginas.size();) {
        std::size_t fim = i;
        while (fim + 1 < paginas.size() && paginas[fim + 1] == paginas[fim] + 1) {
            ++fim;
        }
        texto += (i == 0 ? "" : ", ") + std::to_string(paginas[i]);
        texto += fim == i ? "" : " a " + std::to_string(paginas[fim]);
        i = fim + 1;
    }
    return texto;
}

std::string Lugar(const Caixa& caixa) {
    return ", a " + FormatarValor(Moeda::DeDouble(caixa.x)) + " × " +
           FormatarValor(Moeda::DeDouble(caixa.y)) + " cm";
}

}  // namespace

void AvisarCortes(Console& console, const std::string& nome,
                  std::span<const TextoCortado> cortados) {
    struct Repetido {
        const TextoCortado* primeiro;
        std::size_t vezes = 0;
        std::vector<std::size_t> paginas;
    };
    std::map<std::string, Repetido> porTexto;
    std::vector<const std::string*> ordem;
    for (const TextoCortado& corte : cortados) {
        const auto [item, novo] =
            porTexto.try_emplace(Legivel(corte.texto, LetrasDeUmTexto), Repetido{&corte, 0, {}});
        if (novo) {
            ordem.push_back(&item->first);
        }
        Repetido& repetido = item->second;
        ++repetido.vezes;
        if (repetido.paginas.empty() || repetido.paginas.back() != corte.pagina) {
            repetido.paginas.push_back(corte.pagina);
        }
    }
    for (const std::string* texto : ordem) {
        const Repetido& repetido = porTexto.at(*texto);
        console.Avisar(nome + ", " + Paginas(repetido.paginas) +
                       (repetido.vezes == 1 ? Lugar(repetido.primeiro->caixa) : "") +
                       ": o texto não coube e foi cortado: \"" + *texto + "\"");
    }
}

std::vector<Achado> RevisarComAvisos(BancoDados& banco, const PedidoDeRevisao& pedido,
                                     Console& console) {
    std::vector<Achado> achados;
    try {
        achados = Revisar(banco, pedido);
    } catch (const Erro& erro) {
        console.Avisar("os dados não puderam ser revistos: " + erro.Descricao());
    }
    for (const Achado& achado : achados) {
        console.Avisar(TextoDoAchado(achado));
    }
    return achados;
}

std::vector<Achado> AchadosDe(const std::vector<std::string>& codigos,
                              std::vector<Achado> achados) {
    std::erase_if(achados, [&](const Achado& achado) {
        return !achado.relatorio.empty() && std::ranges::count(codigos, achado.relatorio) == 0;
    });
    return achados;
}

void AvisarDanos(BancoDados& banco, Console& console) {
    constexpr std::size_t Mostrados = 3;
    const auto danos = banco.Danos();
    for (std::size_t i = 0; i < danos.size() && i < Mostrados; ++i) {
        console.Avisar("o banco está danificado, e aos relatórios podem faltar linhas: " +
                       danos[i]);
    }
    if (danos.size() > Mostrados) {
        console.Avisar("há ainda outros danos; recorra a uma cópia de segurança");
    }
}

// Looking costs about 12 ms a megabyte; a call some 16 ms, and 2.5 ms more for each report after
// its first: about a twentieth of that.
void AvisarDanosSeBarato(BancoDados& banco, const Argumentos& a, Console& console) {
    constexpr std::uintmax_t BytesPorChamada = std::uintmax_t{64} * 1024;
    constexpr std::uintmax_t BytesPorRelatorio = std::uintmax_t{11} * 1024;
    const std::size_t relatorios = a.todos ? Catalogo().size() : a.codigos.size();
    std::error_code erro;
    const auto bytes = std::filesystem::file_size(a.banco, erro);
    if (!erro && bytes <= BytesPorChamada + BytesPorRelatorio * relatorios) {
        AvisarDanos(banco, console);
    }
}

}  // namespace tarvo::host
