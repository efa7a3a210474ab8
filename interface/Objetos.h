#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/BancoDados.h"
#include "interface/ClassesPublicas.h"
#include "interface/Registro.h"
#include "output/pdf/RenderizadorPDF.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

// The three kinds of things that a program holds in the C interface.
namespace tarvo::c {

class Banco final : public Recurso {
  public:
    explicit Banco(std::unique_ptr<BancoDados> banco) : banco_(std::move(banco)) {}
    BancoDados& operator*() { return *banco_; }

  private:
    std::unique_ptr<BancoDados> banco_;
};

class Memoria final : public Recurso {
  public:
    explicit Memoria(std::string conteudo) : conteudo_(std::move(conteudo)) {}
    [[nodiscard]] const std::string& Bytes() const { return conteudo_; }

  private:
    std::string conteudo_;
};

// An object of a public class with what its host gave it.
class Objeto final : public Recurso {
  public:
    // Error 429 for a name that is no public class's.
    explicit Objeto(std::string_view nome);

    Relatorios& EntradaDasClasses();
    Relatorio& DeRelatorio();
    // The report as one of its class; error 438 when it is none.
    template <class R>
    R& Como() {
        auto* relatorio = dynamic_cast<R*>(&DeRelatorio());
        if (relatorio == nullptr) {
            RecusarOperacao();
        }
        return *relatorio;
    }
    // The host's current reference month in place of the user's setting; error 13 when it is none.
    void DefinirReferencia(std::optional<std::string> mesAno);

    // Before printing, and before opening a window: error 445 without a desktop (for windows,
    // without a screen), or in a thread that is not the windows'.
    void UsarImpressao();
    void UsarJanelas();
    // Error 445 when it has windows and this is not their thread.
    void ConferirLinhaDasJanelas() const;
    void ConferirLiberacao() const override { ConferirLinhaDasJanelas(); }

    // The texts that the last PDF of this object had to cut.
    std::vector<TextoCortado> cortados;

  private:
    [[noreturn]] void RecusarOperacao() const;

    std::string nome_;
    ConfiguracoesIni doUsuario_;
    ConfiguracoesDaChamada configuracoes_{doUsuario_};
    bool comJanelas_ = false;
    ObjetoPublico objeto_;
};

}  // namespace tarvo::c
