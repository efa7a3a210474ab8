#include "host/Comandos.h"

#include <filesystem>
#include <ostream>

#include "document/QuadroPagina.h"
#include "host/Argumentos.h"
#include "host/Declaracoes.h"
#include "host/Impressao.h"
#include "host/Lote.h"
#include "host/Mensagens.h"
#include "host/Preparo.h"
#include "host/ProgramaDeJanelas.h"
#include "host/exemplo/Exemplo.h"
#include "platform/configuracoes/ConfiguracoesIni.h"
#include "platform/sqlite/BancoSQLite.h"

namespace tarvo::host {

namespace {

int Criar(const Argumentos& a) {
    CriarBanco(a.banco);
    if (a.exemplo) {
        try {
            BancoSQLite::Abrir(a.banco)->ExecutarScript(ScriptDeExemplo());
        } catch (...) {
            std::error_code ignorado;
            std::filesystem::remove(a.banco, ignorado);
            throw;
        }
    }
    return Feito;
}

void EscreverDeclaracao(std::ostream& saida, const Declaracao& d) {
    saida << "  DRQ " << d.NroDRQ << "  " << d.referencia << "  "
          << (RegimeTributario(d.regime).empty() ? std::string_view(d.regime)
                                                 : RegimeTributario(d.regime))
          << "  " << d.tipo << (d.consistente ? "" : "  não consistida") << "\n";
}

int Listar(const Argumentos& a, std::ostream& saida) {
    const auto banco = BancoSQLite::Abrir(a.banco, {.modo = ModoAbertura::SomenteLeitura});
    const auto declaracoes = LerDeclaracoes(*banco);
    std::vector<bool> escritas(declaracoes.size());
    for (const auto& contribuinte : LerContribuintes(*banco)) {
        saida << contribuinte.IE << "  " << contribuinte.razaoSocial << "\n";
        for (std::size_t i = 0; i < declaracoes.size(); ++i) {
            if (declaracoes[i].IE == contribuinte.IE) {
                EscreverDeclaracao(saida, declaracoes[i]);
                escritas[i] = true;
            }
        }
    }
    bool titulo = false;
    for (std::size_t i = 0; i < declaracoes.size(); ++i) {
        if (!escritas[i]) {
            if (!titulo) {
                saida << "Declarações sem contribuinte no banco (informe --ie)\n";
                titulo = true;
            }
            EscreverDeclaracao(saida, declaracoes[i]);
        }
    }
    return Feito;
}

int Exportar(const Argumentos& a, std::ostream& saida, std::ostream& erros) {
    return ParaCadaRelatorio(a, erros, [&](const std::string& codigo, const Relatorio& relatorio) {
        ResultadoPDF resultado = Gravar(codigo, relatorio, a.destino);
        saida << NomeDoArquivo(codigo) << "  " << resultado.paginas
              << (resultado.paginas == 1 ? " página\n" : " páginas\n");
        return resultado;
    });
}

int RefAtual(const Argumentos& a, std::ostream& saida) {
    ConfiguracoesIni configuracoes;
    if (a.refAtual) {
        configuracoes.Gravar("Tarvo", "pRef", "RefAtual", *a.refAtual);
    } else {
        const std::string atual = configuracoes.Ler("Tarvo", "pRef", "RefAtual", "");
        saida << (atual.empty() ? "não definido" : atual) << "\n";
    }
    return Feito;
}

int Despachar(const std::vector<std::string>& argumentos, std::ostream& saida,
              std::ostream& erros) {
    const Argumentos a = LerArgumentos(argumentos);
    switch (a.comando) {
        case Comando::Ajuda:
            saida << a.ajuda;
            return Feito;
        case Comando::Criar:
            return Criar(a);
        case Comando::Listar:
            return Listar(a, saida);
        case Comando::Exportar:
            return Exportar(a, saida, erros);
        case Comando::Lote:
            return ExecutarLote(a, saida, erros);
        case Comando::RefAtual:
            return RefAtual(a, saida);
        case Comando::Imprimir:
            return ImprimirRelatorios(a, saida, erros);
        case Comando::Selecionar:
        case Comando::Velo:
        case Comando::Janela:
            PassarAoProgramaDeJanelas(argumentos);
    }
    return Falhou;
}

}  // namespace

int Executar(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros) {
    return DizendoErros(erros, [&] { return Despachar(argumentos, saida, erros); });
}

}  // namespace tarvo::host
