// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "host/batch/LinhaResumo.h"
#include "tests/host/Programa.h"

// Batches over the example database.
namespace tarvo::host {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

using DatasPorNome = std::map<std::string, fs::file_time_type>;

// The taxpayer of declarations 101 to 103.
const std::string DoPrimeiro = " --ie 250114377019";

class ComLote : public ComExemplo {
  protected:
    [[nodiscard]] std::string Chamada(const std::string& outros) const {
        return "lote " + Banco() + " --saida " + Saida() + " --ref-atual 07/2003 " + outros;
    }
    Execucao RodarLote(const std::string& outros = "", const std::string& antes = "exec") {
        return Rodar(Chamada(outros), antes);
    }

    // The example's ten declarations sixty times more, so that a batch takes a while.
    void Multiplicar() {
        Executar(
            "create temp table n as with recursive r(i) as (select 1 union all select i + 1 from r "
            "where i < 60) select i from r;"
            "insert into tblDRQ select NroDRQ + 1000 * i, IE, Ref1, Ref2, Tipo, RegTrib, "
            "Consistente, Autenticação, SaldoCredAntDig, ICMSFixPerRES, OutrasRES, DeduçõesRPA, "
            "SaldoCredAntDigST, DeduçõesST from tblDRQ, n;");
    }
    // Until a running batch has come that far, or ends.
    static void Esperar(const Programa& lote, const std::function<bool()>& chegou) {
        while (lote.Ativo() && !chegou()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    // Of the output, when each file but the summaries was written.
    DatasPorNome Datas() {
        DatasPorNome datas;
        for (const auto& nome : Arquivos(Saida())) {
            if (!nome.starts_with("resumo")) {
                datas[nome] = fs::last_write_time(Saida(nome));
            }
        }
        return datas;
    }
    // Those of these files that are others by now.
    std::vector<std::string> Refeitos(const DatasPorNome& antes) {
        std::vector<std::string> refeitos;
        for (const auto& [nome, data] : antes) {
            if (fs::last_write_time(Saida(nome)) != data) {
                refeitos.push_back(nome);
            }
        }
        return refeitos;
    }
    // Each file is a whole PDF, or the summary.
    void ConferirInteiros() {
        for (const auto& [nome, data] : Datas()) {
            EXPECT_THAT(apoio::BytesDe(Saida(nome)),
                        AllOf(StartsWith("%PDF"), testing::EndsWith("%%EOF\n")))
                << nome;
        }
    }

    // The lines of the summary of files and failures, by declaration and report.
    std::map<std::pair<int, std::string>, LinhaResumo> Resumo(
        const std::string& nome = "resumo.csv") {
        std::map<std::pair<int, std::string>, LinhaResumo> linhas;
        std::istringstream resumo(apoio::BytesDe(Saida(nome)));
        std::string registro;
        std::getline(resumo, registro);
        for (LeitorDeRegistros leitor(resumo);
             leitor.Proximo(registro) && registro.ends_with("\r\n");) {
            const auto linha = Lida(registro);
            EXPECT_TRUE(linha) << registro;
            if (linha && linha->relatorio != CodigoLote && linha->relatorio != CodigoFim) {
                EXPECT_TRUE(linhas.try_emplace({linha->NroDRQ, linha->relatorio}, *linha).second)
                    << "twice: " << registro;
            }
        }
        return linhas;
    }
};

}  // namespace tarvo::host
