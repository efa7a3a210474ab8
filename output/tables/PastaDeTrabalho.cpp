// SPDX-License-Identifier: MIT
#include "output/tables/PastaDeTrabalho.h"

#include <locale.h>
#include <sys/mman.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <mutex>

#include "data/CodigosDeErros.h"
#include "document/Momento.h"
#include "output/tables/PartesInteiras.h"

namespace tarvo {

namespace {

[[noreturn]] void LancarFalha(const std::string& motivo) {
    throw Erro(NumeroErro::ErroDispositivo,
               "A planilha não pôde ser montada: " + motivo +
                   ". Veja se há espaço na pasta dos arquivos temporários (TMPDIR).");
}

// The library writes numbers with the decimal sign of the thread's locale; a workbook's is the
// point.
class NumerosComPonto {
  public:
    NumerosComPonto() : c_(newlocale(LC_ALL_MASK, "C", nullptr)), anterior_(uselocale(c_)) {}
    ~NumerosComPonto() {
        uselocale(anterior_);
        if (c_ != nullptr) {
            freelocale(c_);
        }
    }
    NumerosComPonto(const NumerosComPonto&) = delete;
    NumerosComPonto& operator=(const NumerosComPonto&) = delete;

  private:
    locale_t c_;
    locale_t anterior_;
};

std::time_t SegundosDesde1970(const Momento& momento) {
    using namespace std::chrono;
    const DataCivil& c = momento.declarado;
    const year_month_day dia{year(c.ano), month(static_cast<unsigned>(c.mes)),
                             day(static_cast<unsigned>(c.dia))};
    return system_clock::to_time_t(sys_days(dia) + hours(c.hora) + minutes(c.minuto) +
                                   seconds(c.segundo) - minutes(momento.deslocamento));
}

std::string Ler(int arquivo) {
    const off_t tamanho = lseek(arquivo, 0, SEEK_END);
    std::string bytes(static_cast<std::size_t>(std::max<off_t>(tamanho, 0)), '\0');
    std::size_t lidos = 0;
    while (lidos < bytes.size()) {
        const auto n =
            pread(arquivo, bytes.data() + lidos, bytes.size() - lidos, static_cast<off_t>(lidos));
        if (n <= 0) {
            LancarFalha("não pôde ser lida de volta");
        }
        lidos += static_cast<std::size_t>(n);
    }
    return bytes;
}

}  // namespace

void ConferirPlanilha(int erro) {
    if (erro != LXW_NO_ERROR) {
        LancarFalha(lxw_strerror(static_cast<lxw_error>(erro)));
    }
}

void PastaDeTrabalho::Liberar::operator()(lxw_workbook* pasta) const {
    lxw_workbook_free(pasta);
}

PastaDeTrabalho::PastaDeTrabalho() : arquivo_(memfd_create("planilha", MFD_CLOEXEC)) {
    const std::string nome = "/proc/self/fd/" + std::to_string(arquivo_.Valor());
    pasta_.reset(arquivo_.Valor() < 0 ? nullptr : workbook_new(nome.c_str()));
    if (pasta_ == nullptr) {
        LancarFalha("falta memória");
    }
    lxw_doc_properties propriedades{};
    propriedades.created = SegundosDesde1970(Momento::Agora());
    ConferirPlanilha(workbook_set_properties(pasta_.get(), &propriedades));
}

lxw_worksheet& PastaDeTrabalho::NovaFolha(const std::string& nome) {
    auto* const folha = workbook_add_worksheet(pasta_.get(), nome.c_str());
    if (folha == nullptr) {
        LancarFalha("a folha \"" + nome + "\" foi recusada");
    }
    return *folha;
}

lxw_format* PastaDeTrabalho::Formato(EstiloDeCelula estilo, bool negrito) {
    auto& formato = formatos_.at(2 * static_cast<std::size_t>(estilo) + (negrito ? 1 : 0));
    if (formato != nullptr) {
        return formato;
    }
    formato = workbook_add_format(pasta_.get());
    if (formato == nullptr) {
        LancarFalha("falta memória");
    }
    format_set_align(formato, LXW_ALIGN_VERTICAL_TOP);
    if (negrito) {
        format_set_bold(formato);
    }
    switch (estilo) {
        case EstiloDeCelula::TextoQuebrado:
            format_set_text_wrap(formato);
            break;
        case EstiloDeCelula::Quantia:
            format_set_align(formato, LXW_ALIGN_RIGHT);
            format_set_num_format(formato, "#,##0.00");
            break;
        case EstiloDeCelula::Dia:
            format_set_align(formato, LXW_ALIGN_LEFT);
            format_set_num_format(formato, "dd/mm/yyyy");
            break;
        default:
            break;
    }
    return formato;
}

std::string PastaDeTrabalho::Fechar() {
    const NumerosComPonto numeros;
    // The library writes the moment through gmtime, whose result all threads share.
    static std::mutex umPorVez;
    const std::scoped_lock trava(umPorVez);
    ConferirPlanilha(workbook_close(pasta_.release()));
    std::string bytes = Ler(arquivo_.Valor());
    if (!PartesInteiras(bytes)) {
        LancarFalha("uma parte dela ficou incompleta");
    }
    return bytes;
}

}  // namespace tarvo
