// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <optional>
#include <string_view>

#include "data/Publico.h"

// The date serial: the one type of every date and time.
namespace tarvo {

// Calendar fields of a date, proleptic Gregorian; hora, minuto, segundo of the local clock.
struct DataCivil {
    int ano = 1899;
    int mes = 12;
    int dia = 30;
    int hora = 0;
    int minuto = 0;
    int segundo = 0;
    friend bool operator==(const DataCivil&, const DataCivil&) = default;
};

// Days since 30/12/1899 as a double, whose fraction (of the absolute value) is the time of day.
// The range is the years 100 to 9999; outside it every maker raises error 6.
class TARVO_PUBLICO Data {
  public:
    constexpr Data() = default;  // day zero, 30/12/1899
    static Data DeSerial(double dias);
    // Error 13 for a day or time that the calendar does not have.
    static Data DeCivil(const DataCivil& civil);
    // Text in day/month/year order ("5/3/2001", "05/03/01 13:45", "05/03/2001 13:45:10");
    // two-digit years 00 to 29 are 20xx, 30 to 99 are 19xx. Error 13 for anything else.
    static Data DeTexto(std::string_view texto);
    // The first day of a month given as "1/2003", "01/2003" or "01/03" (two-digit years as above);
    // empty when the text is no month and year.
    static std::optional<Data> DeMesAno(std::string_view texto);
    // "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS", nothing else; empty when the text is no such date.
    static std::optional<Data> DeIso(std::string_view texto);

    [[nodiscard]] constexpr double Serial() const { return dias_; }
    [[nodiscard]] DataCivil Civil() const;
    [[nodiscard]] int Ano() const { return Civil().ano; }

    friend constexpr auto operator<=>(const Data&, const Data&) = default;

  private:
    double dias_ = 0;
};

}  // namespace tarvo
