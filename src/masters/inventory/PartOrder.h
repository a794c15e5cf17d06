#pragma once

#include <string>
#include <string_view>

namespace lantos {

// What a part sorts under. Of part numbers in their maker's dashed forms the base comes first, so that the parts of one
// base stand together: "A-BCD-EFG-HI" sorts as "A-EFG-BCD-HI", "ABC-DEF-GHI" as "DEF-ABC-GHI". Quotes become other
// characters, as in file names.
std::string ComputeSortKey(std::string_view stockNumber);

}  // namespace lantos
