# SPDX-License-Identifier: MIT
# Copies a header into the one folder of installed headers: what it includes from the tree it
# includes there. cmake -DENTRADA=... -DSAIDA=... -P CabecalhoInstalado.cmake
file(READ ${ENTRADA} texto)
string(REGEX REPLACE "#include \"([^\"]*/)?([^\"/]+)\"" "#include <relatoriostarvo/\\2>" texto "${texto}")
file(WRITE ${SAIDA} "${texto}")
