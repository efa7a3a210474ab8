// SPDX-License-Identifier: MIT
#include <algorithm>
#include <map>

#include "data/Formatos.h"
#include "dispatch/Catalogo.h"
#include "review/Revisao.h"
#include "tests/support/Apoio.h"
#include "tests/support/BancoSorteado.h"

// Every row of a declaration is on a page exactly once, under its own code and with its amount, or
// the review names it; and the review names no other row. Both are read from recorded documents.
namespace tarvo::apoio {
namespace {

// The texts of a row of cells.
using LinhaLida = std::vector<std::string>;

// The rows of a report; none when it ended with an error.
struct PaginasLidas {
    bool falhou = false;
    std::vector<LinhaLida> linhas;

    [[nodiscard]] std::ptrdiff_t Com(const std::vector<std::string>& textos) const {
        return std::ranges::count_if(linhas, [&](const LinhaLida& linha) {
            return std::ranges::all_of(textos, [&](const std::string& texto) {
                return std::ranges::find(linha, texto) != linha.end();
            });
        });
    }
};

std::vector<LinhaLida> LerLinhas(const Conteudo& conteudo) {
    std::vector<LinhaLida> linhas;
    for (const Pagina& pagina : conteudo.paginas) {
        double topo = -1;
        for (const Primitiva& primitiva : pagina) {
            if (const auto* moldura = std::get_if<RetanguloArredondado>(&primitiva);
                moldura != nullptr && moldura->caixa.y != topo) {
                topo = moldura->caixa.y;
                linhas.emplace_back();
            } else if (const auto* texto = std::get_if<Texto>(&primitiva);
                       texto && !linhas.empty()) {
                linhas.back().push_back(texto->texto);
            }
        }
    }
    return linhas;
}

std::map<std::string, PaginasLidas> LerRelatorios(BancoDados& banco, const Ambiente& ambiente) {
    std::map<std::string, PaginasLidas> lidos;
    for (const auto& entrada : Catalogo()) {
        PaginasLidas& lido = lidos[std::string(entrada.codigo)];
        const auto relatorio = entrada.criar(ambiente);
        try {
            relatorio->Construir(banco, "1", 1);
            lido.linhas = LerLinhas(relatorio->Documento());
        } catch (const Erro&) {
            lido.falhou = true;
        }
    }
    return lidos;
}

// How often the row of that amount is in a printed sum (see PotenciaDeQuatro).
std::int64_t Vezes(Moeda parcela, const std::string& soma) {
    const Moeda valor = Moeda::DeTexto(soma);
    return valor.DecimosMilesimos() / parcela.DecimosMilesimos() % 4;
}

bool EhQuantia(const std::string& texto) {
    return texto.size() > 3 && texto[texto.size() - 3] == ',';
}

// One declaration's rows against its pages: how many rows of each table are not as they should be
// on the pages of each report.
class Conferencia {
  public:
    Conferencia(const BancoSorteado& b, const std::map<std::string, PaginasLidas>& paginas)
        : b_(b), paginas_(paginas) {
        Detalhes();
        Operacoes();
        Notas();
        Midax();
        Subitens();
        for (const std::string& RE : b_.registros) {
            Conferir("16", "tblRegistroExportação", !RE.empty() && Paginas("16").Com({RE}) == 1);
        }
        Pagamentos();
    }

    // Relatorio and tabela of rows, and how many are wrong.
    std::map<std::pair<std::string, std::string>, std::size_t> erradas;

  private:
    const PaginasLidas& Paginas(const std::string& relatorio) { return paginas_.at(relatorio); }
    void Conferir(const std::string& relatorio, const std::string& tabela, bool certa) {
        erradas[{relatorio, tabela}] += certa ? 0 : 1;
    }
    // The printed line of an assessment's field.
    std::int64_t VezesNoCampo(const std::string& relatorio, Moeda valor) {
        std::int64_t vezes = 0;
        for (const LinhaLida& linha : Paginas(relatorio).linhas) {
            if (linha.size() == 5 && (linha[3] == "051" || linha[3] == "056")) {
                vezes += Vezes(valor, linha[4]);
            }
        }
        return vezes;
    }

    void Detalhes() {
        const std::string tabela = "tblDetalhesCFOPs";
        for (const auto& [CFOP, coluna, valor] : b_.detalhes) {
            const char grupo = CFOP && !CFOP->empty() ? (*CFOP)[0] : ' ';
            const bool entrada = grupo >= '1' && grupo <= '3';
            if (!entrada && (grupo < '5' || grupo > '7')) {
                Conferir("", tabela, false);
                continue;
            }
            const std::string relatorio = entrada ? "02" : "03";
            Conferir(relatorio, tabela, Paginas(relatorio).Com({*CFOP, FormatarValor(valor)}) == 1);
            if (coluna.starts_with("Imp") && coluna != "Imposto") {
                Conferir("14", tabela, VezesNoCampo("14", valor) == 1);
            } else if (coluna == "Imposto") {
                Conferir("10", tabela, VezesNoCampo("10", valor) == 1);
            }
        }
    }

    // How often the row of that amount is in the sums of a line.
    static std::int64_t VezesNaLinha(const LinhaLida& linha, Moeda valor) {
        std::int64_t vezes = 0;
        for (const std::string& texto : linha) {
            vezes += EhQuantia(texto) && linha[0] != "Total" ? Vezes(valor, texto) : 0;
        }
        return vezes;
    }

    void Operacoes() {
        const std::map<std::string, std::string> rotulos{{"A3", "RJ. Rio"}, {"35", b_.rotulo35}};
        for (const OperacaoSorteada& o : b_.operacoes) {
            const char grupo = o.CFOP && !o.CFOP->empty() ? (*o.CFOP)[0] : ' ';
            const std::string relatorio = grupo == '2' ? "04" : grupo == '6' ? "05" : "";
            const auto rotulo = o.UF ? rotulos.find(*o.UF) : rotulos.end();
            std::int64_t vezes = 0;
            bool soDela = rotulo != rotulos.end();
            for (const LinhaLida& linha :
                 relatorio.empty() ? std::vector<LinhaLida>() : Paginas(relatorio).linhas) {
                if (const auto daLinha = VezesNaLinha(linha, o.valor); daLinha > 0) {
                    vezes += daLinha;
                    soDela = soDela && linha[0] == rotulo->second &&
                             std::ranges::none_of(b_.operacoes, [&](const OperacaoSorteada& outra) {
                                 return outra.UF != o.UF && VezesNaLinha(linha, outra.valor) > 0;
                             });
                }
            }
            Conferir(relatorio, "tblDetalhesInterUFs", vezes == 1 && soDela);
        }
    }

    void Notas() {
        const std::map<std::string, std::string> nomes{{"m1", "Manaus/AM"}, {"M2", "Tefé/AM"}};
        for (const auto& [CFOP, municipio, data, valor] : b_.notas) {
            const auto nome = municipio ? nomes.find(*municipio) : nomes.end();
            std::size_t vezes = 0;
            bool comNome = false;
            std::string grupo;
            for (const LinhaLida& linha : Paginas("06").linhas) {
                if (linha[0] == "CFOP") {
                    grupo = linha[1];
                }
                if (grupo == CFOP && linha.size() == 5 && linha[4] == FormatarValor(valor)) {
                    ++vezes;
                    comNome = nome != nomes.end() && linha[2] == nome->second;
                }
            }
            Conferir("06", "tblZFM_ALC", vezes == 1 && comNome && data.has_value());
        }
    }

    // The block of a town, counted by its subtotal, in which a row stands.
    std::size_t BlocoDe(const std::string& relatorio, const EntradaMIDAX& e) {
        std::size_t bloco = 0;
        for (const LinhaLida& linha : Paginas(relatorio).linhas) {
            if (linha.size() == 4 && linha[1] == e.codigo && linha[3] == FormatarValor(e.valor)) {
                return bloco;
            }
            bloco += linha[0] == "Subtotal" ? 1 : 0;
        }
        return 1000;
    }

    void Midax() {
        const std::map<std::string, std::string> nomes{{"t1", "Alfa"}, {"t2", b_.nomeT2}};
        for (const EntradaMIDAX& e : b_.midax) {
            const char grupo = e.codigo && !e.codigo->empty() ? (*e.codigo)[0] : ' ';
            const std::string relatorio =
                grupo >= '1' && grupo <= '3' ? std::string("0") + static_cast<char>(grupo + 6) : "";
            const auto nome = e.municipio ? nomes.find(*e.municipio) : nomes.end();
            const std::string impresso = FormatarValor(e.valor);
            const std::string esperado = relatorio == "09"     ? "Descrito"
                                         : nome != nomes.end() ? nome->second
                                                               : "";
            const bool certa = !relatorio.empty() && !esperado.empty() &&
                               Paginas(relatorio).Com({*e.codigo, impresso}) == 1 &&
                               Paginas(relatorio).Com({*e.codigo, impresso, esperado}) == 1;
            const bool misturada = certa && relatorio != "09" &&
                                   std::ranges::any_of(b_.midax, [&](const EntradaMIDAX& outra) {
                                       return outra.municipio != e.municipio &&
                                              BlocoDe(relatorio, outra) == BlocoDe(relatorio, e);
                                   });
            Conferir(relatorio, "tblMIDAX", certa && !misturada);
        }
    }

    // A block of a detail report: from an entry's heading to its subtotal.
    struct Bloco {
        std::string relatorio;
        std::string subitem;
        std::string subtotal;
        Moeda soma;  // of its rows
        std::vector<LinhaLida> linhas;
    };

    std::vector<Bloco> Blocos() {
        std::vector<Bloco> blocos;
        for (const std::string relatorio : {"11", "11A", "12", "13", "15"}) {
            const std::string rotulo = relatorio == "11A" ? "Total" : "Subtotal";
            for (const LinhaLida& linha : Paginas(relatorio).linhas) {
                if (linha[0] == "Código do Subitem") {
                    blocos.push_back({relatorio, linha[1], "", {}, {}});
                } else if (!blocos.empty() && linha[0] == rotulo &&
                           blocos.back().subtotal.empty()) {
                    blocos.back().subtotal = linha[1];
                } else if (!blocos.empty() && blocos.back().subtotal.empty() && linha.size() >= 4 &&
                           EhQuantia(linha.back())) {
                    blocos.back().soma += Moeda::DeTexto(linha.back());
                    blocos.back().linhas.push_back(linha);
                }
            }
        }
        return blocos;
    }

    static std::string FamiliaDe(const SubitemSorteado& s) {
        const std::map<std::string, std::string> familias{
            {"002.10", "13"}, {"002.11", "13"}, {"002.18", "12"}, {"002.20", "11A"},
            {"007.04", "11"}, {"007.30", "12"}, {"007.01", "15"}, {"007.02", "15"}};
        const auto familia = familias.find(s.codigo);
        const bool serve = familia != familias.end() && s.opProprias == (familia->second != "15");
        return serve ? familia->second : "";
    }

    void Subitens() {
        const std::vector<Bloco> blocos = Blocos();
        for (const SubitemSorteado& s : b_.subitens) {
            const std::string apuracao = !s.opProprias ? "" : *s.opProprias ? "10" : "14";
            const std::string valor = FormatarValor(s.valor);
            Conferir(apuracao, "tblOcorrências",
                     !apuracao.empty() &&
                         Paginas(apuracao).Com({std::string(12, ' ') + s.codigo, valor}) == 1);
            if (const std::string familia = FamiliaDe(s); !familia.empty()) {
                const auto dele = [&](const Bloco& b) {
                    return b.relatorio == familia && b.subitem == s.codigo && b.subtotal == valor;
                };
                const auto bloco = std::ranges::find_if(blocos, dele);
                Conferir(familia, "tblOcorrências",
                         std::ranges::count_if(blocos, dele) == 1 && bloco->soma == s.valor);
            }
        }
        for (const LinhaDeDetalhe& linha : b_.linhas) {
            std::ptrdiff_t vezes = 0;
            for (const Bloco& bloco : blocos) {
                vezes += std::ranges::count_if(bloco.linhas, [&](const LinhaLida& lida) {
                    return lida.back() == FormatarValor(linha.valor) &&
                           (linha.NF.empty() || std::ranges::find(lida, linha.NF) != lida.end());
                });
            }
            Conferir("*", linha.tabela, vezes == 1 && linha.temPeriodo);
        }
    }

    void Pagamentos() {
        const PaginasLidas& paginas = Paginas("17");
        for (const auto& [opProprias, data, valor] : b_.pagamentos) {
            std::size_t vezes = 0;
            bool proprias = false;
            for (const LinhaLida& linha : paginas.linhas) {
                proprias = linha[0] == "Operações Próprias" ||
                           (proprias && linha[0] != "Substituição Tributária");
                vezes += valor && linha[0] == data && linha.back() == FormatarValor(*valor) &&
                                 opProprias == proprias
                             ? 1
                             : 0;
            }
            const bool falta = paginas.falhou && valor && opProprias && data;
            Conferir("17", "tblPagamento", vezes == 1 || falta);
        }
    }

    const BancoSorteado& b_;
    const std::map<std::string, PaginasLidas>& paginas_;
};

TEST(Revisao, EveryRowIsOnAPageOnceUnderItsOwnCodeOrIsNamed) {
    BancoDeTeste banco(TabelasSemChaves);
    std::size_t comDefeitos = 0;
    for (unsigned semente = 1; semente <= 250; ++semente) {
        const BancoSorteado b(semente);
        banco.Executar(EsvaziarTabelas + b.sql);
        const ConfiguracaoFixa configuracoes(b.novos ? "07/2003" : "05/2001");
        const Ambiente ambiente{.configuracoes = &configuracoes};
        const auto achados =
            Revisar(*banco, {.IE = "1", .NroDRQ = 1, .configuracoes = &configuracoes});
        const Conferencia conferencia(b, LerRelatorios(*banco, ambiente));
        for (const auto& [onde, erradas] : conferencia.erradas) {
            std::size_t nomeadas = 0;
            std::string motivos;
            for (const Achado& achado : achados) {
                if (achado.tabela == onde.second &&
                    (onde.first == "*" || achado.relatorio == onde.first)) {
                    nomeadas += achado.linhas;
                    motivos += TextoDoAchado(achado) + "\n";
                }
            }
            ASSERT_GE(nomeadas, erradas)
                << "seed " << semente << ", report " << onde.first << ", " << onde.second << "\n"
                << motivos << b.sql;
            ASSERT_TRUE(erradas > 0 || nomeadas == 0)
                << "seed " << semente << ", report " << onde.first << ", " << onde.second << "\n"
                << motivos << b.sql;
            comDefeitos += erradas > 0 ? 1 : 0;
        }
    }
    EXPECT_GT(comDefeitos, 100U);
}

}  // namespace
}  // namespace tarvo::apoio
