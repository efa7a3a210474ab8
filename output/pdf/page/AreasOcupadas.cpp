// SPDX-License-Identifier: MIT
#include "output/pdf/page/AreasOcupadas.h"

#include <algorithm>

namespace tarvo::pdf {

void AreasOcupadas::Ocupar(const Area& area, std::int32_t cor) {
    ocupadas_.push_back({area, cor});
    const auto mesma = std::find_if(porCor_.begin(), porCor_.end(),
                                    [cor](const Ocupada& o) { return o.cor == cor; });
    if (mesma == porCor_.end()) {
        porCor_.push_back({area, cor});
    } else {
        mesma->area.Unir(area);
    }
}

bool AreasOcupadas::TemCobertaPor(const Forma& forma) const {
    const auto coberta = [&forma](const Ocupada& o) {
        // In one and the same colour the order makes no difference.
        return !forma.SoPinta(o.cor) && forma.Pinta(o.area);
    };
    return std::any_of(porCor_.begin(), porCor_.end(), coberta) &&
           std::any_of(ocupadas_.begin(), ocupadas_.end(), coberta);
}

void AreasOcupadas::Limpar() {
    ocupadas_.clear();
    porCor_.clear();
}

}  // namespace tarvo::pdf
