// SPDX-License-Identifier: MIT
#pragma once

#include <hb.h>

#include <cstdint>

namespace tarvo::pdf {

// What a face's table "OS/2" tells of its looks and its licence. A face without one says nothing
// of its looks and forbids nothing.
class TabelaOS2 {
  public:
    explicit TabelaOS2(hb_face_t* face);

    // Whether a subset of its outlines may be embedded. Of several licence bits, as old versions
    // of the table allow them, the most generous one holds.
    [[nodiscard]] bool PermiteSubconjunto() const;
    [[nodiscard]] bool TemSerifas() const;
    [[nodiscard]] bool Manuscrita() const;

  private:
    unsigned licenca_ = 0;      // fsType
    unsigned classe_ = 0;       // first byte of sFamilyClass
    std::uint8_t familia_ = 0;  // bFamilyType of the PANOSE numbers
    std::uint8_t serifa_ = 0;   // bSerifStyle of the same
};

}  // namespace tarvo::pdf
