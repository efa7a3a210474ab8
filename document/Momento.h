// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/Data.h"
#include "data/Publico.h"

namespace tarvo {

// The moment at which a file is rendered: now in local time, or SOURCE_DATE_EPOCH in UTC.
struct TARVO_PUBLICO Momento {
    DataCivil civil;  // as the pages say it
    // As the file's dates say it: with the offset of its time zone, or in UTC where such a date
    // cannot state that offset.
    DataCivil declarado;
    int deslocamento = 0;  // minutes east of UTC

    // Error 5 when SOURCE_DATE_EPOCH is set to something that is no number of seconds.
    static Momento Agora();

    [[nodiscard]] std::string FormatoPDF() const;  // "D:20240131235959-03'00'"
    [[nodiscard]] std::string FormatoXMP() const;  // "2024-01-31T23:59:59-03:00"
};

}  // namespace tarvo
