#pragma once

#include <string>
#include <string_view>

#include "records/CannedLabor.h"

namespace lantos {

// A note is eight lines of at most 64 characters; canned ones are the same.
inline constexpr std::size_t kNoteLineWidth = 64;
using Note = CannedNote;

struct FlowedNote {
  Note lines;
  std::string remainder;  // what the eight lines have no room for
};
// A text into lines: at its line ends, and at the last blank that lets a line keep its width, or in the middle of a
// word that is longer. Empty lines count toward the eight, and are closed up afterwards.
FlowedNote FlowNote(std::string_view text);
// The lines as a text to edit, down to the last that isn't empty.
std::string TextOfNote(const Note& note);

}  // namespace lantos
