// SPDX-License-Identifier: MIT
#include "databases/mdb/LeituraMdb.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <map>
#include <new>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "data/TabelasDoBanco.h"
#include "data/Textos.h"
#include "databases/mdb/Quadros.h"
#include "system/files/Arquivos.h"

namespace tarvo::mdb {

namespace {

namespace fs = std::filesystem;
using sqlite::CopiaPrivada;
using sqlite::Preenchimento;

constexpr off_t MaiorEmMemoria = 32L * 1024 * 1024;

[[noreturn]] void Lancar(NumeroErro numero, const fs::path& arquivo, const std::string& problema) {
    throw Erro(numero, "\"" + arquivo.string() + "\": " + problema + ".");
}

// The tables that are wanted, as the reader is asked for them and as they are told apart here.
struct Pedido {
    std::string_view tabela;
    std::vector<std::string> colunas;
};

std::vector<Pedido> Pedidos() {
    std::vector<Pedido> pedidos;
    for (const auto& tabela : TabelasDoBanco()) {
        Pedido pedido{tabela.nome, {}};
        for (const auto& coluna : tabela.Colunas()) {
            pedido.colunas.emplace_back(coluna.nome);
        }
        pedidos.push_back(std::move(pedido));
    }
    return pedidos;
}

std::vector<std::string> Argumentos(const std::string& codificacao,
                                    const std::vector<Pedido>& pedidos) {
    std::vector<std::string> argumentos{(SoDigitos(codificacao) ? "CP" : "") + codificacao};
    for (const Pedido& pedido : pedidos) {
        std::string argumento(pedido.tabela);
        for (const std::string& coluna : pedido.colunas) {
            argumento += Separador + coluna;
        }
        argumentos.push_back(std::move(argumento));
    }
    return argumentos;
}

// One reading of one file.
class Leitor {
  public:
    Leitor(const fs::path& arquivo, int descritor, const std::string& codificacao,
           Acompanhante* quem)
        : arquivo_(arquivo), codificacao_(codificacao), descritor_(descritor), quem_(quem) {
        estado_ = Estado();
    }

    Leitura Ler() {
        const auto lugar = estado_.st_size > MaiorEmMemoria ? CopiaPrivada::Lugar::Arquivo
                                                            : CopiaPrivada::Lugar::Memoria;
        Leitura leitura;
        leitura.copia =
            CopiaPrivada::Preencher(lugar, [this](Preenchimento& destino) { Preencher(destino); });
        leitura.avisos = std::move(avisos_);
        return leitura;
    }

  private:
    struct TabelaLida {
        std::uint32_t declaradas = 0;
        std::uint32_t recebidas = 0;
        std::size_t colunas = 0;
    };

    [[nodiscard]] struct stat Estado() const {
        struct stat estado {};
        if (fstat(descritor_, &estado) != 0) {
            LancarErroDeArquivo(arquivo_, errno);
        }
        return estado;
    }

    void Preencher(Preenchimento& destino) {
        // A value takes at most so many times the bytes that it has in the file.
        constexpr std::uint64_t Crescimento = 32;
        constexpr std::uint64_t Folga = 1UL << 20U;
        ProcessoLeitor processo(descritor_, Argumentos(codificacao_, pedidos_), quem_);
        Quadros quadros(processo,
                        static_cast<std::uint64_t>(estado_.st_size) * Crescimento + Folga);
        try {
            Receber(quadros, destino);
            quadros.Terminar();
            if (!processo.Esperar()) {
                throw ErroDeProtocolo();
            }
        } catch (const ErroDeProtocolo&) {
            RecusarSeMudou();
            LancarDanificado("o leitor não chegou ao fim");
        }
        RecusarSeMudou();
    }

    void Receber(Quadros& quadros, Preenchimento& destino) {
        std::map<std::uint16_t, TabelaLida> lidas;
        TabelaLida* atual = nullptr;
        std::vector<Valor> valores;
        for (;;) {
            auto [quadro, conteudo] = quadros.Proximo();
            switch (quadro) {
                case Quadro::Tabela:
                    atual = &ReceberTabela(conteudo, lidas, destino);
                    break;
                case Quadro::Linha:
                    if (atual == nullptr || atual->recebidas++ == atual->declaradas) {
                        throw ErroDeProtocolo();
                    }
                    valores.clear();
                    for (std::size_t c = 0; c < atual->colunas; ++c) {
                        valores.push_back(conteudo.TomarValor());
                    }
                    conteudo.Terminar();
                    if (!valores.empty()) {
                        destino.Linha(valores);
                    }
                    break;
                case Quadro::Fim:
                    return ConferirFim(conteudo, lidas);
                case Quadro::Recusa:
                    Recusar(conteudo);
                default:
                    throw ErroDeProtocolo();
            }
        }
    }

    const Pedido& DoLugar(std::uint16_t lugar) const {
        if (lugar >= pedidos_.size()) {
            throw ErroDeProtocolo();
        }
        return pedidos_[lugar];
    }

    TabelaLida& ReceberTabela(Conteudo& conteudo, std::map<std::uint16_t, TabelaLida>& lidas,
                              Preenchimento& destino) {
        const auto lugar = conteudo.Tomar<std::uint16_t>();
        const Pedido& pedido = DoLugar(lugar);
        const auto [nova, unica] = lidas.try_emplace(lugar);
        nova->second.declaradas = conteudo.Tomar<std::uint32_t>();
        nova->second.colunas = conteudo.Tomar<std::uint8_t>();
        std::vector<std::string> colunas;
        for (std::size_t c = 0; c < nova->second.colunas; ++c) {
            const auto coluna = conteudo.Tomar<std::uint8_t>();
            if (coluna >= pedido.colunas.size() || Contem(colunas, pedido.colunas[coluna])) {
                throw ErroDeProtocolo();
            }
            colunas.push_back(pedido.colunas[coluna]);
        }
        conteudo.Terminar();
        if (!unica) {
            throw ErroDeProtocolo();
        }
        if (!colunas.empty()) {
            destino.Tabela(pedido.tabela, colunas);
        }
        return nova->second;
    }

    void ConferirFim(Conteudo& conteudo, const std::map<std::uint16_t, TabelaLida>& lidas) {
        if (conteudo.Tomar<std::uint16_t>() != lidas.size()) {
            throw ErroDeProtocolo();
        }
        for (const auto& [lugar, lida] : lidas) {
            const bool mesma = conteudo.Tomar<std::uint16_t>() == lugar;
            const auto enviadas = conteudo.Tomar<std::uint32_t>();
            const auto ilegiveis = conteudo.Tomar<std::uint32_t>();
            if (!mesma || enviadas != lida.recebidas) {
                throw ErroDeProtocolo();
            }
            const std::string nome(DoLugar(lugar).tabela);
            if (lida.recebidas != lida.declaradas) {
                RecusarSeMudou();
                LancarDanificado("a tabela \"" + nome + "\" diz ter " +
                                 std::to_string(lida.declaradas) + " linhas e tem " +
                                 std::to_string(lida.recebidas));
            }
            if (ilegiveis > 0) {
                avisos_.push_back("a tabela \"" + nome + "\" tem " + std::to_string(ilegiveis) +
                                  " texto(s) com caracteres que não podem ser lidos; estão "
                                  "trocados por \uFFFD");
            }
        }
        conteudo.Terminar();
    }

    [[noreturn]] void Recusar(Conteudo& conteudo) const {
        const auto motivo = conteudo.Tomar<Motivo>();
        const std::string_view tabela = DoLugar(conteudo.Tomar<std::uint16_t>()).tabela;
        RecusarSeMudou();
        switch (motivo) {
            case Motivo::VersaoDesconhecida:
                Lancar(NumeroErro::BancoIrreconhecivel, arquivo_,
                       "é de uma versão que não se sabe ler; abra no programa de origem e salve "
                       "no formato 2000 a 2016");
            case Motivo::Criptografado:
            case Motivo::ComSenha:
                Lancar(
                    NumeroErro::SenhaDoBanco, arquivo_,
                    std::string(motivo == Motivo::ComSenha ? "tem senha" : "está criptografado") +
                        "; abra no programa de origem e remova a senha");
            case Motivo::TabelaVinculada:
                Lancar(NumeroErro::OperacaoInvalida, arquivo_,
                       "a tabela \"" + std::string(tabela) +
                           "\" é vinculada a outro banco; abra no programa de origem e importe-a, "
                           "ou use o banco em que ela está");
            case Motivo::SemMemoria:
                throw std::bad_alloc();
            case Motivo::CodificacaoDesconhecida:
                throw Erro(NumeroErro::ChamadaInvalida,
                           "Não há a codificação \"" + codificacao_ + "\".");
            default:
                LancarDanificado("há páginas que não podem ser lidas");
        }
    }

    [[noreturn]] void LancarDanificado(const std::string& como) const {
        Lancar(NumeroErro::BancoIrreconhecivel, arquivo_,
               "está danificado (" + como + "); compacte e repare no programa de origem");
    }

    void RecusarSeMudou() const {
        const struct stat agora = Estado();
        const auto mesmo = [](const timespec& a, const timespec& b) {
            return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
        };
        if (agora.st_size != estado_.st_size || !mesmo(agora.st_mtim, estado_.st_mtim) ||
            !mesmo(agora.st_ctim, estado_.st_ctim)) {
            Lancar(NumeroErro::BancoOcupado, arquivo_, "o arquivo mudou enquanto era lido");
        }
    }

    const fs::path& arquivo_;
    const std::string& codificacao_;
    int descritor_;
    Acompanhante* quem_;
    struct stat estado_ {};
    const std::vector<Pedido> pedidos_ = Pedidos();
    std::vector<std::string> avisos_;
};

// The file that says that a program has the database open.
void AvisarSeAberto(const fs::path& arquivo, std::vector<std::string>& avisos) {
    for (const char* extensao : {".ldb", ".laccdb", ".LDB"}) {
        const fs::path trava = fs::path(arquivo).replace_extension(extensao);
        std::error_code ignorado;
        if (fs::exists(trava, ignorado)) {
            avisos.push_back("outro programa parece estar com o arquivo aberto (há \"" +
                             trava.filename().string() +
                             "\" ao lado): o que ainda não foi salvo não aparece");
            return;
        }
    }
}

}  // namespace

bool EhArquivoMdb(const fs::path& arquivo) {
    constexpr std::array Marcas{std::string_view("\0\1\0\0Standard Jet DB\0", 20),
                                std::string_view("\0\1\0\0Standard ACE DB\0", 20)};
    std::error_code ignorado;
    if (!fs::is_regular_file(arquivo, ignorado)) {
        return false;
    }
    std::array<char, Marcas[0].size()> inicio{};
    std::ifstream(arquivo, std::ios::binary).read(inicio.data(), inicio.size());
    return Contem(Marcas, std::string_view(inicio.data(), inicio.size()));
}

Leitura LerArquivoMdb(const fs::path& arquivo, const std::string& codificacao, Acompanhante* quem) {
    const Descritor aberto(open(arquivo.c_str(), O_RDONLY | O_CLOEXEC));
    if (aberto.Valor() < 0) {
        LancarErroDeArquivo(arquivo, errno);
    }
    Leitura leitura = Leitor(arquivo, aberto.Valor(), codificacao, quem).Ler();
    AvisarSeAberto(arquivo, leitura.avisos);
    return leitura;
}

}  // namespace tarvo::mdb
