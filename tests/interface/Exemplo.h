#pragma once

#include <gtest/gtest.h>
#include <relatoriostarvo.h>
#include <stdlib.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "host/exemplo/Exemplo.h"
#include "platform/sqlite/BancoSQLite.h"

// The example database in a folder of its own, and shorthands for calls that must succeed.
namespace tarvo::teste {

constexpr const char* IE = "250114377019";
constexpr std::int32_t DRQ = 101;

inline std::string Classe(std::string_view nome) {
    return "RelatoriosTarvo." + std::string(nome);
}

class ComExemplo : public testing::Test {
  protected:
    ComExemplo() {
        std::string modelo = std::filesystem::temp_directory_path() / "tarvo-XXXXXX";
        pasta_ = mkdtemp(modelo.data());
        CriarBanco(Arquivo());
        BancoSQLite::Abrir(Arquivo())->ExecutarScript(ScriptDeExemplo());
    }
    ~ComExemplo() override { std::filesystem::remove_all(pasta_); }

    [[nodiscard]] std::string Arquivo() const { return pasta_ / "exemplo.tarvo"; }
    [[nodiscard]] std::string Saida(const char* nome) const { return pasta_ / nome; }

    [[nodiscard]] tarvo_banco Abrir(std::uint32_t opcoes = 0) const {
        tarvo_banco banco = 0;
        EXPECT_EQ(tarvo_abrir_banco(Arquivo().c_str(), opcoes, &banco), 0) << tarvo_erro_texto();
        return banco;
    }
    static tarvo_objeto Criar(std::string_view classe) {
        tarvo_objeto objeto = 0;
        EXPECT_EQ(tarvo_criar(Classe(classe).c_str(), &objeto), 0) << tarvo_erro_texto();
        return objeto;
    }
    static std::string Exportar(tarvo_objeto objeto, std::int32_t formato) {
        tarvo_memoria memoria = 0;
        const char* bytes = nullptr;
        std::size_t tamanho = 0;
        EXPECT_EQ(tarvo_exportar_memoria(objeto, formato, &memoria), 0) << tarvo_erro_texto();
        EXPECT_EQ(tarvo_memoria_bytes(memoria, &bytes, &tamanho), 0);
        std::string copia(bytes, tamanho);
        EXPECT_EQ(tarvo_liberar(memoria), 0);
        return copia;
    }

  private:
    std::filesystem::path pasta_;
};

}  // namespace tarvo::teste
