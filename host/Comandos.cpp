#include "host/Comandos.h"

#include <map>
#include <ostream>

#include "databases/AbrirBanco.h"
#include "databases/sqlite/BancoSQLite.h"
#include "document/QuadroPagina.h"
#include "host/batch/Lote.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Declaracoes.h"
#include "host/commands/Impressao.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "host/commands/Preparo.h"
#include "host/commands/ProgramaDeJanelas.h"
#include "host/example/Exemplo.h"
#include "reports/ReferenciaAtual.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

void EscreverDeclaracao(std::ostream& saida, const Declaracao& d) {
    const std::string_view regime = RegimeTributario(d.regime);
    saida << "  DRQ " << d.NroDRQ;
    for (const std::string_view parte :
         {std::string_view(d.referencia), regime.empty() ? std::string_view(d.regime) : regime,
          std::string_view(d.tipo), std::string_view(d.consistente ? "" : "não consistida")}) {
        saida << (parte.empty() ? "" : "  ") << parte;
    }
    saida << "\n";
}

int Listar(const Argumentos& a, std::ostream& saida, std::ostream& erros) {
    const CapturaDeInterrupcao captura;
    CancelaSeInterrompido andamento(&erros);
    const auto banco = AbrirBanco(a.banco, {.modo = ModoAbertura::SomenteLeitura});
    const Acompanhamento acompanhamento(*banco, &andamento);
    const auto contribuintes = LerContribuintes(*banco);
    std::map<std::optional<std::string>, std::vector<Declaracao>> declaracoes;
    for (auto& declaracao : LerDeclaracoes(*banco)) {
        declaracoes[declaracao.IE].push_back(std::move(declaracao));
    }
    if (contribuintes.empty() && declaracoes.empty()) {
        erros << "aviso: o banco não tem contribuintes nem declarações\n";
    }
    const auto escrever = [&](const std::vector<Declaracao>& lista) {
        for (const auto& declaracao : lista) {
            EscreverDeclaracao(saida, declaracao);
        }
    };
    for (const auto& contribuinte : contribuintes) {
        saida << contribuinte.IE << "  " << contribuinte.razaoSocial << "\n";
        const auto dele = declaracoes.extract(contribuinte.IE);
        if (!dele.empty()) {
            escrever(dele.mapped());
        }
    }
    for (const auto& [IE, lista] : declaracoes) {
        saida << (IE ? *IE + "  (contribuinte ausente do banco)\n"
                     : "Declarações sem contribuinte no banco (informe --ie)\n");
        escrever(lista);
    }
    return Feito;
}

int Exportar(const Argumentos& a, std::ostream& saida, std::ostream& erros) {
    return ParaCadaRelatorio(a, erros, [&](const std::string& codigo, const Relatorio& relatorio) {
        auto resultado = GravarRelatorio(codigo, relatorio, a.saida);
        saida << NomeDoArquivo(codigo) << "  " << resultado.paginas
              << (resultado.paginas == 1 ? " página\n" : " páginas\n");
        return std::move(resultado.cortados);
    });
}

int RefAtual(const Argumentos& a, std::ostream& saida) {
    using namespace AjusteRefAtual;
    ConfiguracoesIni configuracoes;
    if (a.refAtual) {
        configuracoes.Gravar(Aplicacao, Secao, Chave, *a.refAtual);
    } else {
        const std::string atual = configuracoes.Ler(Aplicacao, Secao, Chave, "");
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
            CriarBanco(a.banco, a.exemplo ? ScriptDeExemplo() : "");
            return Feito;
        case Comando::Listar:
            return Listar(a, saida, erros);
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
    return DizendoErros(erros, [&] {
        const int situacao = Despachar(argumentos, saida, erros);
        if (!saida.flush()) {
            throw Erro(NumeroErro::ErroDispositivo, "A saída padrão não pôde ser escrita.");
        }
        return situacao;
    });
}

}  // namespace tarvo::host
