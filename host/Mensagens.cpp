#include "host/Mensagens.h"

#include <ostream>

namespace tarvo::host {

namespace {

struct Conselho {
    NumeroErro numero;
    const char* texto;
};

constexpr Conselho Conselhos[] = {
    {NumeroErro::BancoNaoEncontrado,
     "Confira o caminho. Para criar um banco novo: relatorios-tarvo criar BANCO"},
    {NumeroErro::BancoIrreconhecivel,
     "O arquivo não é um banco de declarações, ou está danificado; recorra a uma cópia de "
     "segurança."},
    {NumeroErro::BancoOcupado, "Feche o outro programa que usa o banco e tente de novo."},
    {NumeroErro::BancoSomenteLeitura,
     "Dê permissão de escrita ao arquivo e à sua pasta, ou trabalhe numa cópia."},
    {NumeroErro::BancoJaExiste, "Escolha outro nome ou remova antes o arquivo."},
    {NumeroErro::PermissaoNegada, "Confira as permissões do arquivo e da pasta."},
    {NumeroErro::DiscoCheio, "Libere espaço e tente de novo; o que já existia está intacto."},
    {NumeroErro::RegistroAtualAusente,
     "A declaração não existe; relatorios-tarvo listar BANCO mostra as que existem."},
    {NumeroErro::TabelaInexistente, "O banco não tem todas as tabelas de um banco de declarações."},
    {NumeroErro::ErroImpressora, "Confira a impressora e o serviço de impressão (CUPS)."},
};

}  // namespace

void DizerErro(std::ostream& erros, const Erro& erro, std::string_view contexto) {
    erros << "erro " << static_cast<int>(erro.Numero()) << ": ";
    if (!contexto.empty()) {
        erros << contexto << ": ";
    }
    erros << erro.Descricao() << "\n";
    for (const auto& conselho : Conselhos) {
        if (conselho.numero == erro.Numero()) {
            erros << "  " << conselho.texto << "\n";
        }
    }
}

int DizendoErros(std::ostream& erros, const std::function<int()>& comando) {
    try {
        return comando();
    } catch (const UsoErrado& uso) {
        erros << "uso incorreto: " << uso.what() << "\n  Veja relatorios-tarvo --ajuda\n";
        return Incompreendido;
    } catch (const Erro& erro) {
        DizerErro(erros, erro);
        return Falhou;
    }
}

}  // namespace tarvo::host
