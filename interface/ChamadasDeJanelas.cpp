// SPDX-License-Identifier: MIT
#include "interface/ArgumentosDaChamada.h"
#include "interface/ErroDaChamada.h"
#include "interface/Janelas.h"
#include "interface/Objetos.h"
#include "interface/relatoriostarvo.h"

// The calls that open windows or print.

using namespace tarvo;
using namespace tarvo::c;

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
        uso->ConferirThreadDasJanelas();
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

int32_t tarvo_imprimir_em(tarvo_objeto objeto, const char* impressora) {
    return Proteger([&] {
        const auto uso = Usar<Objeto>(objeto);
        const auto& relatorio = uso->Como<RelatorioDeclaracao>();
        const std::string nome = LerTexto(impressora, "impressora");
        uso->UsarImpressao();
        ExigirAreaDeTrabalho().ImprimirEm(relatorio.Documento(), nome);
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
