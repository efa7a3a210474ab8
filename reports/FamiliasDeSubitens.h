// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

// Which sub-items the detail reports take.
namespace tarvo {

struct FamiliaDeSubitens {
    std::string_view relatorio;  // code, "11A"
    bool opProprias;
    std::string_view tabela;  // of the supporting rows
    std::span<const std::string_view> subitens;
    std::string_view subitemSemNota = {};  // the one whose rows print no invoice number
};

namespace familias {

inline constexpr std::string_view Subitens11[] = {"007.04", "007.05", "007.06", "007.07"};
inline constexpr std::string_view Subitens11A[] = {"002.20", "002.21", "007.40", "007.41"};
inline constexpr std::string_view Subitens12[] = {"002.18", "002.19", "007.29", "007.30"};
inline constexpr std::string_view Subitens13[] = {"002.10", "002.11"};
inline constexpr std::string_view Subitens15[] = {"007.01", "007.02"};

inline constexpr FamiliaDeSubitens CredAcum{"11", true, "tblIEsRemetente", Subitens11};
inline constexpr FamiliaDeSubitens CredAcVE{"11A", true, "tblRecibosCredito", Subitens11A};
inline constexpr FamiliaDeSubitens CentrRecImp{"12", true, "tblIEsRemetente", Subitens12};
inline constexpr FamiliaDeSubitens ResSubstitui{"13", true, "tblIESubstituto", Subitens13,
                                                "002.11"};
inline constexpr FamiliaDeSubitens ResSubstitut{"15", false, "tblIESubstituido", Subitens15,
                                                "007.02"};

inline constexpr FamiliaDeSubitens Todas[] = {CredAcum, CredAcVE, CentrRecImp, ResSubstitui,
                                              ResSubstitut};

}  // namespace familias

}  // namespace tarvo
