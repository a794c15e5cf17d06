#pragma once

#include <string>

#include "frame/Types.h"

namespace lantos {

// A day as 2003-09-30. Throws WrongUse for any other text.
DaySerial DateArgument(const std::string& text);

}  // namespace lantos
