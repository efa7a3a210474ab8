// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <relatoriostarvo/relatoriostarvo.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "databases/sqlite/BancoSQLite.h"
#include "host/example/Exemplo.h"

// The example database in a folder of its own, and shorthands for calls that must succeed.
namespace tarvo::teste {

constexpr const char* IE = "250114377019";
constexpr std::int32_t DRQ = 101;

inline std::string Classe(std::string_view nome) {
    return "RelatoriosTarvo." + std::string(nome);
}

// What a call gave out, released at the end of its scope.
class Posse {
  public:
    explicit Posse(std::uint64_t id) : id_(id) {}
    ~Posse() { Liberar(); }
    Posse(Posse&& outra) noexcept : id_(std::exchange(outra.id_, 0)) {}
    Posse& operator=(Posse&&) = delete;
    operator std::uint64_t() const { return id_; }
    // Releases it now; gives the number, which is then of no object.
    std::uint64_t Liberar() {
        EXPECT_EQ(tarvo_liberar(id_), 0) << tarvo_erro_texto();
        return std::exchange(id_, 0);
    }

  private:
    std::uint64_t id_;
};

// The bytes of a file.
inline std::string ConteudoDe(const std::string& arquivo) {
    std::ifstream entrada(arquivo, std::ios::binary);
    return {std::istreambuf_iterator<char>(entrada), {}};
}

class ComExemplo : public testing::Test {
  protected:
    ComExemplo() {
        std::string modelo = std::filesystem::temp_directory_path() / "tarvo-XXXXXX";
        pasta_ = mkdtemp(modelo.data());
        CriarBanco(Arquivo(), ScriptDeExemplo());
    }
    ~ComExemplo() override { std::filesystem::remove_all(pasta_); }

    [[nodiscard]] std::string Arquivo() const { return pasta_ / "exemplo.tarvo"; }
    [[nodiscard]] std::string Saida(const char* nome) const { return pasta_ / nome; }

    [[nodiscard]] Posse Abrir(std::uint32_t opcoes = 0) const {
        tarvo_banco banco = 0;
        EXPECT_EQ(tarvo_abrir_banco(Arquivo().c_str(), opcoes, &banco), 0) << tarvo_erro_texto();
        return Posse(banco);
    }
    [[nodiscard]] static Posse Criar(std::string_view classe) {
        tarvo_objeto objeto = 0;
        EXPECT_EQ(tarvo_criar(Classe(classe).c_str(), &objeto), 0) << tarvo_erro_texto();
        return Posse(objeto);
    }
    // The bytes of a result, which is released.
    static std::string Bytes(tarvo_memoria memoria) {
        const Posse posse(memoria);
        const char* bytes = nullptr;
        std::size_t tamanho = 0;
        EXPECT_EQ(tarvo_memoria_bytes(memoria, &bytes, &tamanho), 0) << tarvo_erro_texto();
        return {bytes, tamanho};
    }
    static std::string Exportar(tarvo_objeto objeto, std::int32_t formato) {
        tarvo_memoria memoria = 0;
        EXPECT_EQ(tarvo_exportar_memoria(objeto, formato, &memoria), 0) << tarvo_erro_texto();
        return Bytes(memoria);
    }

  private:
    std::filesystem::path pasta_;
};

}  // namespace tarvo::teste
