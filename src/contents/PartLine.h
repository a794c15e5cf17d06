#pragma once

#include <string>

#include "frame/Types.h"

namespace lantos {

// A part of an estimate; amounts are of one unit, but for the total.
struct PartLine {
  std::string partNumber;
  std::string description;
  std::int32_t quantity = 0;
  Cents price = 0;
  Cents total = 0;  // as it is stored
  Cents cost = 0;
  Cents list = 0;
};

}  // namespace lantos
