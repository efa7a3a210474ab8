// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "host/batch/LinhaResumo.h"
#include "host/batch/Parte.h"
#include "system/files/Descritor.h"
#include "system/files/PastaDeEspera.h"

namespace tarvo::host {

// The summary of a batch or of a part of one, which is also its journal: a line is written as soon
// as its file is complete, so that a stopped batch knows what it need not do again. It also names
// the folder where the batch keeps everything temporary. Lines that cannot be read stay as they
// are. It is locked as long as this object, among the machines that share its folder too where
// their file system knows locks. Several threads may call. Errors: those of Arquivos.h, error 5 for
// a file that is no such summary and in a folder of a batch in other parts, 20006 while another
// batch works with it.
class ResumoLote {
  public:
    // Begins the folder's summary, error 58 when it has one; or, to go on, opens it where there is
    // one. lote: what this batch is made from (see CodigoLote); its arquivo is filled in.
    ResumoLote(const std::filesystem::path& pasta, const Parte& parte, bool retomar,
               LinhaResumo lote);
    ~ResumoLote();
    ResumoLote(const ResumoLote&) = delete;
    ResumoLote& operator=(const ResumoLote&) = delete;

    // Where all that is temporary stands, as long as this object.
    [[nodiscard]] const std::filesystem::path& Temporarios() const { return espera_->Caminho(); }
    // What the earlier run was made from.
    [[nodiscard]] const std::optional<LinhaResumo>& LoteAnterior() const { return loteAnterior_; }

    // The lines of an earlier run for a declaration, the last one for each file and each failure.
    struct LinhaAnterior {
        LinhaResumo linha;
        std::uint64_t posicao = 0;
    };
    std::vector<LinhaAnterior> Anteriores(std::int32_t NroDRQ);
    // That line no longer holds.
    void Descartar(std::uint64_t posicao);

    void Acrescentar(const LinhaResumo& linha);
    // The last line of a declaration (see CodigoFim), which goes when all are done.
    void Concluir(const LinhaResumo& linha);
    // Takes out what no longer holds. todas: every declaration is done. The last call.
    void Terminar(bool todas);

  private:
    // With the place of each: the records that the end of the batch leaves.
    void PercorrerQueFicam(
        const std::function<void(const std::string&, std::uint64_t)>& receber) const;

    struct Lugar {
        std::int32_t NroDRQ = 0;
        std::uint64_t posicao = 0;
    };

    void Travar();
    // Whether the last line lacks its end.
    bool LerAnteriores();
    // Returns where it stands.
    std::uint64_t Escrever(const std::string& texto);

    const std::filesystem::path arquivo_;
    std::optional<Descritor> saida_;
    std::uint64_t tamanho_ = 0;
    std::unique_ptr<PastaDeEspera> espera_;
    std::optional<LinhaResumo> loteAnterior_;
    LinhaResumo lote_;
    std::uint64_t posicaoDoLote_ = 0;
    std::vector<Lugar> lugares_;  // of earlier lines, by declaration
    std::mutex mutex_;
    std::ifstream leitura_;
    std::vector<std::uint64_t> descartadas_;
    std::vector<std::uint64_t> fins_;
};

}  // namespace tarvo::host
