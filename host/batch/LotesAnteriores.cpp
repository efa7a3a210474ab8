#include "host/batch/LotesAnteriores.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "host/batch/ResumoLote.h"

namespace tarvo::host {

namespace {

namespace fs = std::filesystem;

// Tells of each line of the summary whether it stays.
class Conferencia {
  public:
    Conferencia(const Argumentos& a, const std::vector<DeclaracaoDoLote>& declaracoes,
                ArquivosProntos& prontos)
        : a_(a), declaracoes_(declaracoes), prontos_(prontos) {}

    bool Manter(const LinhaResumo& linha) {
        const DeclaracaoDoLote* declaracao = Procurar(declaracoes_, linha.NroDRQ);
        if (declaracao == nullptr || !Pertence(linha.relatorio)) {
            return true;
        }
        if (linha.erro != 0) {
            // The one file of a declaration lacks this report.
            incompletas_.insert(linha.NroDRQ);
            return false;
        }
        if (linha.arquivo != ArquivoNoLote(*declaracao, linha.relatorio, *a_.saida.formato)) {
            return true;
        }
        if (!Inteiro(linha) || (a_.unico && incompletas_.contains(linha.NroDRQ))) {
            return false;
        }
        prontos_.Acrescentar(linha.NroDRQ, linha.relatorio);
        return true;
    }

  private:
    [[nodiscard]] bool Pertence(const std::string& relatorio) const {
        return relatorio == CodigoUnico || a_.todos ||
               std::find(a_.codigos.begin(), a_.codigos.end(), relatorio) != a_.codigos.end();
    }
    [[nodiscard]] bool Inteiro(const LinhaResumo& linha) const {
        std::error_code erro;
        return fs::file_size(a_.saida.pasta / linha.arquivo, erro) == linha.bytes && !erro;
    }

    const Argumentos& a_;
    const std::vector<DeclaracaoDoLote>& declaracoes_;
    ArquivosProntos& prontos_;
    std::set<std::int32_t> incompletas_;
};

}  // namespace

std::uint64_t ArquivosProntos::Chave(std::int32_t NroDRQ, const std::string& codigo) {
    // Four letters tell all codes apart, CodigoUnico too.
    std::uint32_t letras = 0;
    for (const char c : codigo.substr(0, 4)) {
        letras = letras << 8U | static_cast<unsigned char>(c);
    }
    return std::uint64_t{static_cast<std::uint32_t>(NroDRQ)} << 32U | letras;
}

void ArquivosProntos::Acrescentar(std::int32_t NroDRQ, const std::string& codigo) {
    chaves_.push_back(Chave(NroDRQ, codigo));
}

void ArquivosProntos::Ordenar() {
    std::ranges::sort(chaves_);
}

bool ArquivosProntos::Contem(std::int32_t NroDRQ, const std::string& codigo) const {
    return std::ranges::binary_search(chaves_, Chave(NroDRQ, codigo));
}

ArquivosProntos Retomar(const Argumentos& a, const std::vector<DeclaracaoDoLote>& declaracoes) {
    ArquivosProntos prontos;
    Conferencia conferencia(a, declaracoes, prontos);
    FiltrarResumo(a.saida.pasta,
                  [&](const LinhaResumo& linha) { return conferencia.Manter(linha); });
    prontos.Ordenar();
    return prontos;
}

}  // namespace tarvo::host
