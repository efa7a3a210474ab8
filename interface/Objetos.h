// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/BancoDados.h"
#include "dispatch/RevisorDosRelatorios.h"
#include "interface/ClassesPublicas.h"
#include "interface/Registro.h"
#include "interface/relatoriostarvo.h"
#include "output/pdf/RenderizadorPDF.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

// The three kinds of things that a program holds in the C interface.
namespace tarvo::c {

class Banco : public Recurso {
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

// Tells a program's function how a build goes on, when it has one.
class AndamentoDoPrograma final : public Andamento {
  public:
    void Definir(tarvo_andamento funcao, void* contexto) {
        funcao_ = funcao;
        contexto_ = contexto;
    }
    void Iniciar() { paginas_ = 0; }
    bool PaginaConcluida(std::size_t paginas) override {
        paginas_ = paginas;
        return Perguntar();
    }
    bool Continuar(std::chrono::milliseconds /*aguardando*/) override { return Perguntar(); }

  private:
    bool Perguntar() { return funcao_ == nullptr || funcao_(contexto_, paginas_) == 0; }

    tarvo_andamento funcao_ = nullptr;
    void* contexto_ = nullptr;
    std::size_t paginas_ = 0;
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

    // Null takes it back.
    void DefinirAndamento(tarvo_andamento andamento, void* contexto) {
        andamento_.Definir(andamento, contexto);
    }
    // Before the object is built anew.
    void IniciarConstrucao() {
        cortados.clear();
        andamento_.Iniciar();
    }

    // Before printing, and before opening a window: error 445 without a desktop (for windows,
    // without a screen), or in a thread that is not the windows'.
    void UsarImpressao();
    void UsarJanelas();
    // Error 445 when it has windows and this is not their thread.
    void ConferirThreadDasJanelas() const;
    void ConferirLiberacao() const override { ConferirThreadDasJanelas(); }

    // The texts that the last PDF of this object had to cut.
    std::vector<TextoCortado> cortados;

  private:
    [[noreturn]] void RecusarOperacao() const;

    std::string nome_;
    ConfiguracoesIni doUsuario_;
    ConfiguracoesDaChamada configuracoes_{doUsuario_};
    AndamentoDoPrograma andamento_;
    RevisorDosRelatorios revisor_{configuracoes_};
    bool comJanelas_ = false;
    ObjetoPublico objeto_;
};

}  // namespace tarvo::c
