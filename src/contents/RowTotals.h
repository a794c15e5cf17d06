#pragma once

#include <string_view>

#include "frame/Types.h"

namespace lantos {

// Read back from the rows: dollars and hours with the two decimals shown.
double TotalOfRow(std::string_view row);       // the number behind the last blank
double HoursOfLaborRow(std::string_view row);  // from character 8 up to the next blank
Cents CentsOfRow(std::string_view row);        // the number behind the last blank

}  // namespace lantos
