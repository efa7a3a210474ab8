// SPDX-License-Identifier: MIT
#include "tests/support/Roteiro.h"

#include <cmath>
#include <cstdlib>
#include <fstream>

#include "data/LeitoresDeCampo.h"
#include "document/Imagens.h"
#include "tests/support/Esboco.h"
#include "tests/support/OperacoesCurtas.h"

namespace tarvo::apoio {

namespace {

std::string Escrita(const std::string& resposta) {
    std::string escrita = resposta.empty() || resposta[0] == '#' || resposta[0] == '>' ? "\\" : "";
    for (const char c : resposta) {
        escrita += c == '\r' ? "\\r" : c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c);
    }
    if (escrita.ends_with(' ')) {
        escrita.replace(escrita.size() - 1, 1, "\\s");
    }
    return escrita + "\n";
}

bool EhResposta(const std::string& linha) {
    return !linha.empty() && linha[0] != '>' && linha[0] != '#';
}

Lista LinhasDesde(double y, const Conteudo& conteudo, std::size_t pagina) {
    Lista linhas;
    double topo = -1;
    for (const Primitiva& primitiva : conteudo.paginas.at(pagina)) {
        if (const auto* moldura = std::get_if<RetanguloArredondado>(&primitiva)) {
            if (moldura->caixa.y > y - 0.001 && std::fabs(moldura->caixa.y - topo) > 0.001) {
                topo = moldura->caixa.y;
                char inicio[16];
                std::snprintf(inicio, sizeof inicio, "%.2f:", topo);
                linhas.emplace_back(inicio);
            }
        } else if (const auto* texto = std::get_if<Texto>(&primitiva);
                   texto != nullptr && !linhas.empty() && texto->caixa.y < 25) {
            linhas.back() += " " + texto->texto;
        }
    }
    return linhas;
}

Lista Ultimas(const Lista& lista, std::size_t quantas) {
    return {lista.end() - static_cast<std::ptrdiff_t>(std::min(quantas, lista.size())),
            lista.end()};
}

bool TemRodape(const Conteudo& conteudo, std::size_t pagina) {
    return Ultimas(Curtas(conteudo, pagina), 4) ==
           Lista{"R 0 25.2 17 0.1 #808000 #808000", "T 0 25.4 5.6667 0.3 EM Arial 6 |%%D",
                 "T 5.6667 25.4 5.6667 0.3 CM Arial 6 |%%H",
                 "T 11.3333 25.4 5.6667 0.3 DM Arial 6 |Página %%p de %%P"};
}

// Of the head only the frames between the government's lines and the taxpayer's fields.
Lista SemQuadro(const Conteudo& conteudo, std::size_t pagina) {
    const auto achar = [](const Lista& lista, std::string_view fim) {
        return std::ranges::find_if(lista, [&](const auto& uma) { return uma.ends_with(fim); });
    };
    Lista operacoes = Curtas(conteudo, pagina);
    if (operacoes.empty()) {
        return operacoes;
    }
    operacoes.erase(achar(operacoes, "|Razão Social") - 1, achar(operacoes, "|Referência") + 2);
    operacoes.erase(operacoes.begin(), achar(operacoes, "|Secretaria da Fazenda") + 2);
    if (TemRodape(conteudo, pagina)) {
        operacoes.resize(operacoes.size() - 4);
        operacoes.emplace_back("rodapé");
    }
    return operacoes;
}

template <class Acao>
Lista OuErro(Acao&& acao) {
    try {
        return acao();
    } catch (const Erro& erro) {
        return {"erro " + std::to_string(static_cast<int>(erro.Numero())) + ": " +
                erro.Descricao()};
    }
}

// The statement, which selects from n, with i from 1 to vezes in n.
std::string Repetir(int vezes, const std::string& comando) {
    return "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
           std::to_string(vezes) + ") " + comando + ";";
}

}  // namespace

Lista LinhasDe(Recordset& registros, const std::string& colunas) {
    Lista linhas;
    for (; !registros.EOF_(); registros.MoveNext()) {
        linhas.emplace_back();
        std::istringstream nomes(colunas);
        for (std::string nome, barra; std::getline(nomes, nome, '|'); barra = "|") {
            const Valor valor = registros.Fields(nome);
            linhas.back() += barra + (EhNulo(valor) ? "∅" : TextoCampo(valor));
        }
    }
    return linhas;
}

std::pair<std::string, std::string> ColunasEConsulta(const std::string& pedido) {
    const auto fim = pedido.find(']');
    return {pedido.substr(1, fim - 1), pedido.substr(std::min(fim + 2, pedido.size()))};
}

Roteiro::Roteiro(std::string base) : base_(std::move(base)) {
    EnsinarDoBanco();
    EnsinarDoDocumento();
}

void Roteiro::Ensinar(const std::string& nome,
                      std::function<Respostas(const std::string&)> comando) {
    comandos_[nome] = std::move(comando);
}

void Roteiro::EnsinarDoBanco() {
    Ensinar("banco", [this](const std::string&) {
        Renovar();
        return Respostas();
    });
    Ensinar("base", [this](const std::string& script) {
        base_ = script;
        Renovar();
        return Respostas();
    });
    Ensinar("sql", [this](const std::string& script) {
        Banco().Executar(script);
        return Respostas();
    });
    Ensinar("repetir", [this](const std::string& pedido) {
        const auto espaco = pedido.find(' ');
        Banco().Executar(Repetir(std::stoi(pedido), pedido.substr(espaco)));
        return Respostas();
    });
    Ensinar("ler", [this](const std::string& pedido) { return Ler(pedido); });
}

Roteiro::Respostas Roteiro::Ler(const std::string& pedido) {
    const auto [colunas, consulta] = ColunasEConsulta(pedido);
    const auto ler = [&, &colunas = colunas, &consulta = consulta](TipoRecordset tipo) {
        return OuErro([&] { return LinhasDe(*Banco()->OpenRecordset(consulta, tipo), colunas); });
    };
    auto linhas = ler(TipoRecordset::ForwardOnly);
    EXPECT_EQ(ler(TipoRecordset::Dynaset), linhas) << consulta;
    return linhas;
}

void Roteiro::EnsinarDoDocumento() {
    Ensinar("identidade", [this](const std::string&) {
        std::ostringstream resto;
        const auto& [esquerda, direita, superior, inferior] = documento.margens;
        resto << (documento.icone == nullptr ? "sem ícone" : documento.icone->nome)
              << (documento.orientacao == 0 ? ", retrato, " : ", paisagem, ") << esquerda << " "
              << direita << " " << superior << " " << inferior;
        return Respostas{documento.titulo, documento.tituloResumido, resto.str()};
    });
    Ensinar("pagina", [this](const std::string& pedido) {
        const auto [pagina, ultimas] = Palavras<std::size_t, std::size_t>(pedido);
        const auto operacoes = Curtas(documento, pagina - 1);
        return ultimas == 0 ? operacoes : Ultimas(operacoes, ultimas);
    });
    Ensinar("corpo", [this](const std::string& pedido) {
        return SemQuadro(documento, std::stoul(pedido) - 1);
    });
    Ensinar("linhas", [this](const std::string& pedido) {
        const auto [pagina, y] = Palavras<std::size_t, double>(pedido);
        return LinhasDesde(y, documento, pagina - 1);
    });
    Ensinar("fim", [this](const std::string& pedido) {
        const auto [y, corpo] = Palavras<double, double>(pedido);
        Respostas respostas;
        for (std::size_t pagina = 0; pagina < documento.paginas.size(); ++pagina) {
            respostas.push_back(TemRodape(documento, pagina) ? "página" : "página sem rodapé");
            respostas = respostas + LinhasDesde(pagina == 0 ? y : corpo, documento, pagina);
        }
        return respostas;
    });
    Ensinar("esboco", [this](const std::string& pedido) {
        const auto [de, ate] = Palavras<std::size_t, std::size_t>(pedido);
        auto esboco = Esboco(documento);
        esboco.resize(ate == 0 ? esboco.size() : std::min(ate, esboco.size()));
        esboco.erase(esboco.begin(), esboco.begin() + static_cast<std::ptrdiff_t>(de));
        return esboco;
    });
}

Roteiro::Respostas Roteiro::Executar(const std::string& comando) {
    const auto espaco = comando.find_first_of(" \n");
    const std::string nome = comando.substr(0, espaco);
    const std::string pedido = espaco == std::string::npos ? "" : comando.substr(espaco + 1);
    const auto conhecido = comandos_.find(nome);
    if (conhecido == comandos_.end()) {
        ADD_FAILURE() << "an unknown command: " << comando;
        return {};
    }
    pedidos_[nome].push_back(pedido);
    return OuErro([&] { return conhecido->second(pedido); });
}

void Roteiro::Conferir(const std::string& arquivo) {
    const auto caminho = std::filesystem::path(TARVO_TESTES) / arquivo;
    std::ifstream leitura(caminho, std::ios::binary);
    Lista linhas;
    for (std::string linha; std::getline(leitura, linha);) {
        linhas.push_back(linha);
    }
    std::string vivido;
    int comandos = 0;
    for (std::size_t i = 0; i < linhas.size();) {
        if (!linhas[i].starts_with("> ")) {
            EXPECT_FALSE(EhResposta(linhas[i])) << arquivo << ": " << linhas[i];
            vivido += linhas[i++] + "\n";
            continue;
        }
        vivido += linhas[i] + "\n";
        std::string comando = linhas[i].substr(2);
        for (++i; i < linhas.size() && linhas[i].starts_with(">  "); ++i) {
            vivido += linhas[i] + "\n";
            comando += "\n" + linhas[i].substr(3);
        }
        std::string esperadas;
        for (; i < linhas.size() && EhResposta(linhas[i]); ++i) {
            esperadas += linhas[i] + "\n";
        }
        std::string respostas;
        for (const auto& resposta : Executar(comando)) {
            respostas += Escrita(resposta);
        }
        EXPECT_EQ(respostas, esperadas) << arquivo << ": " << comando;
        vivido += respostas;
        ++comandos;
    }
    EXPECT_GT(comandos, 0) << caminho;
    if (std::getenv("REGRAVAR_ROTEIROS") != nullptr) {
        std::ofstream(caminho, std::ios::binary) << vivido;
        ADD_FAILURE() << caminho << " was written anew";
    }
}

}  // namespace tarvo::apoio
