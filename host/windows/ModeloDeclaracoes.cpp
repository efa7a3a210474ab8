// SPDX-License-Identifier: MIT
#include "host/windows/ModeloDeclaracoes.h"

#include <algorithm>

#include "desktop/ApoioQt.h"
#include "desktop/SegundoPlano.h"
#include "desktop/preview/BuscaTexto.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* Titulos[] = {"Razão social", "Inscrição estadual", "CNPJ",
                                   "DRQ",          "Referência",         "Regime",
                                   "Tipo",         "Consistência"};
constexpr int PorPagina = 100;  // rows
constexpr std::size_t PaginasGuardadas = 50;

}  // namespace

ModeloDeclaracoes::ModeloDeclaracoes() {
    agenda_.setSingleShot(true);
    Ligar(&agenda_, &QTimer::timeout, this, [this] { PerguntarOProximo(); });
}

ModeloDeclaracoes::~ModeloDeclaracoes() {
    Interromper();
}

void ModeloDeclaracoes::Abrir(std::shared_ptr<FonteDaLista> fonte) {
    Interromper();
    fonte_ = std::move(fonte);
    Trocar({}, {});
}

void ModeloDeclaracoes::Procurar(const QString& texto) {
    textoPedido_ = texto;
    Perguntar();
}

void ModeloDeclaracoes::sort(int coluna, Qt::SortOrder ordem) {
    busca_.coluna = coluna;
    busca_.decrescente = ordem == Qt::DescendingOrder;
    Perguntar();
}

void ModeloDeclaracoes::Repetir() {
    Perguntar();
}

void ModeloDeclaracoes::Desistir() {
    Interromper();
    textoPedido_ = texto_;
}

void ModeloDeclaracoes::Interromper() {
    procurando_ = false;
    porPerguntar_ = false;
    if (emCurso_ != nullptr) {
        emCurso_->interrompido = true;
    }
}

std::chrono::milliseconds ModeloDeclaracoes::Espera() const {
    return emCurso_ == nullptr || emCurso_->interrompido ? std::chrono::milliseconds()
                                                         : emCurso_->espera.load();
}

void ModeloDeclaracoes::Perguntar() {
    if (fonte_ == nullptr) {
        return;
    }
    Interromper();
    busca_.palavras = BuscaTexto::Dobrar(textoPedido_).split(u' ', Qt::SkipEmptyParts);
    if (fonte_->Imediata()) {
        return Receber(fonte_->Procurar(busca_, nullptr), textoPedido_);
    }
    procurando_ = true;
    porPerguntar_ = true;
    PerguntarOProximo();
}

// Searches before rows: the rows may not be there any more.
void ModeloDeclaracoes::PerguntarOProximo() {
    if (emCurso_ != nullptr || fonte_ == nullptr) {
        return;
    }
    if (std::exchange(porPerguntar_, false)) {
        Correr([busca = busca_](FonteDaLista& fonte,
                                Acompanhante& quem) { return fonte.Procurar(busca, &quem); },
               [this, texto = textoPedido_](LinhasAchadas achadas) {
                   procurando_ = false;
                   Receber(std::move(achadas), texto);
               });
    } else if (const auto pagina = std::exchange(paginaPedida_, std::nullopt);
               pagina && !procurando_) {
        LerPagina(*pagina);
    }
}

// One after the other; the answer of one that was interrupted is nobody's.
template <class Trabalho, class Depois>
void ModeloDeclaracoes::Correr(Trabalho trabalho, Depois depois) {
    emCurso_ = std::make_shared<Interruptor>();
    aoPerguntar();
    EmSegundoPlano(
        this, fila_,
        [fonte = fonte_, quem = emCurso_, trabalho = std::move(trabalho)] {
            return trabalho(*fonte, *quem);
        },
        [this, quem = emCurso_, depois = std::move(depois)](auto resposta) {
            emCurso_ = nullptr;
            if (!quem->interrompido) {
                if (auto* const erro = std::get_if<Erro>(&resposta)) {
                    procurando_ = false;
                    aoFalhar(*erro);
                } else {
                    depois(std::move(std::get<0>(resposta)));
                }
            }
            PerguntarOProximo();
        });
}

void ModeloDeclaracoes::Receber(LinhasAchadas achadas, const QString& texto) {
    Trocar(std::move(achadas), texto);
    aoAchar();
    if (fonte_->Imediata()) {
        aoLer();
    }
}

void ModeloDeclaracoes::Trocar(LinhasAchadas achadas, const QString& texto) {
    beginResetModel();
    achadas_ = std::move(achadas);
    mostradas_ = static_cast<int>(std::ranges::count_if(
        achadas_.chaves, [](const ChaveDaLista& chave) { return chave.NroDRQ.has_value(); }));
    texto_ = texto;
    paginas_.clear();
    paginaPedida_.reset();
    endResetModel();
}

void ModeloDeclaracoes::LerPagina(int pagina) {
    const auto chaves = ChavesDa(pagina);
    if (chaves.empty()) {
        return;
    }
    Correr([chaves = std::vector(chaves.begin(), chaves.end())](
               FonteDaLista& fonte, Acompanhante& quem) { return fonte.Ler(chaves, &quem); },
           [this, pagina](std::vector<LinhaDaLista> linhas) {
               Guardar(pagina, std::move(linhas));
               // Of all rows, so that the view asks again for others that it has missed.
               Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, Colunas - 1));
               aoLer();
           });
}

std::span<const ChaveDaLista> ModeloDeclaracoes::ChavesDa(int pagina) const {
    const std::span todas(achadas_.chaves);
    const auto primeira = std::min(static_cast<std::size_t>(pagina) * PorPagina, todas.size());
    return todas.subspan(primeira, std::min<std::size_t>(PorPagina, todas.size() - primeira));
}

const std::vector<LinhaDaLista>& ModeloDeclaracoes::Guardar(
    int pagina, std::vector<LinhaDaLista> linhas) const {
    // Those that are looked at come again as soon as they are missed.
    if (paginas_.size() >= PaginasGuardadas) {
        paginas_.clear();
    }
    return paginas_[pagina] = std::move(linhas);
}

const LinhaDaLista* ModeloDeclaracoes::Linha(int linha) const {
    const int pagina = linha / PorPagina;
    const auto lugar = static_cast<std::size_t>(linha % PorPagina);
    if (const auto achada = paginas_.find(pagina); achada != paginas_.end()) {
        return &achada->second.at(lugar);
    }
    if (fonte_->Imediata()) {
        return &Guardar(pagina, fonte_->Ler(ChavesDa(pagina), nullptr)).at(lugar);
    }
    paginaPedida_ = pagina;
    agenda_.start();
    return nullptr;
}

int ModeloDeclaracoes::rowCount(const QModelIndex& pai) const {
    return pai.isValid() ? 0 : static_cast<int>(achadas_.chaves.size());
}

int ModeloDeclaracoes::columnCount(const QModelIndex& pai) const {
    return pai.isValid() ? 0 : Colunas;
}

QVariant ModeloDeclaracoes::data(const QModelIndex& indice, int papel) const {
    if (papel == Qt::DisplayRole || papel == Qt::ToolTipRole) {
        const LinhaDaLista* const linha = Linha(indice.row());
        return linha == nullptr ? u"…"_s
                                : linha->textos.at(static_cast<std::size_t>(indice.column()));
    }
    if (papel == Qt::TextAlignmentRole && indice.column() == Numero) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    return {};
}

QVariant ModeloDeclaracoes::headerData(int secao, Qt::Orientation orientacao, int papel) const {
    if (papel == Qt::DisplayRole && orientacao == Qt::Horizontal) {
        return ParaQt(Titulos[secao]);
    }
    return {};
}

}  // namespace tarvo::host
