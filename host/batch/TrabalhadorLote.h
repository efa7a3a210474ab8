// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "databases/OrigemBanco.h"
#include "host/batch/ProgressoLote.h"
#include "host/batch/ResumoLote.h"
#include "host/batch/SelecaoLote.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/RelatoriosPorCodigo.h"
#include "review/Achado.h"

namespace tarvo::host {

// What the workers of a batch share; all of it outlives them.
struct LoteEmCurso {
    const Argumentos& argumentos;
    const OrigemBanco& fonte;  // opened for reading alone, work tables are each worker's own
    const Configuracoes& configuracoes;
    const std::string& dadosComuns;  // their hash
    ResumoLote& resumo;
    ProgressoLote& progresso;
};

// One thread of a batch with its connection.
class TrabalhadorLote {
  public:
    explicit TrabalhadorLote(const LoteEmCurso& lote);

    // Makes the files of a declaration that are not there as they would be made now, and writes
    // into the summary what came of each. A failure that every other report would meet too is
    // raised.
    void Produzir(const DeclaracaoDoLote& declaracao);

  private:
    // A declaration on its way.
    struct Producao {
        const DeclaracaoDoLote& declaracao;
        const Configuracoes& configuracoes;
        std::string dados = {};  // their hash
        std::vector<ResumoLote::LinhaAnterior> anteriores = {};
        std::vector<Achado> achados = {};
        bool revista = false;
        ContagemDaDeclaracao contagem = {};
    };
    // One file, or one for each page.
    struct Arquivo {
        std::string relatorio;  // as in the summary
        std::filesystem::path pasta;
        std::string nome;  // without its ending
        std::vector<std::string> codigos;
    };

    // The reports of a file as far as they could be built.
    struct Construidos {
        std::vector<std::unique_ptr<Relatorio>> relatorios = {};
        std::vector<DocumentoDeSaida> documentos = {};
        std::vector<std::string> codigos = {};
        std::string refAtual = {};  // empty where none asked for it
    };

    // In the order in which a file is made.
    std::vector<std::string> Preparar(Producao& producao);
    void ProduzirArquivo(Producao& producao, const Arquivo& arquivo);
    // Once a declaration: what its pages do not show, said now and in its lines of the summary.
    void RevisarDeclaracao(Producao& producao);
    [[nodiscard]] std::string_view Diferenca(const LinhaResumo& anterior, const Producao& producao,
                                             const Arquivo& arquivo) const;
    Construidos Construir(const Producao& producao, const Arquivo& arquivo);
    void GravarEAnotar(const Producao& producao, const Arquivo& arquivo,
                       const Construidos& construidos);

    [[nodiscard]] std::string Opcoes(const std::vector<std::string>& codigos) const;
    void DescartarFalhas(const Producao& producao, const std::vector<std::string>& codigos);
    template <class Passo>
    void Tentar(const Producao& producao, const std::string& relatorio, Passo&& passo);

    const LoteEmCurso& lote_;
    CancelaSeInterrompido andamento_;
    std::unique_ptr<BancoDados> banco_;
};

}  // namespace tarvo::host
