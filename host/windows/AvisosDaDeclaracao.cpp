#include "host/windows/AvisosDaDeclaracao.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "dispatch/Catalogo.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

PedidoDeRevisao RevisaoDoProduzido(const std::string& IE, std::int32_t NroDRQ,
                                   std::span<const std::size_t> produzidos,
                                   const Configuracoes* configuracoes) {
    PedidoDeRevisao pedido{.IE = IE, .NroDRQ = NroDRQ, .configuracoes = configuracoes};
    for (const std::size_t produzido : produzidos) {
        pedido.relatorios.emplace_back(Catalogo()[produzido].codigo);
    }
    return pedido;
}

AvisosDaDeclaracao::AvisosDaDeclaracao(QWidget* janela) : QPushButton(janela) {
    setObjectName(u"avisos"_s);
    setFlat(true);
    hide();
    Ligar(this, &QPushButton::clicked, this, [this] { Listar(); });
}

void AvisosDaDeclaracao::Mostrar(BancoDados& banco, const PedidoDeRevisao& pedido) {
    Esquecer();
    for (const Achado& achado : Revisar(banco, pedido)) {
        avisos_ << ParaQt(TextoDoAchado(achado));
    }
    declaracao_ = u"DRQ %1"_s.arg(pedido.NroDRQ.value_or(0));
    const auto quantos = avisos_.size() == 1 ? u"1 a&viso"_s : u"%1 a&visos"_s.arg(avisos_.size());
    setText(declaracao_ + u": "_s + quantos);
    setToolTip(u"O que as páginas não mostram como se espera"_s);
    setVisible(!avisos_.isEmpty());
}

void AvisosDaDeclaracao::Esquecer() {
    avisos_.clear();
    hide();
}

void AvisosDaDeclaracao::Listar() {
    QDialog dialogo(window());
    dialogo.setWindowTitle(declaracao_ + u" — o que as páginas não mostram como se espera"_s);
    auto* lista = new QListWidget(&dialogo);
    lista->setWordWrap(true);
    lista->addItems(avisos_);
    lista->setCurrentRow(0);
    auto* fechar = new QDialogButtonBox(QDialogButtonBox::Close, &dialogo);
    Ligar(fechar, &QDialogButtonBox::rejected, &dialogo, [&dialogo] { dialogo.reject(); });
    auto* conteudo = new QVBoxLayout(&dialogo);
    conteudo->addWidget(lista);
    conteudo->addWidget(fechar);
    dialogo.resize(720, 360);
    dialogo.exec();
}

}  // namespace tarvo::host
