#pragma once

#include <string>
#include <string_view>

namespace lantos {

// Comma-separated values for a spreadsheet: UTF-8 with this mark ahead, records end with CR LF.
inline constexpr std::string_view kCsvMark = "\xEF\xBB\xBF";

// A text of such a record, in quotes, which are doubled inside; one that a spreadsheet would take for a formula has an
// apostrophe ahead.
std::string CsvText(std::string_view text);

}  // namespace lantos
