# SPDX-License-Identifier: MIT
"""The reports of the state ICMS declaration (DRQ): databases, reports, exports, windows."""

from ._banco import Achado, Banco, BancoEmMemoria, Contribuinte, Declaracao, abrir, criar, em_memoria
from ._biblioteca import Erro, versao
from ._relatorios import (FORMATOS, Relatorio, RelatorioApuracaoOpProp, RelatorioApuracaoSubTrib,
                          RelatorioCadastro, RelatorioNotasSaiZFMALC, RelatorioPagamentos,
                          RelatorioRegExportacao, RelatorioResumoCFOPsEnt, RelatorioResumoCFOPsSai,
                          RelatorioSaiInterestad, Relatorios, RelatorioVELO, TextoCortado,
                          aguardar_janelas, exportar)

# Written out: type checkers take no other for what the package offers.
__all__ = ["FORMATOS", "Achado", "Banco", "BancoEmMemoria", "Contribuinte", "Declaracao", "Erro",
           "Relatorio", "RelatorioApuracaoOpProp", "RelatorioApuracaoSubTrib", "RelatorioCadastro",
           "RelatorioNotasSaiZFMALC", "RelatorioPagamentos", "RelatorioRegExportacao",
           "RelatorioResumoCFOPsEnt", "RelatorioResumoCFOPsSai", "RelatorioSaiInterestad",
           "RelatorioVELO", "Relatorios", "TextoCortado", "abrir", "aguardar_janelas", "criar",
           "em_memoria", "exportar", "versao"]
