#include "data/Formatos.h"

#include <cstdio>
#include <cstdlib>

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

constexpr std::uint64_t DecimosMilesimosPorCentavo = 100;

std::string ComZeros(int valor, std::size_t largura) {
    std::string texto = std::to_string(valor);
    return std::string(texto.size() < largura ? largura - texto.size() : 0, '0') + texto;
}

bool EhDigito(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::string FormatarValor(Moeda valor) {
    const std::int64_t unidades = valor.DecimosMilesimos();
    // Magnitude in unsigned arithmetic: the least 64-bit integer has no positive twin.
    const std::uint64_t modulo = unidades < 0 ? ~static_cast<std::uint64_t>(unidades) + 1
                                              : static_cast<std::uint64_t>(unidades);
    std::uint64_t centavos = modulo / DecimosMilesimosPorCentavo;
    if (modulo % DecimosMilesimosPorCentavo >= DecimosMilesimosPorCentavo / 2) {
        ++centavos;
    }
    const std::string inteiros = std::to_string(centavos / 100);
    std::string texto;
    if (unidades < 0 && centavos != 0) {
        texto += '-';
    }
    for (std::size_t i = 0; i < inteiros.size(); ++i) {
        if (i != 0 && (inteiros.size() - i) % 3 == 0) {
            texto += '.';
        }
        texto += inteiros[i];
    }
    texto += ',';
    texto += static_cast<char>('0' + centavos / 10 % 10);
    texto += static_cast<char>('0' + centavos % 10);
    return texto;
}

std::string FormatarData(Data data) {
    const DataCivil c = data.Civil();
    return ComZeros(c.dia, 2) + "/" + ComZeros(c.mes, 2) + "/" + ComZeros(c.ano, 4);
}

std::string FormatarMesAno(Data data) {
    const DataCivil c = data.Civil();
    return ComZeros(c.mes, 2) + "/" + ComZeros(c.ano, 4);
}

std::string FormatarHora(Data data) {
    const DataCivil c = data.Civil();
    return ComZeros(c.hora, 2) + ":" + ComZeros(c.minuto, 2) + ":" + ComZeros(c.segundo, 2);
}

std::int64_t LerDecimal(std::string_view texto, int casas, std::string_view destino) {
    std::string_view resto = texto;
    while (!resto.empty() && resto.front() == ' ') {
        resto.remove_prefix(1);
    }
    while (!resto.empty() && resto.back() == ' ') {
        resto.remove_suffix(1);
    }
    const bool negativo = !resto.empty() && resto.front() == '-';
    if (negativo || (!resto.empty() && resto.front() == '+')) {
        resto.remove_prefix(1);
    }

    std::int64_t unidades = 0;  // kept negative, whose range is the larger one
    bool temDigitos = false;
    bool depoisDaVirgula = false;
    int lidas = 0;            // decimals taken into unidades
    int arredondamento = -1;  // first dropped decimal
    bool restoNaoZero = false;
    const auto acrescentar = [&](int digito) {
        if (__builtin_mul_overflow(unidades, std::int64_t{10}, &unidades) ||
            __builtin_sub_overflow(unidades, std::int64_t{digito}, &unidades)) {
            LancarEstouro("\"" + std::string(texto) + "\" não cabe em " + std::string(destino));
        }
    };
    for (const char c : resto) {
        if (EhDigito(c)) {
            temDigitos = true;
            if (!depoisDaVirgula) {
                acrescentar(c - '0');
            } else if (lidas < casas) {
                acrescentar(c - '0');
                ++lidas;
            } else if (arredondamento < 0) {
                arredondamento = c - '0';
            } else {
                restoNaoZero = restoNaoZero || c != '0';
            }
        } else if (c == ',' && !depoisDaVirgula) {
            depoisDaVirgula = true;
        } else if (c != '.' || depoisDaVirgula || !temDigitos) {
            LancarTipoIncompativel(texto, destino);
        }
    }
    if (!temDigitos) {
        LancarTipoIncompativel(texto, destino);
    }
    for (; lidas < casas; ++lidas) {
        acrescentar(0);
    }
    const bool impar = unidades % 2 != 0;
    if (arredondamento > 5 || (arredondamento == 5 && (restoNaoZero || impar))) {
        if (__builtin_sub_overflow(unidades, std::int64_t{1}, &unidades)) {
            LancarEstouro("\"" + std::string(texto) + "\" não cabe em " + std::string(destino));
        }
    }
    if (negativo) {
        return unidades;
    }
    std::int64_t positivo = 0;
    if (__builtin_sub_overflow(std::int64_t{0}, unidades, &positivo)) {
        LancarEstouro("\"" + std::string(texto) + "\" não cabe em " + std::string(destino));
    }
    return positivo;
}

}  // namespace tarvo
