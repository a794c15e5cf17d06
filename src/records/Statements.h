#pragma once

#include <string>
#include <string_view>

#include "frame/Environment.h"

namespace lantos {

// Texts of the shop that are printed as they stand.
inline constexpr std::string_view kEstimateDisclaimer = "DISC_EST.TXT";  // preferred when it is there
inline constexpr std::string_view kWorkorderDisclaimer = "DISCLAIM.TXT";
inline constexpr std::string_view kDisclosureFile = "DISCLOSURE.TXT";

// The lines, each cut at its first NUL, joined by CR LF. Opened shared. Throws FileError (53) when there is no such
// file.
std::string ReadStatement(Environment& environment, std::string_view name);
// The same with each line trimmed.
std::string ReadTrimmedStatement(Environment& environment, std::string_view name);
// The text as it is, in place of what was there.
void WriteStatement(Environment& environment, std::string_view name, std::string_view text);

}  // namespace lantos
