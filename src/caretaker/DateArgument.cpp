#include "caretaker/DateArgument.h"

#include <fmt/format.h>

#include "caretaker/Command.h"
#include "frame/Dates.h"

namespace lantos {

DaySerial DateArgument(const std::string& text) {
  const auto date = ParseIsoDate(text);
  if (!date) throw WrongUse(fmt::format("\"{}\" is no date of the form 2003-09-30.", text));
  return *date;
}

}  // namespace lantos
