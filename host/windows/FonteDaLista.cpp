// SPDX-License-Identifier: MIT
#include "host/windows/FonteDaLista.h"

#include <QCollator>
#include <algorithm>
#include <map>

#include "desktop/ApoioQt.h"
#include "desktop/preview/BuscaTexto.h"
#include "dispatch/Declaracoes.h"
#include "document/QuadroPagina.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

namespace {

const QString Consistida = u"Consistida"_s;
const QString NaoConsistida = u"Não consistida"_s;

void PorContribuinte(LinhaDaLista& linha, const Contribuinte& contribuinte) {
    linha.chave.IE = contribuinte.IE;
    linha.textos[LinhaDaLista::RazaoSocial] = ParaQt(contribuinte.razaoSocial);
    linha.textos[LinhaDaLista::IE] = ParaQt(contribuinte.IE);
    linha.textos[LinhaDaLista::CNPJ] = ParaQt(contribuinte.CNPJ);
}

LinhaDaLista LinhaDe(const Declaracao& declaracao) {
    LinhaDaLista linha;
    linha.chave = {declaracao.IE.value_or(""), declaracao.NroDRQ};
    linha.referencia = declaracao.ref1.Serial();
    linha.textos[LinhaDaLista::IE] = ParaQt(linha.chave.IE);
    linha.textos[LinhaDaLista::Numero] = QString::number(declaracao.NroDRQ);
    linha.textos[LinhaDaLista::Referencia] = ParaQt(declaracao.referencia);
    const auto regime = RegimeTributario(declaracao.regime);
    linha.textos[LinhaDaLista::Regime] =
        ParaQt(regime.empty() ? std::string_view(declaracao.regime) : regime);
    linha.textos[LinhaDaLista::Tipo] = ParaQt(declaracao.tipo);
    linha.textos[LinhaDaLista::Consistente] = declaracao.consistente ? Consistida : NaoConsistida;
    return linha;
}

// Places in a list of rows, for who asks for some by their keys.
using Lugares = std::map<std::pair<std::optional<std::int32_t>, std::string>, std::size_t>;

std::pair<std::optional<std::int32_t>, std::string> Lugar(const ChaveDaLista& chave) {
    return {chave.NroDRQ, chave.NroDRQ ? "" : chave.IE};
}

Lugares LugaresDe(const std::vector<LinhaDaLista>& linhas) {
    Lugares lugares;
    for (std::size_t i = 0; i < linhas.size(); ++i) {
        lugares.emplace(Lugar(linhas[i].chave), i);
    }
    return lugares;
}

std::vector<LinhaDaLista> Escolher(const std::vector<LinhaDaLista>& linhas, const Lugares& lugares,
                                   std::span<const ChaveDaLista> chaves) {
    std::vector<LinhaDaLista> escolhidas;
    for (const ChaveDaLista& chave : chaves) {
        const auto achada = lugares.find(Lugar(chave));
        auto& linha = escolhidas.emplace_back(achada == lugares.end() ? LinhaDaLista()
                                                                      : linhas[achada->second]);
        if (achada == lugares.end()) {
            linha.chave = chave;
            linha.textos[LinhaDaLista::IE] = ParaQt(chave.IE);
            linha.textos[LinhaDaLista::Numero] =
                chave.NroDRQ ? QString::number(*chave.NroDRQ) : QString();
        }
    }
    return escolhidas;
}

class NaMemoria final : public FonteDaLista {
  public:
    explicit NaMemoria(BancoDados& banco)
        : linhas_(LerLinhas(banco)), lugares_(LugaresDe(linhas_)) {
        for (const LinhaDaLista& linha : linhas_) {
            QString& busca = buscas_.emplace_back();
            for (const QString& texto : linha.textos) {
                busca += BuscaTexto::Dobrar(texto) + u' ';
            }
            declaracoes_ += linha.chave.NroDRQ ? 1 : 0;
        }
    }

    [[nodiscard]] bool Imediata() const override { return true; }

    LinhasAchadas Procurar(const BuscaNaLista& busca, Acompanhante* /*quem*/) override {
        std::vector<std::size_t> ordem;
        for (std::size_t i = 0; i < linhas_.size(); ++i) {
            if (std::ranges::all_of(busca.palavras, [&](const QString& palavra) {
                    return buscas_[i].contains(palavra);
                })) {
                ordem.push_back(i);
            }
        }
        Ordenar(ordem, busca);
        LinhasAchadas achadas;
        achadas.declaracoes = declaracoes_;
        for (const std::size_t i : ordem) {
            achadas.chaves.push_back(linhas_[i].chave);
        }
        return achadas;
    }

    std::vector<LinhaDaLista> Ler(std::span<const ChaveDaLista> chaves,
                                  Acompanhante* /*quem*/) override {
        return Escolher(linhas_, lugares_, chaves);
    }

  private:
    void Ordenar(std::vector<std::size_t>& ordem, const BuscaNaLista& busca) const {
        const auto ordenar = [&](const auto& chave) {
            std::ranges::stable_sort(ordem, [&](std::size_t a, std::size_t b) {
                return busca.decrescente ? chave(b) < chave(a) : chave(a) < chave(b);
            });
        };
        if (busca.coluna == LinhaDaLista::Numero) {
            return ordenar([&](std::size_t i) { return linhas_[i].chave.NroDRQ; });
        }
        ordenar([&](std::size_t i) { return linhas_[i].referencia; });
        if (busca.coluna != LinhaDaLista::Referencia) {
            QCollator alfabeto(QLocale(QLocale::Portuguese, QLocale::Brazil));
            alfabeto.setCaseSensitivity(Qt::CaseInsensitive);
            std::vector<QCollatorSortKey> chaves;
            for (const LinhaDaLista& linha : linhas_) {
                chaves.push_back(
                    alfabeto.sortKey(linha.textos.at(static_cast<std::size_t>(busca.coluna))));
            }
            ordenar([&](std::size_t i) -> const QCollatorSortKey& { return chaves[i]; });
        }
    }

    std::vector<LinhaDaLista> linhas_;
    Lugares lugares_;
    std::vector<QString> buscas_;  // all texts of a row, folded
    std::int64_t declaracoes_ = 0;
};

// The characters that fold to each.
const std::map<QChar, QString>& Formas() {
    static const auto Todas = [] {
        std::map<QChar, QString> formas;
        constexpr std::pair<char16_t, char16_t> Latinos[] = {{u'A', u'\u024F'},
                                                             {u'\u1E00', u'\u1EFF'}};
        for (const auto& [primeiro, ultimo] : Latinos) {
            for (char16_t c = primeiro; c <= ultimo; ++c) {
                const QString dobrado = BuscaTexto::Dobrar(QChar(c));
                if (QChar(c).isLetter() && dobrado.size() == 1) {
                    formas[dobrado[0]] += QChar(c);
                }
            }
        }
        return formas;
    }();
    return Todas;
}

// A regular expression of the server's that finds a folded word however it is written.
std::string Padrao(const QString& palavra) {
    QString padrao;
    for (const QChar c : palavra) {
        const auto formas = Formas().find(c);
        if (formas != Formas().end()) {
            padrao += u'[' + formas->second + u"][\u0300-\u036F]*"_s;
        } else {
            padrao += c.isLetterOrNumber() || c.isSurrogate() ? QString(c) : u'\\' + QString(c);
        }
    }
    return padrao.toStdString();
}

postgresql::TextosDaLista TextosDosCodigos() {
    postgresql::TextosDaLista textos{.regimes = {},
                                     .tipos = {},
                                     .consistida = Consistida.toStdString(),
                                     .naoConsistida = NaoConsistida.toStdString()};
    for (int codigo = 0; codigo < 10; ++codigo) {
        const std::string numero = std::to_string(codigo);
        if (const auto regime = RegimeTributario("0" + numero); !regime.empty()) {
            textos.regimes.emplace_back("0" + numero, regime);
        }
        if (const auto tipo = TipoDaDRQ(codigo); !tipo.empty()) {
            textos.tipos.emplace_back(numero, tipo);
        }
    }
    return textos;
}

class NoServidor final : public FonteDaLista {
  public:
    explicit NoServidor(const std::string& endereco) : lista_(endereco, TextosDosCodigos()) {}

    [[nodiscard]] bool Imediata() const override { return false; }

    LinhasAchadas Procurar(const BuscaNaLista& busca, Acompanhante* quem) override {
        postgresql::PedidoDaLista pedido{
            .padroes = {},
            .ordem = static_cast<postgresql::ColunaDaLista>(busca.coluna),
            .decrescente = busca.decrescente};
        for (const QString& palavra : busca.palavras) {
            pedido.padroes.push_back(Padrao(palavra));
        }
        return lista_.Procurar(pedido, quem);
    }

    std::vector<LinhaDaLista> Ler(std::span<const ChaveDaLista> chaves,
                                  Acompanhante* quem) override {
        const auto linhas = LerLinhas(*lista_.Ler(chaves, quem));
        return Escolher(linhas, LugaresDe(linhas), chaves);
    }

  private:
    postgresql::ListaNoServidor lista_;
};

}  // namespace

std::vector<LinhaDaLista> LerLinhas(BancoDados& banco) {
    std::map<QString, Contribuinte> contribuintes;
    const auto chave = [](const std::string& IE) { return ParaQt(IE).toLower(); };
    for (auto& contribuinte : LerContribuintes(banco)) {
        contribuintes.emplace(chave(contribuinte.IE), contribuinte);
    }
    auto semDeclaracao = contribuintes;
    std::vector<LinhaDaLista> linhas;
    for (const auto& declaracao : LerDeclaracoes(banco)) {
        auto& linha = linhas.emplace_back(LinhaDe(declaracao));
        const auto achado = contribuintes.find(chave(linha.chave.IE));
        if (achado != contribuintes.end()) {
            PorContribuinte(linha, achado->second);
            semDeclaracao.erase(achado->first);
        }
    }
    for (const auto& [IE, contribuinte] : semDeclaracao) {
        PorContribuinte(linhas.emplace_back(), contribuinte);
    }
    return linhas;
}

std::unique_ptr<FonteDaLista> ListarNaMemoria(BancoDados& banco) {
    return std::make_unique<NaMemoria>(banco);
}

std::unique_ptr<FonteDaLista> ListarNoServidor(const std::string& endereco) {
    return std::make_unique<NoServidor>(endereco);
}

}  // namespace tarvo::host
