# SPDX-License-Identifier: MIT
# Run at build time by tarvo_embutir: writes the bytes of ARQUIVO as the array NOME into SAIDA.
file(READ "${ARQUIVO}" bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE "${SAIDA}"
    "#pragma once\nnamespace tarvo::embutido {\n"
    "inline constexpr unsigned char ${NOME}[] = {\n${bytes}\n};\n}  // namespace tarvo::embutido\n")
