// SPDX-License-Identifier: MIT
#include "host/commands/LinhaDeComando.h"

#include "data/Procura.h"
#include "host/commands/AnalisadorDeComando.h"
#include "host/commands/PalavraParecida.h"
#include "output/FormatoDeSaida.h"

namespace tarvo::host {

namespace {

using L = LinhaDeComando;

const Opcao Banco{"BANCO", "", &L::banco, "banco de declarações: arquivo, ou postgresql://…", true};
const Opcao Codificacao{"--codificacao", "N", &L::codificacao,
                        "página de código dos textos dos .mdb mais antigos (1252)"};
const Opcao IE{"--ie", "IE", &L::IE, "inscrição estadual (dispensada só por VELO)"};
const Opcao Drq{"--drq", "N", &L::drq, "número da declaração (dispensado por 01 e VELO)"};
const Opcao Relatorios{"--relatorios", "LISTA", &L::relatorios,
                       "todos, ou códigos separados por vírgulas: 01 a 17, 11A, VELO", true};
const Opcao Dpi{"--dpi", "N", &L::dpi, "pontos por polegada das páginas em png (150)"};
const Opcao RefAtual{"--ref-atual", "MM/AAAA", &L::refAtual,
                     "mês de referência atual, só nesta chamada; declaração é o de cada uma"};
const Chave SemEstrutura{"--sem-estrutura", &L::semEstrutura,
                         "deixa fora do pdf as marcas que os leitores de tela seguem"};
const Chave Json{"--json", &L::json, "escreve o resultado em JSON, um objeto por linha"};

const Lista Pastas{"PASTA", &L::pastas, "pastas do lote ou de partes dele"};

const std::vector<DefinicaoDeComando>& Definicoes() {
    static const std::vector<DefinicaoDeComando> definicoes{
        {Comando::Criar,
         "criar",
         "cria um banco de declarações vazio",
         {Banco},
         {{"--exemplo", &L::exemplo, "preenche o banco com um exemplo fictício"}}},
        {Comando::Copiar,
         "copiar",
         "copia um banco, ou declarações dele, para um arquivo novo ou um servidor",
         {Opcao{"ORIGEM", "", &L::banco, "banco de declarações", true},
          Opcao{"DESTINO", "", &L::saida, "arquivo novo, ou endereço de tabelas vazias", true},
          Opcao{"--ie", "IE", &L::IE, "só este contribuinte e suas declarações"},
          Opcao{"--drq", "N", &L::drq, "só esta declaração"}, Codificacao},
         {}},
        {Comando::Listar,
         "listar",
         "mostra os contribuintes e as declarações",
         {Banco, Codificacao},
         {Json}},
        {Comando::Exportar,
         "exportar",
         "grava relatórios de uma declaração em arquivos",
         {Banco, IE, Drq, Relatorios,
          Opcao{"--formato", "FMT", &L::formato, ListaDeFormatos(), true},
          Opcao{
              "--saida", "PASTA", &L::saida,
              "pasta dos arquivos, criada se não existe; - é a saída padrão, para um só relatório",
              true},
          Dpi, RefAtual, Codificacao},
         {SemEstrutura, Json}},
        {Comando::Lote,
         "lote",
         "grava os relatórios de muitas declarações, em paralelo",
         {Banco,
          Opcao{"--saida", "PASTA", &L::saida, "pasta dos arquivos, criada se não existe", true},
          Opcao{"--relatorios", "LISTA", &L::relatorios, "o mesmo que em exportar (todos)"},
          Opcao{"--formato", "FMT", &L::formato, "o mesmo que em exportar (pdf)"}, Dpi,
          Opcao{"--ie", "IE", &L::IE, "só as declarações deste contribuinte"},
          Opcao{"--de", "MM/AAAA", &L::de, "a partir deste mês de referência"},
          Opcao{"--ate", "MM/AAAA", &L::ate, "até este mês de referência"},
          Opcao{"--parte", "I/N", &L::parte,
                "só a I-ésima de N partes do lote, que outras chamadas completam"},
          Opcao{"--trabalhos", "N", &L::trabalhos, "quantos ao mesmo tempo (um por núcleo)"},
          RefAtual, Codificacao},
         {SemEstrutura,
          Json,
          {"--unico", &L::unico, "um só arquivo por declaração: pdf com marcadores, ou xlsx"},
          {"--retomar", &L::retomar,
           "continua um lote interrompido, sem refazer o que está pronto"}}},
        {Comando::LoteResumo,
         "lote-resumo",
         "junta os resumos das partes de um lote e diz o que falta",
         {},
         {Json},
         &Pastas},
        {Comando::Selecionar,
         "selecionar",
         "abre a seleção de relatórios de uma declaração",
         {Banco, IE, Drq,
          Opcao{"--opcoes", "BITS", &L::opcoes, "entradas já marcadas, bit a bit (0)"}, RefAtual,
          Codificacao},
         {}},
        {Comando::Imprimir,
         "imprimir",
         "imprime relatórios de uma declaração, sem perguntar",
         {Banco, IE, Drq, Relatorios,
          Opcao{"--impressora", "NOME", &L::impressora, "impressora (a padrão, se omitida)"},
          RefAtual, Codificacao},
         {}},
        {Comando::Verificar,
         "verificar",
         "diz o que no banco não sai nas páginas como se espera",
         {Banco, Opcao{"--ie", "IE", &L::IE, "só as declarações deste contribuinte"},
          Opcao{"--drq", "N", &L::drq, "só esta declaração"}, RefAtual, Codificacao},
         {Json}},
        {Comando::Velo,
         "velo",
         "mostra a guia de arrecadação VELO",
         {Banco, RefAtual, Codificacao},
         {}},
        {Comando::RefAtual,
         "ref-atual",
         "mostra ou define o mês de referência atual do usuário",
         {Opcao{"MM/AAAA", "", &L::refAtual, "novo valor"}},
         {}},
    };
    return definicoes;
}

const DefinicaoDeComando* Procurar(std::string_view nome) {
    return Achar(Definicoes(), nome, &DefinicaoDeComando::nome);
}

constexpr std::string_view OpcoesSemComando[] = {"--ajuda", "--help", "--versao"};

// The one argument of the program without a command, if it is one of these.
LinhaDeComando SemComando(const std::string& opcao) {
    LinhaDeComando linha;
    if (opcao == "-h" || opcao == "--ajuda" || opcao == "--help") {
        linha.ajuda = AjudaGeral(Definicoes());
    } else if (opcao == "--versao" || opcao == "--version") {
        linha.comando = Comando::Versao;
    } else {
        RecusarPalavra("a opção", opcao, PalavraParecida(opcao, OpcoesSemComando));
    }
    return linha;
}

}  // namespace

const std::vector<DefinicaoDeComando>& DefinicoesDosComandos() {
    return Definicoes();
}

LinhaDeComando AnalisarLinhaDeComando(const std::vector<std::string>& argumentos) {
    if (argumentos.empty()) {
        return SemComando("--ajuda");
    }
    if (const auto* definicao = Procurar(argumentos[0])) {
        return AnalisarComando(*definicao, {argumentos.begin() + 1, argumentos.end()});
    }
    const bool marca = argumentos[0] == "--";
    const auto banco = argumentos.begin() + (marca ? 1 : 0);
    LinhaDeComando linha;
    if (!marca && argumentos[0].starts_with('-')) {
        linha = SemComando(argumentos[0]);
    } else if (banco != argumentos.end() && !banco->empty()) {
        linha.comando = Comando::Janela;
        linha.banco = *banco;
    } else {
        throw UsoErrado("falta BANCO");
    }
    if (banco + 1 != argumentos.end()) {
        if (linha.comando == Comando::Janela) {
            const auto parecido = ComandoParecido(*banco);
            if (parecido.empty()) {
                throw UsoErrado("não há o comando \"" + *banco +
                                "\"; sem comando, dá-se só o BANCO");
            }
            RecusarPalavra("o comando", *banco, parecido);
        }
        throw UsoErrado("não esperado: " + *(banco + 1));
    }
    return linha;
}

std::string_view NomeDoComando(const std::vector<std::string>& argumentos) {
    const auto* definicao = argumentos.empty() ? nullptr : Procurar(argumentos[0]);
    return definicao != nullptr ? definicao->nome : std::string_view();
}

std::string_view ComandoParecido(std::string_view digitado) {
    std::vector<std::string_view> nomes(std::begin(OpcoesSemComando), std::end(OpcoesSemComando));
    for (const auto& definicao : Definicoes()) {
        nomes.push_back(definicao.nome);
    }
    return PalavraParecida(digitado, nomes);
}

}  // namespace tarvo::host
