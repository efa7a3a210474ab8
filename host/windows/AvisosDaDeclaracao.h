#pragma once

#include <QPushButton>
#include <QStringList>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "data/BancoDados.h"
#include "document/Ambiente.h"
#include "review/Revisao.h"

namespace tarvo::host {

// What is to be reviewed once the selection dialog has produced those entries of its list.
PedidoDeRevisao RevisaoDoProduzido(const std::string& IE, std::int32_t NroDRQ,
                                   std::span<const std::size_t> produzidos,
                                   const Configuracoes* configuracoes);

// Says how much of a declaration its pages do not show as expected, and lists it when it is
// pressed; out of sight when there is nothing to say.
class AvisosDaDeclaracao final : public QPushButton {
  public:
    explicit AvisosDaDeclaracao(QWidget* janela);

    void Mostrar(BancoDados& banco, const PedidoDeRevisao& pedido);
    void Esquecer();

  private:
    void Listar();

    QString declaracao_;
    QStringList avisos_;
};

}  // namespace tarvo::host
