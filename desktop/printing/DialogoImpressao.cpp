// SPDX-License-Identifier: MIT
#include "desktop/printing/DialogoImpressao.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "desktop/ApoioQt.h"
#include "desktop/SegundoPlano.h"
#include "desktop/printing/EscolhaDePaginas.h"

namespace tarvo {

using namespace Qt::StringLiterals;

DialogoImpressao::DialogoImpressao(QWidget* pai, const std::vector<Impressora>& impressoras,
                                   int paginas, Alcance alcance)
    : QDialog(pai),
      totalDePaginas_(paginas),
      alcance_(alcance),
      impressora_(new QComboBox(this)),
      paginas_(new QLineEdit(this)),
      folhas_(new QComboBox(this)),
      inversa_(new QCheckBox(u"Da úl&tima para a primeira"_s, this)),
      copias_(new QSpinBox(this)),
      lados_(new QComboBox(this)),
      escala_(new QComboBox(this)),
      aviso_(new QLabel(this)) {
    setObjectName(u"dialogoImpressao"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Imprimir"_s);
    auto* campos = new QFormLayout(this);
    CriarCampos(*campos, impressoras);
    auto* botoes = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    imprimir_ = botoes->addButton(u"&Imprimir"_s, QDialogButtonBox::AcceptRole);
    imprimir_->setObjectName(u"imprimir"_s);
    imprimir_->setDefault(true);
    campos->addRow(botoes);
    Ligar(botoes, &QDialogButtonBox::accepted, this, [this] { accept(); });
    Ligar(botoes, &QDialogButtonBox::rejected, this, [this] { reject(); });
    Conferir();
    Consultar();
}

DialogoImpressao::~DialogoImpressao() {
    *cancelar_ = true;
}

void DialogoImpressao::Preferir(const QString& impressora) {
    if (const int qual = impressora_->findText(impressora); qual >= 0) {
        impressora_->setCurrentIndex(qual);
    }
}

void DialogoImpressao::CriarCampos(QFormLayout& campos,
                                   const std::vector<Impressora>& impressoras) {
    for (const auto& impressora : impressoras) {
        impressora_->addItem(ParaQt(impressora.nome));
        if (impressora.padrao) {
            impressora_->setCurrentIndex(impressora_->count() - 1);
        }
    }
    impressora_->setObjectName(u"impressora"_s);
    paginas_->setObjectName(u"paginas"_s);
    paginas_->setPlaceholderText(u"todas (ou, por exemplo, 1,3-5)"_s);
    paginas_->setMinimumWidth(fontMetrics().horizontalAdvance(paginas_->placeholderText()) + 24);
    folhas_->setObjectName(u"folhas"_s);
    folhas_->addItems({u"ímpares e pares"_s, u"só as ímpares"_s, u"só as pares"_s});
    inversa_->setObjectName(u"inversa"_s);
    copias_->setObjectName(u"copias"_s);
    copias_->setRange(1, 999);
    lados_->setObjectName(u"lados"_s);
    lados_->addItems({u"como na impressora"_s, u"só a frente"_s,
                      u"frente e verso, virando na borda longa"_s,
                      u"frente e verso, virando na borda curta"_s});
    escala_->setObjectName(u"escala"_s);
    escala_->addItems({u"100 % (tamanho real)"_s, u"ajustado à folha"_s});
    aviso_->setObjectName(u"aviso"_s);
    campos.addRow(u"Im&pressora:"_s, impressora_);
    campos.addRow(u"Pá&ginas:"_s, paginas_);
    campos.addRow(u"&Das quais:"_s, folhas_);
    campos.addRow({}, inversa_);
    campos.addRow(u"&Cópias:"_s, copias_);
    campos.addRow(u"&Lados:"_s, lados_);
    campos.addRow(u"Ta&manho:"_s, escala_);
    campos.addRow(aviso_);
    for (QWidget* campo : {static_cast<QWidget*>(paginas_), static_cast<QWidget*>(folhas_),
                           static_cast<QWidget*>(inversa_)}) {
        campos.setRowVisible(campo, alcance_ == Alcance::UmDocumento);
    }
    Ligar(impressora_, &QComboBox::currentIndexChanged, this, [this] { Consultar(); });
    Ligar(paginas_, &QLineEdit::textChanged, this, [this] { Conferir(); });
    Ligar(folhas_, &QComboBox::currentIndexChanged, this, [this] { Conferir(); });
}

// Nothing can be printed that is not there.
void DialogoImpressao::Conferir() {
    const auto paginas = LerPaginas(paginas_->text().toStdString(), totalDePaginas_);
    const bool alguma = paginas && !Escolha().paginas.empty();
    imprimir_->setEnabled(alguma);
    aviso_->setText(!paginas ? u"As páginas vão de 1 a %1."_s.arg(totalDePaginas_)
                    : alguma ? QString()
                             : u"Nenhuma página escolhida."_s);
}

void DialogoImpressao::Consultar() {
    MostrarRecursos({});
    if (cancelar_ != nullptr) {
        *cancelar_ = true;
    }
    cancelar_ = std::make_shared<std::atomic<bool>>(false);
    EmSegundoPlano(
        this,
        [nome = impressora_->currentText().toStdString(), cancelar = cancelar_] {
            return ConsultarRecursos(nome, cancelar.get());
        },
        [this, esta = cancelar_](const std::variant<RecursosDaImpressora, Erro>& resultado) {
            // A printer that does not answer supports nothing; printing will say why.
            if (const auto* recursos = std::get_if<RecursosDaImpressora>(&resultado);
                recursos != nullptr && esta == cancelar_) {
                MostrarRecursos(*recursos);
            }
        });
}

void DialogoImpressao::MostrarRecursos(const RecursosDaImpressora& recursos) {
    auto& campos = *static_cast<QFormLayout*>(layout());
    campos.setRowVisible(copias_, recursos.copias && alcance_ == Alcance::UmDocumento);
    campos.setRowVisible(lados_, recursos.frenteEVerso);
    campos.setRowVisible(escala_, recursos.escala);
}

EscolhaDeImpressao DialogoImpressao::Escolha() const {
    EscolhaDeImpressao escolha;
    escolha.opcoes.impressora = impressora_->currentText().toStdString();
    // What is hidden was not chosen.
    if (!copias_->isHidden()) {
        escolha.opcoes.copias = copias_->value();
    }
    if (!lados_->isHidden()) {
        escolha.opcoes.lados = static_cast<Lados>(lados_->currentIndex());
    }
    escolha.opcoes.ajustar = !escala_->isHidden() && escala_->currentIndex() == 1;
    escolha.paginas = Filtrar(
        LerPaginas(paginas_->text().toStdString(), totalDePaginas_).value_or(std::vector<int>()),
        static_cast<Folhas>(folhas_->currentIndex()), inversa_->isChecked());
    return escolha;
}

}  // namespace tarvo
