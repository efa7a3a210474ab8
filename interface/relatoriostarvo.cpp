#include "interface/relatoriostarvo.h"

#include <cstring>
#include <sstream>

#include "databases/AbrirBanco.h"
#include "databases/sqlite/BancoSQLite.h"
#include "interface/ErroDaChamada.h"
#include "interface/Janelas.h"
#include "interface/Objetos.h"
#include "interface/Utf8.h"
#include "output/json/DocumentoJSON.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "reports/RelatorioCadastro.h"
#include "reports/RelatorioPagamentos.h"
#include "slip/RelatorioVELO.h"
#include "system/files/Arquivos.h"

using namespace tarvo;
using namespace tarvo::c;

namespace {

[[noreturn]] void Recusar(const std::string& motivo) {
    throw Erro(NumeroErro::ChamadaInvalida, "Chamada inválida: " + motivo + ".");
}

// An output argument, zero until the call succeeds.
template <class T>
T& Saida(T* ponteiro, const char* nome) {
    if (ponteiro == nullptr) {
        Recusar(std::string(nome) + " é nulo");
    }
    *ponteiro = T{};
    return *ponteiro;
}

std::string LerTexto(const char* texto, const char* nome) {
    if (texto == nullptr) {
        Recusar(std::string(nome) + " é nulo");
    }
    if (!EhUtf8(texto)) {
        Recusar(std::string(nome) + " não é UTF-8");
    }
    return texto;
}

std::filesystem::path Caminho(const char* arquivo) {
    if (arquivo == nullptr || *arquivo == '\0') {
        Recusar("falta o nome do arquivo");
    }
    return arquivo;
}

// Refuses options outside those that the call takes.
TabelasDeTrabalho Opcoes(std::uint32_t opcoes, std::uint32_t aceitas) {
    if ((opcoes & ~aceitas) != 0) {
        Recusar("opção desconhecida para abrir o banco");
    }
    return (opcoes & TARVO_TABELAS_PRIVADAS) != 0 ? TabelasDeTrabalho::Privadas
                                                  : TabelasDeTrabalho::NoBanco;
}

template <class R, class... Argumentos>
std::uint64_t Registrar(Argumentos&&... argumentos) {
    return Registro::DoProcesso().Acrescentar(
        std::make_unique<R>(std::forward<Argumentos>(argumentos)...));
}

// The operation that builds objects of the report's class.
std::string_view ConstrucaoDe(Relatorio& relatorio) {
    if (dynamic_cast<RelatorioVELO*>(&relatorio) != nullptr) {
        return "tarvo_construir_velo";
    }
    return dynamic_cast<RelatorioCadastro*>(&relatorio) != nullptr ? "tarvo_construir_cadastro"
                                                                   : "tarvo_construir";
}

// The report, if that operation builds it; the texts that its last PDF cut are no longer of it.
template <class R>
R& ParaConstruir(Objeto& objeto, std::string_view operacao) {
    const auto propria = ConstrucaoDe(objeto.DeRelatorio());
    if (propria != operacao) {
        throw Erro(NumeroErro::NumeroDeArgumentos,
                   "Objetos desta classe se constroem com " + std::string(propria) + ".");
    }
    objeto.cortados.clear();
    return objeto.Como<R>();
}

std::string ComoJSON(const Relatorio& relatorio) {
    std::ostringstream json;
    json.exceptions(std::ios::badbit);  // passes on what happens inside, such as lack of memory
    EscreverJSON(relatorio.Identidade().classe, relatorio.Documento(), json);
    return std::move(json).str();
}

[[noreturn]] void RecusarFormato(std::int32_t formato) {
    Recusar("formato desconhecido: " + std::to_string(formato));
}

void Exportar(Objeto& objeto, std::int32_t formato, const std::filesystem::path& arquivo) {
    const Relatorio& relatorio = objeto.DeRelatorio();
    switch (formato) {
        case TARVO_PDF:
            objeto.cortados = GravarPDF(relatorio.Documento(), arquivo).cortados;
            return;
        case TARVO_JSON:
            GravarArquivo(arquivo, ComoJSON(relatorio));
            return;
        default:
            RecusarFormato(formato);
    }
}

std::string Exportado(Objeto& objeto, std::int32_t formato) {
    const Relatorio& relatorio = objeto.DeRelatorio();
    switch (formato) {
        case TARVO_PDF: {
            std::string bytes;
            objeto.cortados = RenderizarPDF(relatorio.Documento(), bytes).cortados;
            return bytes;
        }
        case TARVO_JSON:
            return ComoJSON(relatorio);
        default:
            RecusarFormato(formato);
    }
}

}  // namespace

static_assert(TARVO_VERSAO == TARVO_VERSAO_DO_PROJETO);

int32_t tarvo_versao(void) {
    return TARVO_VERSAO;
}

int32_t tarvo_erro_numero(void) {
    return NumeroDoErro();
}

const char* tarvo_erro_texto(void) {
    return TextoDoErro();
}

int32_t tarvo_abrir_banco(const char* arquivo, uint32_t opcoes, tarvo_banco* banco) {
    return Proteger([&] {
        auto& saida = Saida(banco, "banco");
        const auto tabelas = Opcoes(opcoes, TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS);
        const auto modo = (opcoes & TARVO_SOMENTE_LEITURA) != 0 ? ModoAbertura::SomenteLeitura
                                                                : ModoAbertura::LeituraEscrita;
        saida = Registrar<Banco>(AbrirBanco(Caminho(arquivo), {modo, tabelas}));
    });
}

int32_t tarvo_adotar_banco(sqlite3* conexao, uint32_t opcoes, tarvo_banco* banco) {
    return Proteger([&] {
        auto& saida = Saida(banco, "banco");
        const auto tabelas = Opcoes(opcoes, TARVO_TABELAS_PRIVADAS);
        if (conexao == nullptr) {
            Recusar("conexao é nulo");
        }
        saida = Registrar<Banco>(BancoSQLite::Adotar(conexao, tabelas));
    });
}

int32_t tarvo_criar(const char* nome, tarvo_objeto* objeto) {
    return Proteger([&] {
        auto& saida = Saida(objeto, "objeto");
        saida = Registrar<Objeto>(LerTexto(nome, "nome"));
    });
}

int32_t tarvo_definir_ref_atual(tarvo_objeto objeto, const char* mes_ano) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        uso->DefinirReferencia(mes_ano == nullptr ? std::nullopt
                                                  : std::optional(LerTexto(mes_ano, "mes_ano")));
    });
}

int32_t tarvo_executar(tarvo_objeto objeto, tarvo_banco banco, const char* ie, int32_t numero_drq,
                       int32_t opcoes) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto dados = Usar<Banco>(banco);
        Relatorios& relatorios = uso->EntradaDasClasses();
        const std::string IE = LerTexto(ie, "ie");
        uso->UsarJanelas();
        relatorios.Executar(**dados, IE, numero_drq, opcoes);
    });
}

int32_t tarvo_construir(tarvo_objeto objeto, tarvo_banco banco, const char* ie,
                        int32_t numero_drq) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto dados = Usar<Banco>(banco);
        const std::string IE = LerTexto(ie, "ie");
        ParaConstruir<RelatorioDeclaracao>(*uso, "tarvo_construir")
            .Construir(**dados, IE, numero_drq);
    });
}

int32_t tarvo_construir_cadastro(tarvo_objeto objeto, tarvo_banco banco, const char* ie) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto dados = Usar<Banco>(banco);
        const std::string IE = LerTexto(ie, "ie");
        ParaConstruir<RelatorioCadastro>(*uso, "tarvo_construir_cadastro").Construir(**dados, IE);
    });
}

int32_t tarvo_construir_velo(tarvo_objeto objeto, tarvo_banco banco) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto dados = Usar<Banco>(banco);
        ParaConstruir<RelatorioVELO>(*uso, "tarvo_construir_velo").Construir(**dados);
    });
}

int32_t tarvo_exibir(tarvo_objeto objeto) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        Relatorio& relatorio = uso->DeRelatorio();
        uso->UsarJanelas();
        relatorio.Exibir();
    });
}

int32_t tarvo_ocultar(tarvo_objeto objeto) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        uso->ConferirLinhaDasJanelas();
        uso->DeRelatorio().Ocultar();
    });
}

int32_t tarvo_imprimir(tarvo_objeto objeto) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        auto& relatorio = uso->Como<RelatorioDeclaracao>();
        uso->UsarImpressao();
        relatorio.Imprimir();
    });
}

int32_t tarvo_aguardar_janelas(int32_t milissegundos, size_t* abertas) {
    return Proteger([&] {
        std::size_t quantas = 0;
        if (AreaDeTrabalhoAberta() != nullptr) {
            quantas =
                ExigirAreaDeTrabalho().AguardarJanelas(std::chrono::milliseconds(milissegundos));
        }
        if (abertas != nullptr) {
            *abertas = quantas;
        }
    });
}

int32_t tarvo_paginas(tarvo_objeto objeto, size_t* paginas) {
    return Proteger([&] {
        auto& saida = Saida(paginas, "paginas");
        saida = Usar<Objeto>(objeto)->DeRelatorio().Documento().paginas.size();
    });
}

int32_t tarvo_exportar_arquivo(tarvo_objeto objeto, int32_t formato, const char* arquivo) {
    return Proteger([&] { Exportar(*Usar<Objeto>(objeto), formato, Caminho(arquivo)); });
}

int32_t tarvo_exportar_memoria(tarvo_objeto objeto, int32_t formato, tarvo_memoria* memoria) {
    return Proteger([&] {
        auto& saida = Saida(memoria, "memoria");
        saida = Registrar<Memoria>(Exportado(*Usar<Objeto>(objeto), formato));
    });
}

int32_t tarvo_memoria_bytes(tarvo_memoria memoria, const char** bytes, size_t* tamanho) {
    return Proteger([&] {
        auto& inicio = Saida(bytes, "bytes");
        auto& quantos = Saida(tamanho, "tamanho");
        const std::string& conteudo = Usar<Memoria>(memoria)->Bytes();
        inicio = conteudo.c_str();
        quantos = conteudo.size();
    });
}

int32_t tarvo_textos_cortados(tarvo_objeto objeto, size_t* quantidade) {
    return Proteger([&] {
        auto& saida = Saida(quantidade, "quantidade");
        saida = Usar<Objeto>(objeto)->cortados.size();
    });
}

int32_t tarvo_texto_cortado(tarvo_objeto objeto, size_t indice, size_t* pagina,
                            tarvo_memoria* texto) {
    return Proteger([&] {
        auto& numero = Saida(pagina, "pagina");
        auto& saida = Saida(texto, "texto");
        const auto uso = Usar<Objeto>(objeto);
        if (indice < 1 || indice > uso->cortados.size()) {
            Recusar("não há texto cortado de número " + std::to_string(indice));
        }
        const TextoCortado& cortado = uso->cortados[indice - 1];
        saida = Registrar<Memoria>(cortado.texto);
        numero = cortado.pagina;
    });
}

int32_t tarvo_campo_st(tarvo_objeto objeto, int32_t campo, tarvo_banco banco, int32_t numero_drq,
                       char* texto, size_t capacidade) {
    return Proteger([&] {
        if (texto == nullptr || capacidade == 0) {
            Recusar("texto não tem lugar");
        }
        *texto = '\0';
        const auto uso = Usar<Objeto>(objeto);
        const auto& relatorio = uso->Como<RelatorioApuracaoSubTrib>();
        const auto valor = banco == 0 ? relatorio.Campo(campo, nullptr, numero_drq)
                                      : relatorio.Campo(campo, &**Usar<Banco>(banco), numero_drq);
        if (valor.size() >= capacidade) {
            Recusar("texto precisa de " + std::to_string(valor.size() + 1) + " bytes");
        }
        std::memcpy(texto, valor.c_str(), valor.size() + 1);
    });
}

int32_t tarvo_adicionar_total_op(tarvo_objeto objeto, double x, double y, double total) {
    return Proteger(
        [&] { Usar<Objeto>(objeto)->Como<RelatorioPagamentos>().AdicionarTotalOP(x, y, total); });
}

int32_t tarvo_liberar(uint64_t identificador) {
    return Proteger([&] {
        if (identificador != 0) {
            Registro::DoProcesso().Liberar(identificador);
        }
    });
}
