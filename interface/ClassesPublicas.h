// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>
#include <variant>

#include "data/Publico.h"
#include "dispatch/Relatorios.h"
#include "dispatch/frmImpressaoRelatorios.h"
#include "document/Relatorio.h"

// The public classes by the names under which programs ask for them.
namespace tarvo {

// An object of a public class: the entry class, or one of the report classes. What only one report
// class offers is reached by a dynamic_cast to it.
using ObjetoPublico = std::variant<std::unique_ptr<Relatorios>, std::unique_ptr<Relatorio>>;

// Creates an object of the public class registered as nome: "RelatoriosTarvo." followed by the
// class's name ("RelatoriosTarvo.RelatorioCadastro"). What ambiente points to and janela outlive
// it. Errors: 429 for an internal or unknown class, 445 for "RelatoriosTarvo.Relatorios" without a
// janela.
TARVO_PUBLICO ObjetoPublico CriarObjeto(std::string_view nome, const Ambiente& ambiente = {},
                                        JanelaSelecao* janela = nullptr);

}  // namespace tarvo
