// SPDX-License-Identifier: MIT
#include "host/commands/Mensagens.h"

#include <ostream>

#include "data/Legivel.h"
#include "data/Procura.h"
#include "reports/ReferenciaAtual.h"

namespace tarvo::host {

namespace {

struct Conselho {
    NumeroErro numero;
    const char* texto;
    const char* comoComando = nullptr;  // with what there is to be typed
};

constexpr Conselho Conselhos[] = {
    {NumeroErro::BancoNaoEncontrado, "Confira o caminho ou o endereço.",
     "Confira o caminho ou o endereço. Para criar um banco novo: relatorios-tarvo criar BANCO"},
    {NumeroErro::SenhaRecusada,
     "A senha vem do arquivo ~/.pgpass, da variável PGPASSWORD ou de um arquivo de serviço."},
    {NumeroErro::ServidorInacessivel, "Confira o endereço, a rede e se o servidor está no ar."},
    {NumeroErro::BancoIrreconhecivel,
     "Se já foi um banco de declarações, recorra a uma cópia de segurança."},
    {NumeroErro::BancoOcupado, "Feche o outro programa que usa o banco e tente de novo."},
    {NumeroErro::BancoSomenteLeitura,
     "Dê permissão de escrita ao arquivo e à sua pasta, ou trabalhe numa cópia."},
    {NumeroErro::BancoJaExiste, "Nada se substitui: escolha outro nome, ou remova antes o que há."},
    {NumeroErro::PermissaoNegada, "Confira as permissões do arquivo e da pasta."},
    {NumeroErro::DiscoCheio, "Libere espaço e tente de novo; o que já existia está intacto."},
    {NumeroErro::RegistroAtualAusente,
     "O contribuinte ou a declaração não existe no banco, ou não existe mais.",
     "O contribuinte ou a declaração não existe; relatorios-tarvo listar BANCO mostra os que "
     "existem."},
    {NumeroErro::TabelaInexistente, "O banco não tem todas as tabelas de um banco de declarações."},
    {NumeroErro::ArquivoJaExiste,
     "Acrescente --retomar para continuar esse lote, ou escolha outra pasta."},
    {NumeroErro::ErroImpressora, "Confira a impressora e o serviço de impressão (CUPS)."},
};

}  // namespace

void DizerLinhaDeErro(std::ostream& erros, const Erro& erro, std::string_view contexto) {
    erros << "erro " << static_cast<int>(erro.Numero()) << ": " << contexto
          << (contexto.empty() ? "" : ": ") << Legivel(erro.Descricao()) << "\n";
}

std::string_view ConselhoPara(const Erro& erro) {
    const auto* const conselho = Achar(Conselhos, erro.Numero(), &Conselho::numero);
    return conselho != nullptr ? conselho->texto : "";
}

void DizerConselho(std::ostream& erros, const Erro& erro, const Configuracoes* configuracoes) {
    if (const auto* const conselho = Achar(Conselhos, erro.Numero(), &Conselho::numero)) {
        erros << "  "
              << (conselho->comoComando != nullptr ? conselho->comoComando : conselho->texto)
              << "\n";
    }
    // The CFOP summaries need a setting that a new user has not made yet.
    if (erro.Numero() == NumeroErro::TipoIncompativel && configuracoes != nullptr &&
        LerRefAtual(*configuracoes).empty()) {
        erros << "  Informe o mês: relatorios-tarvo ref-atual MM/AAAA, ou --ref-atual\n";
    }
}

void DizerErro(std::ostream& erros, const Erro& erro, std::string_view contexto,
               const Configuracoes* configuracoes) {
    DizerLinhaDeErro(erros, erro, contexto);
    DizerConselho(erros, erro, configuracoes);
}

int DizendoErros(std::ostream& erros, std::string_view nome, const std::function<int()>& comando) {
    try {
        return comando();
    } catch (const UsoErrado& uso) {
        erros << "uso incorreto: " << Legivel(uso.what()) << "\n  Veja relatorios-tarvo " << nome
              << (nome.empty() ? "" : " ") << "--ajuda\n";
        return Incompreendido;
    } catch (...) {
        DizerErro(erros, ErroCorrente());
        return Falhou;
    }
}

}  // namespace tarvo::host
