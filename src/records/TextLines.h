#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/Environment.h"

namespace lantos {

// A shared file that is lines of text, opened with no sharing for as long as it is read or written, unless told.

// The lines without their ends (CR LF, CR or LF); what stands behind the last end is a line if it isn't empty. A NUL
// is a character like any other, but at the end of the file, where room may have been taken for a text that never came.
// Nothing when there is no such file. FileError when it can't be read.
std::optional<std::vector<std::string>> ReadTextLines(Environment& environment, std::string_view name,
                                                      Deny deny = Deny::All);
// The same of a file that is open already.
std::vector<std::string> TextLinesIn(Environment& environment, const SharedFile& file, std::string_view name);
// The whole file anew, each line ended by CR LF. FileError when it can't be written; it is as it was then.
void PutTextLines(SharedFile& file, const std::vector<std::string>& lines);

}  // namespace lantos
