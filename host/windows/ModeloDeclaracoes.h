// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QThreadPool>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "data/CodigosDeErros.h"
#include "host/windows/FonteDaLista.h"

namespace tarvo::host {

// The rows that were found in a list, a page of them at a time as they are looked at. What a source
// does not answer at once is asked on a thread of its own, the question asked last before all
// others; until it is answered the rows are those of the one before.
class ModeloDeclaracoes final : public QAbstractTableModel {
  public:
    using enum LinhaDaLista::Coluna;

    ModeloDeclaracoes();
    ~ModeloDeclaracoes() override;

    // Shows another list, empty until something was searched in it.
    void Abrir(std::shared_ptr<FonteDaLista> fonte);
    // The rows that have every word, in any column and without regard to case and accents.
    void Procurar(const QString& texto);
    void sort(int coluna, Qt::SortOrder ordem) override;
    // The same question again, of the same source.
    void Repetir();
    // Gives the question up; the rows stay those of the one before.
    void Desistir();

    // Whether a search waits for its answer; whether anything does.
    [[nodiscard]] bool Procurando() const { return procurando_; }
    [[nodiscard]] bool Ocupado() const { return emCurso_ != nullptr; }
    // What the rows that are shown have.
    [[nodiscard]] const QString& Texto() const { return texto_; }
    // How long the source itself has been waiting for what it needs; zero while it works.
    [[nodiscard]] std::chrono::milliseconds Espera() const;

    [[nodiscard]] const ChaveDaLista& Em(int linha) const {
        return achadas_.chaves.at(static_cast<std::size_t>(linha));
    }
    // Of the declarations: those that were found, and all.
    [[nodiscard]] int Mostradas() const { return mostradas_; }
    [[nodiscard]] std::int64_t Todas() const { return achadas_.declaracoes; }
    [[nodiscard]] bool HaMais() const { return achadas_.haMais; }

    // To be set before the model is used: something is asked that is not answered at once; the
    // answer to a search has come; the texts of rows have come; what was asked for has failed.
    std::function<void()> aoPerguntar;
    std::function<void()> aoAchar;
    std::function<void()> aoLer;
    std::function<void(const Erro& erro)> aoFalhar;

    [[nodiscard]] int rowCount(const QModelIndex& pai = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& pai = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override;
    [[nodiscard]] QVariant headerData(int secao, Qt::Orientation orientacao,
                                      int papel) const override;

  private:
    // Ends what runs on the other thread.
    class Interruptor final : public Acompanhante {
      public:
        bool Continuar(std::chrono::milliseconds aguardando) override {
            espera = aguardando;
            return !interrompido;
        }
        std::atomic<bool> interrompido = false;
        std::atomic<std::chrono::milliseconds> espera{};
    };

    void Perguntar();
    void Interromper();
    void PerguntarOProximo();
    template <class Trabalho, class Depois>
    void Correr(Trabalho trabalho, Depois depois);
    void Receber(LinhasAchadas achadas, const QString& texto);
    void Trocar(LinhasAchadas achadas, const QString& texto);
    void LerPagina(int pagina);
    [[nodiscard]] std::span<const ChaveDaLista> ChavesDa(int pagina) const;
    const std::vector<LinhaDaLista>& Guardar(int pagina, std::vector<LinhaDaLista> linhas) const;
    // nullptr: it was asked for.
    [[nodiscard]] const LinhaDaLista* Linha(int linha) const;

    std::shared_ptr<FonteDaLista> fonte_;
    BuscaNaLista busca_;
    QString textoPedido_;
    bool procurando_ = false;
    bool porPerguntar_ = false;

    QString texto_;  // of the rows that are shown
    LinhasAchadas achadas_;
    int mostradas_ = 0;
    mutable std::map<int, std::vector<LinhaDaLista>> paginas_;
    mutable std::optional<int> paginaPedida_;  // looked at and not there, the last one
    mutable QTimer agenda_;                    // asks for it once the view has looked

    std::shared_ptr<Interruptor> emCurso_;
    QThreadPool fila_;
};

}  // namespace tarvo::host
