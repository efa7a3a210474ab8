// Writes the own-operations assessment of a declaration as a PDF: exportar BANCO IE DRQ ARQUIVO
#include <cstdlib>
#include <iostream>

#include <relatoriostarvo/AbrirBanco.h>
#include <relatoriostarvo/CodigosDeErros.h>
#include <relatoriostarvo/RelatorioApuracaoOpProp.h>
#include <relatoriostarvo/RenderizadorPDF.h>

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "uso: exportar BANCO IE DRQ ARQUIVO\n";
        return 2;
    }
    try {
        // The file is only read: the report's work table is this connection's own.
        const auto banco =
            tarvo::AbrirBanco(argv[1], {.modo = tarvo::ModoAbertura::SomenteLeitura,
                                        .tabelasDeTrabalho = tarvo::TabelasDeTrabalho::Privadas});
        tarvo::RelatorioApuracaoOpProp relatorio;
        relatorio.Construir(*banco, argv[2], std::stoi(argv[3]));
        const auto resultado = tarvo::GravarPDF(relatorio.Documento(), argv[4]);
        std::cout << relatorio.Documento().titulo << ": " << resultado.paginas << " página(s)\n";
        return 0;
    } catch (const tarvo::Erro& erro) {
        std::cerr << "erro " << static_cast<int>(erro.Numero()) << ": " << erro.Descricao() << "\n";
    } catch (const std::exception&) {
        std::cerr << argv[3] << " não é o número de uma declaração\n";
    }
    return 1;
}
