#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/Environment.h"
#include "frame/FileCause.h"
#include "workorders/ConversionJournal.h"

namespace lantos {

// What one journal in the data directory says, while its conversion runs too.
struct JournalOnDisk {
  std::string name;
  std::optional<BegunConversion> begun;   // none for a damaged one
  std::optional<FileFailure> unreadable;  // why it couldn't be looked at
};

// All of them, by name. Opened for reading alone and for this look: nobody's conversion is in the way or kept waiting.
// What fails is in the run log too.
std::vector<JournalOnDisk> LookAtJournals(Environment& environment);

// The first of these that says of the estimate that it is becoming a work order. Null when none does.
const JournalOnDisk* FindConversionOf(const std::vector<JournalOnDisk>& journals, std::int32_t estimate);

// That somebody else has it in hand, as a person is told.
std::string BeingConverted(const BegunConversion& begun);

}  // namespace lantos
