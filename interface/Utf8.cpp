#include "interface/Utf8.h"

#include <unicode/ustring.h>

#include <limits>

namespace tarvo::c {

bool EhUtf8(std::string_view texto) {
    if (texto.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        return false;
    }
    UErrorCode erro = U_ZERO_ERROR;
    std::int32_t unidades = 0;
    u_strFromUTF8(nullptr, 0, &unidades, texto.data(), static_cast<std::int32_t>(texto.size()),
                  &erro);
    return U_SUCCESS(erro) || erro == U_BUFFER_OVERFLOW_ERROR;
}

}  // namespace tarvo::c
