# SPDX-License-Identifier: MIT
"""The reports of the state ICMS declaration (DRQ): databases, reports, exports, windows."""

from ._banco import Achado, Banco, BancoEmMemoria, Contribuinte, Declaracao, abrir, criar, em_memoria
from ._biblioteca import Erro, versao
from ._relatorios import (FORMATOS, Relatorio, RelatorioApuracaoOpProp, RelatorioApuracaoSubTrib,
                          RelatorioCadastro, RelatorioNotasSaiZFMALC, RelatorioPagamentos,
                          RelatorioRegExportacao, RelatorioResumoCFOPsEnt, RelatorioResumoCFOPsSai,
                          RelatorioSaiInterestad, Relatorios, RelatorioVELO, TextoCortado,
                          aguardar_janelas, exportar)

__all__ = [nome for nome in globals() if not nome.startswith("_")]
