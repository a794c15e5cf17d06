#pragma once

#include <string_view>

namespace lantos {

// How a file begins that stands in a database's place and names the server that has its tables.
inline constexpr std::string_view kServerMark = "Lantos database server";

}  // namespace lantos
