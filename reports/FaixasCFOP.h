// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace tarvo {

// A line of a CFOP summary: a block title, or a group that holds the codes whose text sorts from
// de to ate, and one more.
struct FaixaCFOP {
    std::string_view rotulo;  // at most 25 characters
    std::string_view de = {};
    std::string_view ate = {};
    std::string_view extra = {};  // empty: none

    [[nodiscard]] constexpr bool EhTitulo() const { return de.empty(); }
};

// The groups in printed order: of the three-digit code table (reference periods up to December
// 2002) and of the four-digit table that replaced it.
namespace FaixasCFOP {
extern const std::span<const FaixaCFOP> EntradasAntigas;
extern const std::span<const FaixaCFOP> EntradasNovas;
extern const std::span<const FaixaCFOP> SaidasAntigas;
extern const std::span<const FaixaCFOP> SaidasNovas;
}  // namespace FaixasCFOP

}  // namespace tarvo
