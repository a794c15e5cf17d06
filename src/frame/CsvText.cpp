#include "frame/CsvText.h"

namespace lantos {

namespace {

constexpr std::string_view kFormulaSigns = "=+-@\t\r";

}  // namespace

std::string CsvText(std::string_view text) {
  std::string quoted = "\"";
  if (!text.empty() && kFormulaSigns.find(text.front()) != std::string_view::npos) quoted += '\'';
  for (const char c : text) {
    quoted += c;
    if (c == '"') quoted += c;
  }
  return quoted + '"';
}

}  // namespace lantos
